#include "ep/epplayer.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

EP_Player *scannedPlayer(const QString &fixture)
{
    auto *player = new EP_Player;
    QString text = fixtureText(fixture);
    player->parsePage(text);
    return player;
}

// What a harvest of five roster rows leaves, and one record of another kind: a
// skater, a duplicate that was never fetched, a player whose page failed, a
// goalkeeper and a player without a date of birth.
struct Records
{
    QList<DataWrapper *> list;
    Records()
    {
        EP_PlayerHistory::lastYear = 0;
        EP_Player *skater = scannedPlayer(u"ep/player_skater.html"_s);
        skater->team = u"Fr\u00f6lunda HC"_s;
        skater->jersey = 27;
        skater->status = u"C"_s;
        skater->duplicateIndex = -1;

        auto *duplicate = new EP_Player;
        duplicate->isDuplicate = true;
        duplicate->duplicateIndex = 1;
        duplicate->team = u"TPS"_s;

        auto *failed = new EP_Player;
        failed->duplicateIndex = -1;
        failed->team = u"TPS"_s;

        list = {skater,
                duplicate,
                failed,
                new DataWrapper,
                scannedPlayer(u"ep/player_goalkeeper.html"_s),
                scannedPlayer(u"ep/player_one_name.html"_s)};
    }
    ~Records() { qDeleteAll(list); }
    Records(const Records &) = delete;
    Records &operator=(const Records &) = delete;
};

// A record with every field of the player layout set.
void fill(EP_Player &player)
{
    player.duplicateIndex = -1;
    player.firstName = u"Mattias"_s;
    player.secondName = u"Ekstr\u00f6m; Lindqvist"_s;
    player.dateOfBirth = QDate(1996, 2, 29);
    player.yearOfBirth = 1996;
    player.age = 28;
    // The two characters are the UTF-8 bytes of an o-umlaut.
    player.birthPlace = u"G\u00c3\u00b6teborg:SWE"_s;
    player.nation1 = u"Sweden"_s;
    player.nation2 = u"Norge, Norway"_s;
    player.height = 186;
    player.weight = 89;
    player.position = u"D, LW"_s;
    player.stickSide = u"L"_s;
    player.jersey = 27;
    player.team = u"Fr\u00f6lunda HC"_s;
    player.contractExpiry = 2026;
    player.capHit = 4000000000u;
    player.nhlDraft = u"2014 round 2 #45, by Detroit"_s;
    player.status = u"C"_s;
    player.intGp = 14;
    player.intGoals = 3;
    player.intAssists = 5;
}

QString rowOf(EP_Player &player, bool utf, QChar separator, const QString &teamOverride)
{
    QString text;
    QTextStream stream(&text);
    if (utf)
        player.writeUtfRow(stream, separator, teamOverride);
    else
        player.writeAsciiRow(stream, separator, teamOverride);
    stream.flush();
    return text;
}

} // namespace

class TestEpPlayerExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void savePlayers_data();
    void savePlayers();
    void noRecords();
    void chosenNameWithTwoDots();
    void folderThatCantBeWritten();
    void namesAreReadWhenTheFileIsWritten();
    void rowWriters_data();
    void rowWriters();
    void duplicateWithAnIndexWritesNothing_data();
    void duplicateWithAnIndexWritesNothing();
};

void TestEpPlayerExport::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpPlayerExport::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void TestEpPlayerExport::savePlayers_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    QTest::newRow("ascii, decimal point") << QLocale::c() << false << u"ascii_point"_s;
    QTest::newRow("ascii, English") << QLocale(QLocale::English) << false << u"ascii_point"_s;
    QTest::newRow("ascii, German") << QLocale(QLocale::German) << false << u"ascii_comma"_s;
    QTest::newRow("utf, English") << QLocale(QLocale::English) << true << u"utf"_s;
    // Tabs whatever the locale.
    QTest::newRow("utf, German") << QLocale(QLocale::German) << true << u"utf"_s;
}

void TestEpPlayerExport::savePlayers()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    Records records;
    QVERIFY(EP_Player::savePlayers(QFileInfo(dir.filePath(u"harvest.csv"_s)), records.list, utf));

    // The chosen name itself is not written.
    QCOMPARE(filesIn(dir.path()),
             QStringList({u"harvest_player_histories.csv"_s, u"harvest_players.csv"_s}));
    const QByteArray players = fileBytes(dir.filePath(u"harvest_players.csv"_s));
    const QByteArray histories = fileBytes(dir.filePath(u"harvest_player_histories.csv"_s));
    const QByteArray expectedPlayers
        = fixtureBytes(u"ep/expected/player_export_players_%1.csv"_s.arg(mode));
    const QByteArray expectedHistories
        = fixtureBytes(u"ep/expected/player_export_histories_%1.csv"_s.arg(mode));
    QVERIFY(!expectedPlayers.isEmpty());
    QVERIFY(!expectedHistories.isEmpty());
    QCOMPARE(players, expectedPlayers);
    QCOMPARE(histories, expectedHistories);
    QVERIFY(players.startsWith("\xef\xbb\xbf"));
}

void TestEpPlayerExport::noRecords()
{
    QTemporaryDir dir;
    QList<DataWrapper *> none;
    QVERIFY(EP_Player::savePlayers(QFileInfo(dir.filePath(u"empty.csv"_s)), none, true));
    const QByteArray players = fileBytes(dir.filePath(u"empty_players.csv"_s));
    const QByteArray histories = fileBytes(dir.filePath(u"empty_player_histories.csv"_s));
    QCOMPARE(players,
             "\xef\xbb\xbf"
             "Duplicate?\tFirst Name\tSecond Name\tDOB\tNation 1\tNation 2\tBirth Place\tTeam\t"
             "Contract Expiry\tPosition\tStick Side\tJersey #\tHeight\tWeight\tCap Hit\tNHL Draft\t"
             "Status\tAge\tInt. GP\tInt. G\tInt. A\n"_ba);
    QCOMPARE(histories,
             "\xef\xbb\xbf"
             "First Name\tSecond Name\tDate of Birth\tOn Loan\tPlayoffs\tYear\tClub\tCompetition\t"
             "GP\tG\tA\tPIM\t'+/-\tMins\tGA\tSO\tW\tL\tT/OT\tSaves\tCaptain\tAlt Capt\t"
             "Playoff Type\tAge Type\tInt'l\tGAA\tSv%\n"_ba);
}

void TestEpPlayerExport::chosenNameWithTwoDots()
{
    // The name is cut at its first dot and takes the part behind its last.
    QTemporaryDir dir;
    QList<DataWrapper *> none;
    EP_Player::savePlayers(QFileInfo(dir.filePath(u"a.b.csv"_s)), none, false);
    QCOMPARE(filesIn(dir.path()), QStringList({u"a_player_histories.csv"_s, u"a_players.csv"_s}));
}

void TestEpPlayerExport::folderThatCantBeWritten()
{
    QTemporaryDir dir;
    Records records;
    // Nothing is reported, nothing is written, and the result stays true.
    QVERIFY(EP_Player::savePlayers(QFileInfo(dir.filePath(u"missing/harvest.csv"_s)), records.list,
                                   false));
    QVERIFY(filesIn(dir.path()).isEmpty());
}

void TestEpPlayerExport::namesAreReadWhenTheFileIsWritten()
{
    QTemporaryDir dir;
    Records records;
    auto *goalkeeper = dynamic_cast<EP_Player *>(records.list.at(4));
    QVERIFY(goalkeeper);
    goalkeeper->firstName = u"Heikki"_s;
    goalkeeper->dateOfBirth = QDate();
    EP_Player::savePlayers(QFileInfo(dir.filePath(u"x.csv"_s)), records.list, true);
    const QList<QByteArray> lines
        = fileBytes(dir.filePath(u"x_player_histories.csv"_s)).split('\n');
    QCOMPARE(lines.size(), 15);
    QVERIFY(lines.at(10).startsWith("Heikki\tVesterinen\t1.2.1900\tN\tN\t2019\tTPS\t"));
    QVERIFY(lines.at(12).startsWith("Heikki\tVesterinen\t1.2.1900\tN\tY\t2020\tTPS U20\t"));
}

void TestEpPlayerExport::rowWriters_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<bool>("duplicate");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("year");
    QTest::addColumn<QString>("teamOverride");
    QTest::addColumn<QString>("line");

    const QDate date(1996, 2, 29);
    QTest::newRow("utf")
        << true << u"\t"_s << false << date << 1996 << QString()
        << u"n\tMattias\tEkstr\u00f6m; Lindqvist\t29.02.1996\tSweden\tNorge, Norway\t"
           u"G\u00c3\u00b6teborg:SWE\tFr\u00f6lunda HC\t2026\tD, LW\tL\t27\t186\t89\t4000000000\t"
           u"2014 round 2 #45, by Detroit\tC\t28\t14\t3\t5\n"_s;
    // Names, nations, place and team are converted; position, stick side, draft
    // and status are not.
    QTest::newRow("ascii")
        << false << u","_s << false << date << 1996 << QString()
        << u"n,Mattias,Ekstr\ufffdm Lindqvist,29.02.1996,Sweden,Norge Norway,G\u00f6teborg:SWE,"
           u"Fr\ufffdlunda HC,2026,D, LW,L,27,186,89,4000000000,2014 round 2 #45, by Detroit,C,28,"
           u"14,3,5\n"_s;
    QTest::newRow("team override")
        << true << u";"_s << false << date << 1996 << u"Team B"_s
        << u"n;Mattias;Ekstr\u00f6m; Lindqvist;29.02.1996;Sweden;Norge, Norway;"
           u"G\u00c3\u00b6teborg:SWE;Team B;2026;D, LW;L;27;186;89;4000000000;"
           u"2014 round 2 #45, by Detroit;C;28;14;3;5\n"_s;
    QTest::newRow("no date: the year")
        << true << u"\t"_s << false << QDate() << 1990 << QString()
        << u"n\tMattias\tEkstr\u00f6m; Lindqvist\t0.0.1990\tSweden\tNorge, Norway\t"
           u"G\u00c3\u00b6teborg:SWE\tFr\u00f6lunda HC\t2026\tD, LW\tL\t27\t186\t89\t4000000000\t"
           u"2014 round 2 #45, by Detroit\tC\t28\t14\t3\t5\n"_s;
    QTest::newRow("no date, no year")
        << true << u"\t"_s << false << QDate() << 0 << QString()
        << u"n\tMattias\tEkstr\u00f6m; Lindqvist\t0.0.0\tSweden\tNorge, Norway\t"
           u"G\u00c3\u00b6teborg:SWE\tFr\u00f6lunda HC\t2026\tD, LW\tL\t27\t186\t89\t4000000000\t"
           u"2014 round 2 #45, by Detroit\tC\t28\t14\t3\t5\n"_s;
    // A duplicate that names no other row is written, with a capital Y.
    QTest::newRow("duplicate without an index")
        << true << u"\t"_s << true << date << 1996 << QString()
        << u"Y\tMattias\tEkstr\u00f6m; Lindqvist\t29.02.1996\tSweden\tNorge, Norway\t"
           u"G\u00c3\u00b6teborg:SWE\tFr\u00f6lunda HC\t2026\tD, LW\tL\t27\t186\t89\t4000000000\t"
           u"2014 round 2 #45, by Detroit\tC\t28\t14\t3\t5\n"_s;
}

void TestEpPlayerExport::rowWriters()
{
    QFETCH(bool, utf);
    QFETCH(QString, separator);
    QFETCH(bool, duplicate);
    QFETCH(QDate, date);
    QFETCH(int, year);
    QFETCH(QString, teamOverride);
    QFETCH(QString, line);

    EP_Player player;
    fill(player);
    player.isDuplicate = duplicate;
    player.dateOfBirth = date;
    player.yearOfBirth = qint16(year);
    QCOMPARE(rowOf(player, utf, separator.at(0), teamOverride), line);
}

void TestEpPlayerExport::duplicateWithAnIndexWritesNothing_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("index 0") << 0;
    QTest::newRow("index 5") << 5;
}

void TestEpPlayerExport::duplicateWithAnIndexWritesNothing()
{
    QFETCH(int, index);
    // Such a row would hand itself the writing again and again; it writes nothing
    // and returns.
    EP_Player player;
    fill(player);
    player.isDuplicate = true;
    player.duplicateIndex = index;
    QCOMPARE(rowOf(player, false, u',', QString()), QString());
    QCOMPARE(rowOf(player, true, u'\t', QString()), QString());
    QCOMPARE(rowOf(player, true, u'\t', u"Team B"_s), QString());

    // Not a duplicate, the same index is no matter.
    player.isDuplicate = false;
    QVERIFY(rowOf(player, true, u'\t', QString()).startsWith(u"n\tMattias\t"_s));
}

QM_TEST_MAIN(TestEpPlayerExport)
#include "tst_epplayerexport.moc"
