#include "core/sharedstate.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tfm/tfmhistory.h"
#include "tfm/tfmplayer.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

TFM_History historyRow(const QString &club, const QString &season, quint32 apps, quint32 goals)
{
    TFM_History row;
    row.club = club;
    row.season = season;
    row.apps = apps;
    row.goals = goals;
    row.onLoan = false;
    return row;
}

// A forward with two names, three secondary positions and two history rows.
TFM_Player *forward()
{
    auto *player = new TFM_Player;
    player->id = u"12345"_s;
    player->nameInUrl = u"jan-smith"_s;
    player->firstName = u"Jan"_s;
    player->secondName = u"Smith, Jr;"_s;
    player->completeName = u"Jan \u00c5ke Smith"_s;
    player->dateOfBirth = QDate(1995, 3, 4);
    player->height = 1.85f;
    player->nation1 = u"Norway"_s;
    player->nation2 = u"Sweden"_s;
    player->contractStart = QDate(2021, 7, 1);
    player->contractEnd = QDate(2026, 6, 30);
    // Two characters that are the UTF-8 bytes of an o-slash.
    player->club = u"\u00c3\u00b8stersunds FK"_s;
    player->marketValue = 12500000;
    player->worldRep = 105;
    player->wage = 10500;
    player->positionRatings = {1, 1, 1, 1, 1, 15, 20, 1, 1, 15, 15, 20};
    player->rightFootRating = 20;
    player->leftFootRating = 1;
    player->internationalApps = 12;
    player->internationalGoals = 3;
    player->squadNumber = 9;
    player->foot = u"right"_s;
    player->mainPosition = u"centre-forward"_s;
    player->otherPositions = {u"left winger"_s, u"right winger"_s, u"second striker"_s};
    player->history = {historyRow(u"\u00c3\u00b8stersunds FK"_s, u"2020"_s, 30, 11),
                       historyRow(u"Lillestr\u00f8m SK"_s, u"2019"_s, 25, 4)};
    return player;
}

// A goalkeeper on loan with one name, no height, no date of birth and no history.
TFM_Player *goalkeeper()
{
    auto *player = new TFM_Player;
    player->id = u"4711"_s;
    player->nameInUrl = u"ederson"_s;
    player->commonName = u"Ederson"_s;
    player->completeName = u"Ederson Santana de Moraes"_s;
    player->nation1 = u"Brazil"_s;
    player->contractEnd = QDate(2025, 6, 30);
    player->loanExpiry = QDate(2024, 6, 30);
    player->club = u"Manchester City"_s;
    player->onLoanFrom = u"SL Benfica"_s;
    player->worldRep = 1;
    player->wage = 100;
    player->positionRatings = {20, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    player->leftFootRating = 20;
    player->rightFootRating = 1;
    player->squadNumber = 31;
    player->foot = u"left"_s;
    player->mainPosition = u"goalkeeper"_s;
    return player;
}

// What the history-only mode leaves: no names of its own, a date and one row.
TFM_Player *historyOnlyPlayer()
{
    auto *player = new TFM_Player;
    player->completeName = u"Carlos G\u00f3mez"_s;
    player->dateOfBirth = QDate(2001, 12, 31);
    player->history = {historyRow(u"CA Boca Juniors"_s, u"2019"_s, 5, 0)};
    return player;
}

// Owns the records of one test, as the planner's list would.
struct Records
{
    QList<DataWrapper *> list;
    Records() { list = {forward(), goalkeeper(), historyOnlyPlayer()}; }
    ~Records() { qDeleteAll(list); }
    Records(const Records &) = delete;
    Records &operator=(const Records &) = delete;
};

QByteArray firstLine(const QByteArray &bytes)
{
    return bytes.left(bytes.indexOf('\n') + 1);
}

// The cells of the one row that writeUtf or writeAscii prints.
QStringList rowCells(TFM_Player &player, bool utf, QChar separator)
{
    QString text;
    QTextStream stream(&text);
    if (utf)
        player.writeUtf(stream, separator);
    else
        player.writeAscii(stream, separator);
    stream.flush();
    if (!text.endsWith(u'\n'))
        return {u"<no line break>"_s};
    text.chop(1);
    return text.split(separator);
}

void setOptions(bool data, bool history)
{
    setIncludePlayerData(data);
    setIncludePlayerHistory(history);
}

} // namespace

class TestTfmExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanupTestCase();

    void bothFiles_data();
    void bothFiles();
    void historyOnly_data();
    void historyOnly();
    void mainOnly_data();
    void mainOnly();
    void emptyList_data();
    void emptyList();
    void fileNames_data();
    void fileNames();
    void mainFileCannotOpen_data();
    void mainFileCannotOpen();
    void historyFileCannotOpen();
    void cells_data();
    void cells();
    void asciiConvertsOnlyNames();
    void titleRowHasFortyOneCells();
    void displayName_data();
    void displayName();
    void secondExportShowsCommonName();
};

void TestTfmExport::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTfmExport::init()
{
    QLocale::setDefault(QLocale::c());
    setOptions(true, false);
}

void TestTfmExport::cleanupTestCase()
{
    QLocale::setDefault(QLocale::c());
    setOptions(true, false);
}

// The three file modes: the separator follows the export mode and, for Ascii, the
// locale's decimal point.
static void modeColumns()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    QTest::newRow("ascii, decimal point") << QLocale::c() << false << u"ascii_point"_s;
    QTest::newRow("ascii, decimal comma") << QLocale(QLocale::German) << false << u"ascii_comma"_s;
    QTest::newRow("utf, decimal comma") << QLocale(QLocale::German) << true << u"utf"_s;
}

void TestTfmExport::bothFiles_data()
{
    modeColumns();
}

void TestTfmExport::bothFiles()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);
    setOptions(true, true);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"data.csv"_s)), records.list, utf));

    QCOMPARE(filesIn(dir.path()), QStringList({u"data.csv"_s, u"dataHISTORY.csv"_s}));
    QCOMPARE(fileBytes(dir.filePath(u"data.csv"_s)),
             fixtureBytes(u"tfm/expected/export_main_"_s + mode + u".csv"_s));
    QCOMPARE(fileBytes(dir.filePath(u"dataHISTORY.csv"_s)),
             fixtureBytes(u"tfm/expected/export_history_"_s + mode + u".csv"_s));
}

void TestTfmExport::historyOnly_data()
{
    modeColumns();
}

void TestTfmExport::historyOnly()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);
    setOptions(false, true);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"data.csv"_s)), records.list, utf));

    // The history goes into the chosen file; there is no main file.
    QCOMPARE(filesIn(dir.path()), QStringList({u"data.csv"_s}));
    QCOMPARE(fileBytes(dir.filePath(u"data.csv"_s)),
             fixtureBytes(u"tfm/expected/export_history_"_s + mode + u".csv"_s));
}

void TestTfmExport::mainOnly_data()
{
    QTest::addColumn<bool>("data");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    QTest::newRow("data on, history off, ascii") << true << false << u"ascii_point"_s;
    QTest::newRow("data on, history off, utf") << true << true << u"utf"_s;
    QTest::newRow("both off, ascii") << false << false << u"ascii_point"_s;
    QTest::newRow("both off, utf") << false << true << u"utf"_s;
}

void TestTfmExport::mainOnly()
{
    QFETCH(bool, data);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    setOptions(data, false);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"data.csv"_s)), records.list, utf));

    QCOMPARE(filesIn(dir.path()), QStringList({u"data.csv"_s}));
    QCOMPARE(fileBytes(dir.filePath(u"data.csv"_s)),
             fixtureBytes(u"tfm/expected/export_main_"_s + mode + u".csv"_s));
}

void TestTfmExport::emptyList_data()
{
    QTest::addColumn<bool>("data");
    QTest::addColumn<bool>("history");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QStringList>("files");
    // Which expected file's title row each of the written files holds.
    QTest::addColumn<QStringList>("titlesOf");

    QTest::newRow("both on, utf") << true << true << true
                                  << QStringList{u"data.csv"_s, u"dataHISTORY.csv"_s}
                                  << QStringList{u"export_main_utf"_s, u"export_history_utf"_s};
    QTest::newRow("both on, ascii")
        << true << true << false << QStringList{u"data.csv"_s, u"dataHISTORY.csv"_s}
        << QStringList{u"export_main_ascii_point"_s, u"export_history_ascii_point"_s};
    QTest::newRow("data only, utf")
        << true << false << true << QStringList{u"data.csv"_s} << QStringList{u"export_main_utf"_s};
    QTest::newRow("history only, ascii") << false << true << false << QStringList{u"data.csv"_s}
                                         << QStringList{u"export_history_ascii_point"_s};
}

void TestTfmExport::emptyList()
{
    QFETCH(bool, data);
    QFETCH(bool, history);
    QFETCH(bool, utf);
    QFETCH(QStringList, files);
    QFETCH(QStringList, titlesOf);
    setOptions(data, history);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"data.csv"_s)), {}, utf));

    QCOMPARE(filesIn(dir.path()), files);
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QByteArray titles
            = firstLine(fixtureBytes(u"tfm/expected/"_s + titlesOf.at(i) + u".csv"_s));
        QVERIFY(titles.size() > 10);
        QCOMPARE(fileBytes(dir.filePath(files.at(i))), titles);
    }
}

void TestTfmExport::fileNames_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QStringList>("files");

    // Names come back sorted; "HISTORY" stands before the dot of the complete suffix.
    QTest::newRow("data.csv") << u"data.csv"_s << QStringList{u"data.csv"_s, u"dataHISTORY.csv"_s};
    QTest::newRow("no extension: a trailing dot")
        << u"data"_s << QStringList{u"data."_s, u"dataHISTORY."_s};
    QTest::newRow("a name that ends in a dot")
        << u"data."_s << QStringList{u"data."_s, u"dataHISTORY."_s};
    QTest::newRow("a.b.csv loses its middle part")
        << u"a.b.csv"_s << QStringList{u"a.csv"_s, u"aHISTORY.csv"_s};
    QTest::newRow("archive.tar.gz")
        << u"archive.tar.gz"_s << QStringList{u"archive.gz"_s, u"archiveHISTORY.gz"_s};
    QTest::newRow("txt extension")
        << u"players.txt"_s << QStringList{u"players.txt"_s, u"playersHISTORY.txt"_s};
}

void TestTfmExport::fileNames()
{
    QFETCH(QString, chosen);
    QFETCH(QStringList, files);
    setOptions(true, true);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(chosen)), records.list, true));
    QCOMPARE(filesIn(dir.path()), files);
    // The first is the main file, the second the history file.
    const QStringList byRole
        = files.first().contains(u"HISTORY"_s) ? QStringList{files.at(1), files.at(0)} : files;
    QCOMPARE(fileBytes(dir.filePath(byRole.at(0))),
             fixtureBytes(u"tfm/expected/export_main_utf.csv"_s));
    QCOMPARE(fileBytes(dir.filePath(byRole.at(1))),
             fixtureBytes(u"tfm/expected/export_history_utf.csv"_s));
}

void TestTfmExport::mainFileCannotOpen_data()
{
    QTest::addColumn<bool>("data");
    QTest::addColumn<bool>("history");

    QTest::newRow("data only") << true << false;
    QTest::newRow("both on") << true << true;
    QTest::newRow("history only") << false << true;
}

void TestTfmExport::mainFileCannotOpen()
{
    QFETCH(bool, data);
    QFETCH(bool, history);
    setOptions(data, history);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    const QString chosen = dir.filePath(u"missing-folder/data.csv"_s);
    QVERIFY(!TFM_Player::exportPlayers(QFileInfo(chosen), records.list, true));
    QCOMPARE(filesIn(dir.path()), QStringList());
}

void TestTfmExport::historyFileCannotOpen()
{
    setOptions(true, true);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    // A folder in the history file's place: the file can't be opened for writing.
    QVERIFY(QDir(dir.path()).mkdir(u"dataHISTORY.csv"_s));

    Records records;
    QVERIFY(!TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"data.csv"_s)), records.list, true));
    // The main file stays with its title row only.
    QCOMPARE(fileBytes(dir.filePath(u"data.csv"_s)),
             firstLine(fixtureBytes(u"tfm/expected/export_main_utf.csv"_s)));
    QVERIFY(QFileInfo(dir.filePath(u"dataHISTORY.csv"_s)).isDir());
}

void TestTfmExport::cells_data()
{
    QTest::addColumn<int>("which"); // 0 forward, 1 goalkeeper, 2 history-only player
    QTest::addColumn<bool>("utf");
    QTest::addColumn<int>("column"); // counted from 1, as in a spreadsheet
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("cellCount");

    for (const bool utf : {false, true}) {
        const QString mode = utf ? u"utf: "_s : u"ascii: "_s;
        for (int column = 33; column <= 36; ++column) {
            QTest::addRow("%s empty column %d", qPrintable(mode), column)
                << 0 << utf << column << QString() << 43;
        }
        QTest::newRow(qPrintable(mode + u"three secondary positions make 43 cells"_s))
            << 0 << utf << 43 << u"second striker"_s << 43;
        QTest::newRow(qPrintable(mode + u"main position in column 40"_s))
            << 0 << utf << 40 << u"centre-forward"_s << 43;
        QTest::newRow(qPrintable(mode + u"height in metres"_s))
            << 0 << utf << 38 << u"1.85"_s << 43;
        QTest::newRow(qPrintable(mode + u"no height shows 0"_s)) << 1 << utf << 38 << u"0"_s << 40;
        QTest::newRow(qPrintable(mode + u"invalid loan expiry is empty"_s))
            << 0 << utf << 39 << QString() << 43;
        QTest::newRow(qPrintable(mode + u"invalid date of birth is empty"_s))
            << 1 << utf << 7 << QString() << 40;
        QTest::newRow(qPrintable(mode + u"valid loan expiry"_s))
            << 1 << utf << 39 << u"30.06.2024"_s << 40;
        QTest::newRow(qPrintable(mode + u"date of birth"_s))
            << 0 << utf << 7 << u"04.03.1995"_s << 43;
        QTest::newRow(qPrintable(mode + u"goalkeeper GK 20"_s)) << 1 << utf << 17 << u"20"_s << 40;
        for (int column = 18; column <= 28; ++column) {
            QTest::addRow("%s goalkeeper column %d is 1", qPrintable(mode), column)
                << 1 << utf << column << u"1"_s << 40;
        }
        QTest::newRow(qPrintable(mode + u"right foot"_s)) << 1 << utf << 29 << u"1"_s << 40;
        QTest::newRow(qPrintable(mode + u"left foot"_s)) << 1 << utf << 30 << u"20"_s << 40;
        QTest::newRow(qPrintable(mode + u"squad number"_s)) << 1 << utf << 37 << u"31"_s << 40;
        QTest::newRow(qPrintable(mode + u"goalkeeper ends at column 40"_s))
            << 1 << utf << 40 << u"goalkeeper"_s << 40;
        QTest::newRow(qPrintable(mode + u"value"_s)) << 0 << utf << 12 << u"12500000"_s << 43;
        QTest::newRow(qPrintable(mode + u"national team apps"_s))
            << 0 << utf << 31 << u"12"_s << 43;
        QTest::newRow(qPrintable(mode + u"national team goals"_s))
            << 0 << utf << 32 << u"3"_s << 43;
        QTest::newRow(qPrintable(mode + u"on loan from"_s))
            << 1 << utf << 16 << u"SL Benfica"_s << 40;
    }
    QTest::newRow("ascii: a comma in a name is dropped") << 0 << false << 4 << u"Smith Jr"_s << 43;
    QTest::newRow("utf: a comma in a name stays") << 0 << true << 4 << u"Smith, Jr;"_s << 43;
    QTest::newRow("ascii: UTF-8 byte pair becomes its o")
        << 0 << false << 15 << u"ostersunds FK"_s << 43;
    QTest::newRow("utf: club as it stands")
        << 0 << true << 15 << u"\u00c3\u00b8stersunds FK"_s << 43;
    QTest::newRow("ascii: a lone accented letter becomes U+FFFD")
        << 0 << false << 6 << u"Jan \ufffdke Smith"_s << 43;
}

void TestTfmExport::cells()
{
    QFETCH(int, which);
    QFETCH(bool, utf);
    QFETCH(int, column);
    QFETCH(QString, value);
    QFETCH(int, cellCount);

    const std::unique_ptr<TFM_Player> players[]
        = {std::unique_ptr<TFM_Player>(forward()), std::unique_ptr<TFM_Player>(goalkeeper()),
           std::unique_ptr<TFM_Player>(historyOnlyPlayer())};
    // A separator that no cell holds, so that the split is exact in both modes.
    const QStringList cells = rowCells(*players[which], utf, u'|');
    QCOMPARE(cells.size(), cellCount);
    QCOMPARE(cells.at(column - 1), value);
}

void TestTfmExport::asciiConvertsOnlyNames()
{
    TFM_Player player;
    player.id = u"12\u00e9"_s;
    player.nameInUrl = u"jos\u00e9-a,b"_s;
    player.firstName = u"Jos\u00e9"_s;
    player.secondName = u"M\u00fcller"_s;
    player.commonName = u"Z\u0142oty"_s;
    player.completeName = u"Jos\u00e9 M\u00fcller"_s;
    player.nation1 = u"C\u00f4te d'Ivoire"_s;
    player.nation2 = u"Espa\u00f1a"_s;
    player.club = u"Malm\u00f6 FF"_s;
    player.onLoanFrom = u"Br\u00f8ndby IF"_s;
    player.mainPosition = u"d\u00e9fense"_s;
    player.otherPositions = {u"milieu d\u00e9fensif"_s};

    const QStringList cells = rowCells(player, false, u'|');
    QCOMPARE(cells.size(), 41);
    // Printed as they stand.
    QCOMPARE(cells.at(0), player.id);
    QCOMPARE(cells.at(1), player.nameInUrl);
    QCOMPARE(cells.at(39), player.mainPosition);
    QCOMPARE(cells.at(40), player.otherPositions.first());
    // The eight name cells go through the conversion.
    QCOMPARE(cells.at(2), u"Jos\ufffd"_s);
    QCOMPARE(cells.at(3), u"M\ufffdller"_s);
    QCOMPARE(cells.at(4), u"Z?oty"_s);
    QCOMPARE(cells.at(5), u"Jos\ufffd M\ufffdller"_s);
    QCOMPARE(cells.at(7), u"C\ufffdte d'Ivoire"_s);
    QCOMPARE(cells.at(8), u"Espa\ufffda"_s);
    QCOMPARE(cells.at(14), u"Malm\ufffd FF"_s);
    QCOMPARE(cells.at(15), u"Br\ufffdndby IF"_s);

    const QStringList utfCells = rowCells(player, true, u'|');
    QCOMPARE(utfCells.at(2), player.firstName);
    QCOMPARE(utfCells.at(15), player.onLoanFrom);
}

void TestTfmExport::titleRowHasFortyOneCells()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    QVERIFY(TFM_Player::exportPlayers(QFileInfo(dir.filePath(u"t.csv"_s)), {}, true));
    QByteArray bytes = fileBytes(dir.filePath(u"t.csv"_s));
    QVERIFY(bytes.startsWith("\xEF\xBB\xBF"));
    QVERIFY(bytes.endsWith('\n'));
    bytes = bytes.mid(3).chopped(1);
    const QList<QByteArray> titles = bytes.split('\t');
    QCOMPARE(titles.size(), 41);
    QCOMPARE(titles.at(30), "qint32 apps"_ba);
    QCOMPARE(titles.at(31), "qint32 goals"_ba);
    QCOMPARE(titles.at(40), "Secondary position(s)"_ba);
}

void TestTfmExport::displayName_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("common");
    QTest::addColumn<QString>("fallback");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("commonAfter");

    QTest::newRow("two names") << u"Jan"_s << u"Smith"_s << u"Nick"_s << u"Fallback"_s
                               << u"Jan Smith"_s << u"Nick"_s;
    QTest::newRow("first name only")
        << u"Jan"_s << QString() << QString() << u"Fallback"_s << u"Jan"_s << QString();
    QTest::newRow("no name: the fallback becomes the common name")
        << QString() << QString() << QString() << u"Carlos G\u00f3mez"_s << u"Carlos G\u00f3mez"_s
        << u"Carlos G\u00f3mez"_s;
    QTest::newRow("second name only: the fallback as well")
        << QString() << u"Smith"_s << QString() << u"Fallback"_s << u"Fallback"_s << u"Fallback"_s;
    QTest::newRow("no name and an empty fallback")
        << QString() << QString() << QString() << QString() << QString() << QString();
    QTest::newRow("common name") << QString() << QString() << u"Ederson"_s << u"Fallback"_s
                                 << u"Ederson"_s << u"Ederson"_s;
    QTest::newRow("first and common name")
        << u"Jan"_s << QString() << u"Nick"_s << u"Fallback"_s << u"Nick"_s << u"Nick"_s;
}

void TestTfmExport::displayName()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, common);
    QFETCH(QString, fallback);
    QFETCH(QString, result);
    QFETCH(QString, commonAfter);

    TFM_Player player;
    player.firstName = first;
    player.secondName = second;
    player.commonName = common;
    QCOMPARE(player.displayName(fallback), result);
    QCOMPARE(player.commonName, commonAfter);
    QCOMPARE(player.firstName, first);
    QCOMPARE(player.secondName, second);
}

void TestTfmExport::secondExportShowsCommonName()
{
    setOptions(true, true);
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    const QFileInfo info(dir.filePath(u"data.csv"_s));

    QVERIFY(TFM_Player::exportPlayers(info, records.list, true));
    const QByteArray first = fileBytes(info.filePath());
    QCOMPARE(first, fixtureBytes(u"tfm/expected/export_main_utf.csv"_s));

    // The history rows named the nameless player after its complete name for good.
    QVERIFY(TFM_Player::exportPlayers(info, records.list, true));
    const QByteArray second = fileBytes(info.filePath());
    QVERIFY(first != second);

    const QList<QByteArray> firstRows = first.split('\n');
    const QList<QByteArray> secondRows = second.split('\n');
    QCOMPARE(secondRows.size(), firstRows.size());
    // Title row and the two named players stay as they were.
    for (int row = 0; row < 3; ++row)
        QCOMPARE(secondRows.at(row), firstRows.at(row));
    const QList<QByteArray> before = firstRows.at(3).split('\t');
    const QList<QByteArray> after = secondRows.at(3).split('\t');
    QCOMPARE(before.at(4), QByteArray());
    QCOMPARE(QString::fromUtf8(after.at(4)), u"Carlos G\u00f3mez"_s);
    for (qsizetype cell = 0; cell < before.size(); ++cell) {
        if (cell != 4)
            QCOMPARE(after.at(cell), before.at(cell));
    }
    // The history file is the same both times.
    QCOMPARE(fileBytes(dir.filePath(u"dataHISTORY.csv"_s)),
             fixtureBytes(u"tfm/expected/export_history_utf.csv"_s));
}

QM_TEST_GUILESS_MAIN(TestTfmExport)

#include "tst_tfmexport.moc"
