#include "fmd/fmdplayer.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString fixedTitles = u"Id|NameInUrl|First name|Second name|Common name|Complete name|DOB|"
                            u"Nation 1|Contract end|Value|Club|GK|SW|D|DM|M|AM|WB|FR|Right|Left|"
                            u"Centre|Right Foot|Left Foot|qint32 apps|qint32 goals|CA|PA"_s;
const QString ratingTitles = u"Attacking|Defending|Goalkeeping|Mental|Overall|Physical|Technical"_s;
const QString attributeTitles
    = u"Acceleration|Aerial Reach|Aggression|Agility|Anticipation|Balance|Bravery|Command Of "
      u"Area|Communication|Composure|Concentration|Corners|Crossing|Decisions|Determination|"
      u"Dribbling|Eccentricity|Finishing|First Touch|Flair|Free Kick|Handling|Heading|Jumping "
      u"Reach|Kicking|Leadership|Long Shots|Long Throws|Marking|Natural Fitness|Off The Ball|One "
      u"On Ones|Pace|Passing|Penalty Taking|Positioning|Reflexes|Rushing Out|Stamina|Strength|"
      u"Tackling|Teamwork|Technique|Tendency To Punch|Throwing|Vision|Work Rate"_s;

// A text written with "|" in place of the separator.
QString withSeparator(QString text, QChar separator)
{
    return text.replace(u'|', separator);
}

// A player with every field set, names with an accent and a comma.
FMD_Player *fullPlayer()
{
    auto *player = new FMD_Player;
    player->id = u"1004"_s;
    player->nameInUrl = u"carlos-g\u00f3mez"_s;
    player->firstName = u"Carlos"_s;
    player->secondName = u"G\u00f3mez, Jr"_s;
    player->commonName = u"Carlos G\u00f3mez"_s;
    player->completeName = u"Carlos G\u00f3mez; Jr"_s;
    player->dateOfBirth = QDate(1996, 2, 29);
    player->nation1 = u"C\u00f4te d'Ivoire"_s;
    player->contractEnd = QDate(2020, 6, 30);
    player->marketValue = 4000000000u;
    player->club = u"Atl\u00e9tico Testville"_s;
    player->positionRatings = {20, 1, 1, 1, 20, 1, 20, 1, 1, 20, 1, 1};
    player->rightFootRating = 20;
    player->leftFootRating = 1;
    player->internationalApps = 11;
    player->internationalGoals = 1;
    player->height = 1.76f;
    player->positions = u"WB/M (R), \u00e9"_s;
    player->ratings[u"Overall"_s] = 72;
    player->attributes[u"Work Rate"_s] = -3;
    return player;
}

QString zeros(int count)
{
    return u"|0"_s.repeated(count);
}

} // namespace

// The FMDataba export: the title line, one line per record in both modes, the
// separators and the file itself.
class TestFmdExport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyList_data();
    void emptyList();
    void rows_data();
    void rows();
    void freshRecord();
    void titlesComeFromTheFirstRecord();
    void recordsInListOrder();
    void fileThatCannotBeOpened();
    void exportCanBeRepeated();
};

void TestFmdExport::init()
{
    QLocale::setDefault(QLocale::c());
}

void TestFmdExport::cleanup()
{
    QLocale::setDefault(QLocale::c());
}

void TestFmdExport::emptyList_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QChar>("separator");

    QTest::newRow("ascii, decimal point") << QLocale::c() << false << QChar(u',');
    QTest::newRow("ascii, decimal comma") << QLocale(QLocale::German) << false << QChar(u';');
    QTest::newRow("utf") << QLocale(QLocale::German) << true << QChar(u'\t');
}

void TestFmdExport::emptyList()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QChar, separator);
    QLocale::setDefault(locale);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"none.csv"_s);
    QList<DataWrapper *> players;
    QVERIFY(FMD_Player::exportPlayers(QFileInfo(path), players, utf));

    // Without a record there are no table titles; the line still ends in a separator.
    const QString line = withSeparator(fixedTitles + u"|Height (m)|Positions|\n"_s, separator);
    QCOMPARE(fileBytes(path), QByteArray("\xEF\xBB\xBF") + line.toUtf8());
}

void TestFmdExport::rows_data()
{
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("line");

    // The Ascii rule reads the names' Latin-1 bytes as UTF-8 and drops commas and
    // semicolons; the address name and the position text never pass through it.
    const QString tail = u"|20|1|1|1|20|1|1|1|20|1|1|20|1|11|1|0|0"_s + u"|0|0|0|0|72|0|0"_s
        + zeros(46) + u"|-3|1.76|WB/M (R), \u00e9|\n"_s;
    QTest::newRow("utf") << true
                         << u"1004|carlos-g\u00f3mez|Carlos|G\u00f3mez, Jr|Carlos G\u00f3mez|"
                            u"Carlos G\u00f3mez; Jr|29.02.1996|C\u00f4te d'Ivoire|30.06.2020|"
                            u"4000000000|Atl\u00e9tico Testville"_s
            + tail;
    QTest::newRow("ascii") << false
                           << u"1004|carlos-g\u00f3mez|Carlos|G\uFFFDmez Jr|Carlos G\uFFFDmez|"
                              u"Carlos G\uFFFDmez Jr|29.02.1996|C\uFFFDte d'Ivoire|30.06.2020|"
                              u"4000000000|Atl\uFFFDtico Testville"_s
            + tail;
}

void TestFmdExport::rows()
{
    QFETCH(bool, utf);
    QFETCH(QString, line);

    std::unique_ptr<FMD_Player> player(fullPlayer());
    QString written;
    QTextStream stream(&written);
    // Slot 6 has no column: its 20 appears nowhere.
    if (utf)
        player->writeUtf(stream, u'|');
    else
        player->writeAscii(stream, u'|');
    stream.flush();
    QCOMPARE(written, line);
}

void TestFmdExport::freshRecord()
{
    // No dates: two empty cells; no height: 0; the grid of 1 and a right foot.
    FMD_Player player;
    QString written;
    QTextStream stream(&written);
    player.writeUtf(stream, u',');
    stream.flush();
    QCOMPARE(written,
             u",,,,,,,,,0,,1,1,1,1,1,1,1,1,1,1,1,20,1,0,0,0,0"_s + zeros(7 + 47).replace(u'|', u',')
                 + u",0,,\n"_s);
}

void TestFmdExport::titlesComeFromTheFirstRecord()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"players.csv"_s);

    // The first record has a further rating key, the second doesn't: the titles
    // follow the first, and the second's cells shift against them.
    auto *first = new FMD_Player;
    first->ratings.insert(QString(), 77);
    first->id = u"1"_s;
    auto *second = new FMD_Player;
    second->id = u"2"_s;
    QList<DataWrapper *> players{first, second};
    QVERIFY(FMD_Player::exportPlayers(QFileInfo(path), players, true));
    qDeleteAll(players);

    const QString titles = fixedTitles + u"||"_s + ratingTitles + u"|"_s + attributeTitles
        + u"|Height (m)|Positions|"_s;
    const QString freshTail = u"|||||||||0||1|1|1|1|1|1|1|1|1|1|1|20|1|0|0|0|0"_s;
    const QString expected = titles + u"\n1"_s + freshTail + u"|77"_s + zeros(7 + 47) + u"|0||\n2"_s
        + freshTail + zeros(7 + 47) + u"|0||\n"_s;
    QCOMPARE(fileBytes(path), QByteArray("\xEF\xBB\xBF") + withSeparator(expected, u'\t').toUtf8());
    const QList<QByteArray> lines = fileBytes(path).split('\n');
    QCOMPARE(lines.at(0).count('\t'), 84 + 1);
    QCOMPARE(lines.at(1).count('\t'), 85);
    QCOMPARE(lines.at(2).count('\t'), 84);
}

void TestFmdExport::recordsInListOrder()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"order.txt"_s);
    QList<DataWrapper *> players;
    for (const QString &id : {u"30"_s, u"10"_s, u"20"_s}) {
        auto *player = new FMD_Player;
        player->id = id;
        players.append(player);
    }
    QVERIFY(FMD_Player::exportPlayers(QFileInfo(path), players, false));
    qDeleteAll(players);

    QList<QByteArray> lines = fileBytes(path).split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.at(1).startsWith("30,"));
    QVERIFY(lines.at(2).startsWith("10,"));
    QVERIFY(lines.at(3).startsWith("20,"));
    QVERIFY(lines.at(4).isEmpty());
}

void TestFmdExport::fileThatCannotBeOpened()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"missing/players.csv"_s);
    QList<DataWrapper *> players{new FMD_Player};
    QVERIFY(!FMD_Player::exportPlayers(QFileInfo(path), players, true));
    qDeleteAll(players);
    QVERIFY(!QFile::exists(path));
}

void TestFmdExport::exportCanBeRepeated()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString path = dir.filePath(u"twice.csv"_s);
    QList<DataWrapper *> players{fullPlayer()};
    QVERIFY(FMD_Player::exportPlayers(QFileInfo(path), players, false));
    const QByteArray first = fileBytes(path);
    QVERIFY(FMD_Player::exportPlayers(QFileInfo(path), players, false));
    QCOMPARE(fileBytes(path), first);
    // The record is as it was.
    QCOMPARE(static_cast<FMD_Player *>(players.first())->secondName, u"G\u00f3mez, Jr"_s);
    qDeleteAll(players);
}

QM_TEST_MAIN(TestFmdExport)

#include "tst_fmdexport.moc"
