#include "core/constants.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "ep/epteam.h"
#include "ep/playerpageentry.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString nullable(const QString &text)
{
    return text.isNull() ? u"<null>"_s : text;
}

// One roster row in a line: its slug, then every field of its entry in order.
QString describe(const QString &slug, const PlayerPageEntry &e)
{
    return QStringList{nullable(slug),
                       QString::number(e.duplicateIndex),
                       nullable(e.firstName),
                       nullable(e.secondName),
                       e.dateOfBirth.isValid() ? e.dateOfBirth.toString(Qt::ISODate)
                                               : u"<invalid>"_s,
                       QString::number(e.yearOfBirth),
                       nullable(e.birthPlace),
                       QString::number(e.height),
                       QString::number(e.weight),
                       nullable(e.position),
                       nullable(e.stickSide),
                       QString::number(e.jersey),
                       nullable(e.team),
                       QString::number(e.contractExpiry),
                       nullable(e.status)}
        .join(u'|');
}

QStringList rosterLines()
{
    const PlayerPageList &list = EP_Team::playerUrls();
    QStringList lines;
    for (qsizetype i = 0; i < list.urls.size() && i < list.entries.size(); ++i)
        lines.append(describe(list.urls.at(i), list.entries.at(i)));
    return lines;
}

// A roster row of the site's present form.
QString rosterRow(const QString &jersey, const QString &slug, const QString &name,
                  const QString &tail = QString())
{
    return u"<tr><td class=\"jersey\">"_s + jersey
        + u"</td><td class=\"name\"><a href=\"https://www.eliteprospects.com/player/"_s + slug
        + u"\">"_s + name
        + u"</a></td><td class=\"date-of-birth\">1990-01-02</td>"
          u"<td class=\"birthplace\"><a href=\"x\">Oslo, NOR</a></td>"
          u"<td class=\"height\">180</td><td class=\"weight\">80</td>"
          u"<td class=\"shoots\">L</td><td class=\"contract\">20/21</td>"_s
        + tail + u"</tr>"_s;
}

QString teamPage(const QString &rows)
{
    return u"<title>Elite Prospects - T</title><a href=\"#roster\">R</a><table><tbody>"_s + rows
        + u"</tbody><tfoot></tfoot></table>"_s;
}

} // namespace

// The team page scanner: the facts, the roster rows with their setters, the
// history and retired numbers it hands on, and the offline report.
class TestEpTeam : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void freshRecordsAndEntries();
    void setName_data();
    void setName();
    void setDateOfBirth_data();
    void setDateOfBirth();
    void shortConversions_data();
    void shortConversions();
    void setContractExpiry_data();
    void setContractExpiry();
    void setStatus_data();
    void setStatus();
    void plainCopies();
    void setBirthPlace_data();
    void setBirthPlace();
    void addRosterEntry();
    void addRosterEntryKeepsTheListsParallel();

    void facts_data();
    void facts();
    void roster_data();
    void roster();
    void oldLinkFlagsEveryRowAboveIt();
    void rowWithoutPlayerLink();
    void rowLackingACellShiftsTheNext();
    void pageWithoutRoster_data();
    void pageWithoutRoster();
    void rosterGrowsAcrossPages();

    void testReport_data();
    void testReport();
    void testReportCountsEarlierEntries();
};

void TestEpTeam::initTestCase()
{
    QVERIFY(EP_Team::playerUrls().urls.isEmpty());
    QVERIFY(EP_Team::playerUrls().entries.isEmpty());
    QCOMPARE(&EP_Team::playerUrls(), &EP_Team::playerUrls());
    QLocale::setDefault(QLocale::c());
}

void TestEpTeam::init()
{
    // The roster list and the carried-over season live as long as the process.
    EP_Team::playerUrls() = PlayerPageList();
    EP_TeamHistory::lastSeason = 0;
    log->clear();
}

void TestEpTeam::freshRecordsAndEntries()
{
    const EP_Team team;
    QVERIFY(team.teamName.isNull());
    QVERIFY(team.fullName.isNull());
    QVERIFY(team.city.isNull());
    QVERIFY(team.colours.isNull());
    QCOMPARE(team.founded, qint16(0));
    QVERIFY(team.histories.isEmpty());
    QVERIFY(team.retiredNumbers.isEmpty());

    const PlayerPageEntry entry;
    QCOMPARE(describe(QString(), entry),
             u"<null>|-1|<null>|<null>|<invalid>|0|<null>|0|0|<null>|<null>|0|<null>|0|<null>"_s);
}

void TestEpTeam::setName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QString>("secondName");

    QTest::newRow("two words") << u"Lars Olsen"_s << u"Lars"_s << u"Olsen"_s;
    QTest::newRow("three words") << u"Jan Erik Dahl"_s << u"Jan"_s << u"Erik Dahl"_s;
    QTest::newRow("one word") << u"Østergaard"_s << u"Østergaard"_s << QString();
    QTest::newRow("blank in front") << u" Lars Olsen"_s << u" Lars Olsen"_s << QString();
    QTest::newRow("two blanks") << u"Lars  Olsen"_s << u"Lars"_s << u" Olsen"_s;
    QTest::newRow("null") << QString() << QString() << QString();
}

void TestEpTeam::setName()
{
    QFETCH(QString, name);
    QFETCH(QString, firstName);
    QFETCH(QString, secondName);

    PlayerPageEntry entry;
    entry.setName(name);
    QCOMPARE(entry.firstName, firstName);
    QCOMPARE(entry.secondName, secondName);
    QCOMPARE(entry.secondName.isNull(), secondName.isNull());
}

void TestEpTeam::setDateOfBirth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<qint16>("year");

    QTest::newRow("full date") << u"1996-04-12"_s << QDate(1996, 4, 12) << qint16(1996);
    QTest::newRow("year alone") << u"1994"_s << QDate() << qint16(1994);
    QTest::newRow("empty") << QString() << QDate() << qint16(0);
    QTest::newRow("dash") << u"-"_s << QDate() << qint16(0);
    QTest::newRow("short text") << u"99"_s << QDate() << qint16(99);
    QTest::newRow("other date order") << u"12.04.1996"_s << QDate() << qint16(0);
    QTest::newRow("day out of range") << u"1996-02-30"_s << QDate() << qint16(1996);
    QTest::newRow("year and month") << u"1996-04"_s << QDate() << qint16(1996);
    QTest::newRow("single digits are not the format") << u"1996-4-2"_s << QDate() << qint16(1996);
}

void TestEpTeam::setDateOfBirth()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QFETCH(qint16, year);

    PlayerPageEntry entry;
    entry.setDateOfBirth(text);
    QCOMPARE(entry.dateOfBirth, date);
    QCOMPARE(entry.dateOfBirth.isValid(), date.isValid());
    QCOMPARE(entry.yearOfBirth, year);
}

void TestEpTeam::shortConversions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint16>("value");

    QTest::newRow("number") << u"183"_s << qint16(183);
    QTest::newRow("number sign before the digits") << u"#7"_s << qint16(0);
    QTest::newRow("dash") << u"-"_s << qint16(0);
    QTest::newRow("empty") << QString() << qint16(0);
    QTest::newRow("with a unit") << u"183 cm"_s << qint16(0);
    QTest::newRow("negative") << u"-5"_s << qint16(-5);
    QTest::newRow("largest 16-bit") << u"32767"_s << qint16(32767);
    QTest::newRow("beyond 16 bits") << u"32768"_s << qint16(0);
    QTest::newRow("decimal") << u"1.85"_s << qint16(0);
}

void TestEpTeam::shortConversions()
{
    QFETCH(QString, text);
    QFETCH(qint16, value);

    PlayerPageEntry entry;
    entry.setHeight(text);
    entry.setWeight(text);
    entry.setJersey(text);
    QCOMPARE(entry.height, value);
    QCOMPARE(entry.weight, value);
    QCOMPARE(entry.jersey, value);
}

void TestEpTeam::setContractExpiry_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint16>("year");

    QTest::newRow("season") << u"19/20"_s << qint16(2020);
    QTest::newRow("no slash") << u"2020"_s << qint16(0);
    QTest::newRow("dash") << u"-"_s << qint16(0);
    QTest::newRow("empty") << QString() << qint16(0);
    QTest::newRow("nothing behind the slash") << u"19/"_s << qint16(2000);
    QTest::newRow("into the next century") << u"99/00"_s << qint16(2000);
    // The end year is computed in 32 bits and cut to 16.
    QTest::newRow("cut to 16 bits") << u"1/32000"_s << qint16(-31536);
}

void TestEpTeam::setContractExpiry()
{
    QFETCH(QString, text);
    QFETCH(qint16, year);

    PlayerPageEntry entry;
    entry.setContractExpiry(text);
    QCOMPARE(entry.contractExpiry, year);
}

void TestEpTeam::setStatus_data()
{
    QTest::addColumn<bool>("captain");
    QTest::addColumn<bool>("alternate");
    QTest::addColumn<QString>("status");

    QTest::newRow("captain") << true << false << u"C"_s;
    QTest::newRow("captain wins over alternate") << true << true << u"C"_s;
    QTest::newRow("alternate") << false << true << u"A"_s;
    QTest::newRow("neither") << false << false << QString();
}

void TestEpTeam::setStatus()
{
    QFETCH(bool, captain);
    QFETCH(bool, alternate);
    QFETCH(QString, status);

    PlayerPageEntry entry;
    entry.status = u"X"_s;
    entry.setStatus(captain, alternate);
    QCOMPARE(entry.status, status);
    QCOMPARE(entry.status.isNull(), status.isNull());
}

void TestEpTeam::plainCopies()
{
    PlayerPageEntry entry;
    entry.setPosition(u" D/F "_s);
    entry.setStickSide(u"L, R"_s);
    entry.setTeam(u"Oslo Hawks, 2"_s);
    entry.setDuplicateIndex(12);
    QCOMPARE(entry.position, u" D/F "_s);
    QCOMPARE(entry.stickSide, u"L, R"_s);
    QCOMPARE(entry.team, u"Oslo Hawks, 2"_s);
    QCOMPARE(entry.duplicateIndex, 12);
}

void TestEpTeam::setBirthPlace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("birthPlace");

    QTest::newRow("town and nation") << u"Oslo, NOR"_s << u"Oslo:NOR"_s;
    QTest::newRow("every comma with its blank") << u"A, B, C,D"_s << u"A:B:C,D"_s;
    QTest::newRow("plain") << u"Bergen"_s << u"Bergen"_s;
}

void TestEpTeam::setBirthPlace()
{
    QFETCH(QString, text);
    QFETCH(QString, birthPlace);

    PlayerPageEntry entry;
    entry.setBirthPlace(text);
    QCOMPARE(entry.birthPlace, birthPlace);
}

void TestEpTeam::addRosterEntry()
{
    PlayerPageList list;
    list.addRosterEntry(u"5002/jan-erik-dahl"_s, u"Jan Erik Dahl"_s, u"1994-05-06"_s, u"190"_s,
                        u"95"_s, u"D"_s, u"R"_s, u"7"_s, u"Oslo Hawks"_s, u"21/22"_s, false, true);

    QCOMPARE(list.urls, QStringList{u"5002/jan-erik-dahl"_s});
    QCOMPARE(list.entries.size(), 1);
    // The birth place has a setter but no argument here: it stays null.
    QCOMPARE(describe(list.urls.first(), list.entries.first()),
             u"5002/jan-erik-dahl|-1|Jan|Erik Dahl|1994-05-06|1994|<null>|190|95|D|R|7|"
             u"Oslo Hawks|2022|A"_s);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.jerseyAt(0), qint16(7));
    QCOMPARE(list.teamAt(0), u"Oslo Hawks"_s);
    QCOMPARE(list.statusAt(0), u"A"_s);
    QCOMPARE(list.duplicateIndexAt(0), -1);
    QCOMPARE(list.urlAt(0), u"5002/jan-erik-dahl"_s);
}

void TestEpTeam::addRosterEntryKeepsTheListsParallel()
{
    PlayerPageList list;
    list.append(u"/first"_s);
    // An address alone leaves the entries as they are.
    QCOMPARE(list.entries.size(), 0);
    list.entries.append(PlayerPageEntry());
    list.addRosterEntry(QString(), QString(), QString(), QString(), QString(), QString(), QString(),
                        QString(), QString(), QString(), false, false);
    QCOMPARE(list.urls.size(), 2);
    QCOMPARE(list.entries.size(), 2);
    QVERIFY(list.urls.at(1).isNull());
    QCOMPARE(describe(list.urls.at(1), list.entries.at(1)),
             u"<null>|-1|<null>|<null>|<invalid>|0|<null>|0|0|<null>|<null>|0|<null>|0|<null>"_s);
}

void TestEpTeam::facts_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("facts");
    QTest::addColumn<int>("histories");
    QTest::addColumn<int>("retiredNumbers");

    // Name, full name, town, colours and founded, with null shown as such.
    QTest::newRow("all facts") << u"team_full.html"_s
                               << QStringList{u"Oslo Hawks"_s, u"Oslo Hawks, Ishockeyklubb"_s,
                                              u"Oslo:Norway"_s, u"Red,White"_s, u"1921"_s}
                               << 3 << 3;
    QTest::newRow("town not a link, founded a dash")
        << u"team_plaintown.html"_s
        << QStringList{u"Bergen Bears"_s, u"Bergen Bears Hockey"_s, u"<null>"_s, u"Blue"_s, u"0"_s}
        << 2 << 0;
    QTest::newRow("empty roster") << u"team_emptyroster.html"_s
                                  << QStringList{u"Tromsø Tigers"_s, u"Tromsø Ishockeyklubb"_s,
                                                 u"Tromsø:Norway"_s, u"Black, Yellow"_s, u"1968"_s}
                                  << 2 << 1;
    QTest::newRow("rows with attributes")
        << u"team_rowattrs.html"_s
        << QStringList{u"Lillehammer Lynx"_s, u"Lillehammer Lynx IK"_s, u"<null>"_s, u"<null>"_s,
                       u"1957"_s}
        << 1 << 0;
    QTest::newRow("town without a comma")
        << u"team_oldlink.html"_s
        << QStringList{u"Stavanger Storm"_s, u"Stavanger Storm Hockey"_s, u"Stavanger"_s,
                       u"Green"_s, u"2001"_s}
        << 1 << 0;
    QTest::newRow("no facts") << u"team_nofacts.html"_s
                              << QStringList{u"Narvik Nordics"_s, u"<null>"_s, u"<null>"_s,
                                             u"<null>"_s, u"0"_s}
                              << 1 << 0;
    QTest::newRow("no history") << u"team_nohistory.html"_s
                                << QStringList{u"Drammen Dragons"_s, u"Drammen Dragons"_s,
                                               u"<null>"_s, u"<null>"_s, u"1999"_s}
                                << 0 << 0;
}

void TestEpTeam::facts()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, facts);
    QFETCH(int, histories);
    QFETCH(int, retiredNumbers);

    EP_Team team;
    QString text = fixtureText(u"ep/"_s + fixture);
    QVERIFY(!text.isEmpty());
    team.parsePage(text);

    QCOMPARE((QStringList{nullable(team.teamName), nullable(team.fullName), nullable(team.city),
                          nullable(team.colours), QString::number(team.founded)}),
             facts);
    QCOMPARE(team.histories.size(), histories);
    QCOMPARE(team.retiredNumbers.size(), retiredNumbers);
    for (const EP_TeamHistory &row : std::as_const(team.histories))
        QCOMPARE(row.team, team.teamName);
    for (const EP_RetiredNumber &row : std::as_const(team.retiredNumbers))
        QCOMPARE(row.team, team.teamName);
    QVERIFY(log->toPlainText().isEmpty());
}

void TestEpTeam::roster_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("rows");

    // The jersey with a number sign, a date with a year alone and a dash, a
    // one-word name, a contract without a slash all convert as their setters do.
    QTest::newRow("all facts")
        << u"team_full.html"_s
        << QStringList{
               u"5001/lars-olsen|-1|Lars|Olsen|1996-04-12|1996|<null>|183|88|F|L|91|"
               u"Oslo Hawks|2022|<null>"_s,
               u"5002/jan-erik-dahl|-1|Jan|Erik Dahl|<invalid>|1994|<null>|190|95|D|R|0|"
               u"Oslo Hawks|0|<null>"_s,
               u"5003/ostergaard|-1|Østergaard|<null>|<invalid>|0|<null>|0|84|G|L|30|"
               u"Oslo Hawks|2020|<null>"_s,
           };
    QTest::newRow("town not a link")
        << u"team_plaintown.html"_s
        << QStringList{
               u"5101/per-haugen|-1|Per|Haugen|2001-11-30|2001|<null>|186|91|D|L|4|"
               u"Bergen Bears|2023|<null>"_s,
               u"5001/lars-olsen|-1|Lars|Olsen|1996-04-12|1996|<null>|183|88|F|L|19|"
               u"Bergen Bears|2021|<null>"_s,
           };
    QTest::newRow("empty roster") << u"team_emptyroster.html"_s << QStringList();
    // Only rows whose tag is exactly "<tr>", in any letter case, are read.
    QTest::newRow("rows with attributes")
        << u"team_rowattrs.html"_s
        << QStringList{
               u"5201/ole-lien|-1|Ole|Lien|1999-01-05|1999|<null>|181|80|D|R|2|"
               u"Lillehammer Lynx|2021|<null>"_s,
               u"5203/sven-lie|-1|Sven|Lie|2000-03-07|2000|<null>|175|72|F|L|14|"
               u"Lillehammer Lynx|2023|<null>"_s,
           };
    // The old link form in the last row flags every row as captain, itself too.
    QTest::newRow("old link form in the last row")
        << u"team_oldlink.html"_s
        << QStringList{
               u"6001/anders-vik|-1|Anders|Vik|1993-06-01|1993|<null>|180|82|F|L|8|"
               u"Stavanger Storm|2021|C"_s,
               u"6002/even-strand|-1|Even|Strand|1995-07-02|1995|<null>|192|99|D|R|22|"
               u"Stavanger Storm|2022|C"_s,
               u"6003/geir-foss|-1|Geir|Foss|1990-08-03|1990|<null>|185|86|G|L|35|"
               u"Stavanger Storm|2023|C"_s,
           };
    QTest::newRow("no facts")
        << u"team_nofacts.html"_s
        << QStringList{u"6101/kjell-aas|-1|Kjell|Aas|2002-09-09|2002|<null>|177|75|F|R|10|"
                       u"Narvik Nordics|2022|<null>"_s};
    QTest::newRow("no history")
        << u"team_nohistory.html"_s
        << QStringList{u"6201/rune-dahl|-1|Rune|Dahl|1997-10-10|1997|<null>|184|87|D|L|5|"
                       u"Drammen Dragons|2021|<null>"_s};
}

void TestEpTeam::roster()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, rows);

    EP_Team team;
    QString text = fixtureText(u"ep/"_s + fixture);
    team.parsePage(text);
    QCOMPARE(rosterLines(), rows);
    QCOMPARE(EP_Team::playerUrls().urls.size(), EP_Team::playerUrls().entries.size());
}

void TestEpTeam::oldLinkFlagsEveryRowAboveIt()
{
    // The look-ahead is not bounded by the row: the rows before the old link are
    // flagged, the rows behind it are not.
    const QString oldLink = u"<a href=\"player.php?player=9\"><img src=\"/a.png\"></a>"_s;
    EP_Team team;
    QString text = teamPage(rosterRow(u"1"_s, u"1/a"_s, u"A One (F)"_s)
                            + rosterRow(u"2"_s, u"2/b"_s, u"B Two (F)"_s, oldLink)
                            + rosterRow(u"3"_s, u"3/c"_s, u"C Three (F)"_s));
    team.parsePage(text);

    const PlayerPageList &list = EP_Team::playerUrls();
    QCOMPARE(list.urls, (QStringList{u"1/a"_s, u"2/b"_s, u"3/c"_s}));
    QCOMPARE(list.statusAt(0), u"C"_s);
    QCOMPARE(list.statusAt(1), u"C"_s);
    QVERIFY(list.statusAt(2).isNull());

    // Without an image behind the old link the look-ahead reads from near the
    // front of the roster instead, and finds a value all the same.
    EP_Team::playerUrls() = PlayerPageList();
    QString bare = teamPage(
        rosterRow(u"1"_s, u"1/a"_s, u"A One (F)"_s, u"<a href=\"PLAYER.PHP?player=9\">A</a>"_s));
    EP_Team().parsePage(bare);
    QCOMPARE(EP_Team::playerUrls().statusAt(0), u"C"_s);
}

void TestEpTeam::rowWithoutPlayerLink()
{
    // A row whose link is of another form still gives an entry, with a null slug;
    // the name is then read from the end of the name cell's tag on.
    EP_Team team;
    QString text = teamPage(
        u"<tr><td class=\"jersey\">4</td><td class=\"name\"><a href=\"/p/4\">Old Form (D)</a>"
        u"</td><td class=\"date-of-birth\">1990</td></tr>"_s);
    team.parsePage(text);
    const PlayerPageList &list = EP_Team::playerUrls();
    QCOMPARE(list.urls.size(), 1);
    QVERIFY(list.urls.first().isNull());
    QCOMPARE(rosterLines(),
             QStringList{u"<null>|-1|<a|href=\"/p/4\">Old Form|"
                         u"<invalid>|1990|<null>|0|0|D|<null>|4|T|0|<null>"_s});
}

void TestEpTeam::rowLackingACellShiftsTheNext()
{
    // The first row has no height cell: its steps read the next row's cells from
    // the height on, and that row is gone with them.
    QString first = rosterRow(u"1"_s, u"1/a"_s, u"A One (F)"_s);
    first.remove(u"<td class=\"height\">180</td>"_s);
    QString second = rosterRow(u"2"_s, u"2/b"_s, u"B Two (D)"_s);
    second.replace(u"<td class=\"height\">180</td><td class=\"weight\">80</td>"_s,
                   u"<td class=\"height\">199</td><td class=\"weight\">77</td>"_s);
    const QString third = rosterRow(u"3"_s, u"3/c"_s, u"C Three (F)"_s);

    EP_Team team;
    QString text = teamPage(first + second + third);
    team.parsePage(text);
    QCOMPARE(EP_Team::playerUrls().urls, (QStringList{u"1/a"_s, u"3/c"_s}));
    QCOMPARE(EP_Team::playerUrls().entries.at(0).height, qint16(199));
    QCOMPARE(EP_Team::playerUrls().entries.at(0).weight, qint16(77));
    QCOMPARE(EP_Team::playerUrls().entries.at(1).height, qint16(180));
}

void TestEpTeam::pageWithoutRoster_data()
{
    QTest::addColumn<QString>("page");

    const QString history = u"<h2>Team History and Standings</h2><table><tr>"
                            u"<td class=\"season\"><a>2019-20</a></td>"
                            u"<td class=\"league\"><a>THL</a></td></tr></table>"
                            u"<h3>Retired Numbers</h3><ul><li>#9 <a class=\"txt-blue\">"
                            u"Erik Berg (1990)</a></li></ul>Where are they now"_s;
    const QString row = rosterRow(u"1"_s, u"1/a"_s, u"A One (F)"_s);
    QTest::newRow("no roster anchor") << QString(u"<title>Elite Prospects - T</title><table>"_s
                                                 + row + u"</table><tfoot></tfoot>"_s + history);
    QTest::newRow("no roster foot") << QString(u"<title>Elite Prospects - T</title>"
                                               u"<a href=\"#roster\">R</a><table>"_s
                                               + row + u"</table>"_s + history);
}

void TestEpTeam::pageWithoutRoster()
{
    QFETCH(QString, page);

    EP_Team team;
    team.parsePage(page);
    QVERIFY(EP_Team::playerUrls().urls.isEmpty());
    QVERIFY(EP_Team::playerUrls().entries.isEmpty());
    // The page stays whole for the history and the retired numbers.
    QCOMPARE(team.histories.size(), 1);
    QCOMPARE(team.histories.first().league, u"THL"_s);
    QCOMPARE(team.histories.first().season, qint16(2020));
    QCOMPARE(team.retiredNumbers.size(), 1);
    QCOMPARE(team.retiredNumbers.first().number, 9);
}

void TestEpTeam::rosterGrowsAcrossPages()
{
    EP_Team first;
    QString full = fixtureText(u"ep/team_full.html"_s);
    first.parsePage(full);
    EP_Team second;
    QString plain = fixtureText(u"ep/team_plaintown.html"_s);
    second.parsePage(plain);

    // The same player on two rosters stands twice; duplicates are the player pass's matter.
    const PlayerPageList &list = EP_Team::playerUrls();
    QCOMPARE(list.urls,
             (QStringList{u"5001/lars-olsen"_s, u"5002/jan-erik-dahl"_s, u"5003/ostergaard"_s,
                          u"5101/per-haugen"_s, u"5001/lars-olsen"_s}));
    QCOMPARE(list.teamAt(0), u"Oslo Hawks"_s);
    QCOMPARE(list.teamAt(4), u"Bergen Bears"_s);
    QCOMPARE(list.jerseyAt(4), qint16(19));
}

void TestEpTeam::testReport_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("all facts") << u"team_full.html"_s
                               << QStringList{
                                      u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                      u"ASCII names: Oslo Hawks (Oslo Hawks Ishockeyklubb)"_s,
                                      u"UTF names: Oslo Hawks (Oslo Hawks, Ishockeyklubb)"_s,
                                      u"City: Oslo:Norway"_s,
                                      u"Founded: 1921"_s,
                                      u"Colours: Red,White"_s,
                                      u"Player entries: 3"_s,
                                      u"History entries: 3"_s,
                                      u"History sample:  2020  THL 52 30-2-15 3:2 170:130 97 2 "
                                      u"Won Final"_s,
                                      u"Retired numbers: 3"_s,
                                      u"Ret. no. sample: 9 - Erik Berg (Oslo Hawks)"_s,
                                  };
    // The Ascii line is converted whole; the Utf names stay as they are.
    QTest::newRow("empty roster")
        << u"team_emptyroster.html"_s
        << QStringList{
               u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
               u"ASCII names: Troms\uFFFD Tigers (Troms\uFFFD Ishockeyklubb)"_s,
               u"UTF names: Tromsø Tigers (Tromsø Ishockeyklubb)"_s,
               u"City: Tromsø:Norway"_s,
               u"Founded: 1968"_s,
               u"Colours: Black, Yellow"_s,
               u"Player entries: 0"_s,
               u"History entries: 2"_s,
               u"History sample:  2020  Testland Hockey League 52 20-3-25 1:3 140:171 71 9 "
               u"Lost, Relegation series"_s,
               u"Retired numbers: 1"_s,
               u"Ret. no. sample: 4 - Ola Nordmann (Tromsø Tigers)"_s,
           };
    QTest::newRow("no facts") << u"team_nofacts.html"_s
                              << QStringList{
                                     u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                     u"ASCII names: Narvik Nordics ()"_s,
                                     u"UTF names: Narvik Nordics ()"_s,
                                     u"City: "_s,
                                     u"Founded: 0"_s,
                                     u"Colours: "_s,
                                     u"Player entries: 1"_s,
                                     u"History entries: 1"_s,
                                     u"History sample:  0  NDL 30 10-2-18 0:0 70:95 32 6 "_s,
                                     u"Retired numbers: 0"_s,
                                     u"Ret. no. sample: n/a"_s,
                                 };
    QTest::newRow("no history") << u"team_nohistory.html"_s
                                << QStringList{
                                       u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                                       u"ASCII names: Drammen Dragons (Drammen Dragons)"_s,
                                       u"UTF names: Drammen Dragons (Drammen Dragons)"_s,
                                       u"City: "_s,
                                       u"Founded: 1999"_s,
                                       u"Colours: "_s,
                                       u"Player entries: 1"_s,
                                       u"History entries: 0"_s,
                                       u"History sample:  n/a"_s,
                                       u"Retired numbers: 0"_s,
                                       u"Ret. no. sample: n/a"_s,
                                   };
}

void TestEpTeam::testReport()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, lines);

    EP_Team team;
    QString text = fixtureText(u"ep/"_s + fixture);
    team.testReport(text);
    QCOMPARE(log.lines(), lines);
}

void TestEpTeam::testReportCountsEarlierEntries()
{
    EP_Team first;
    QString full = fixtureText(u"ep/team_full.html"_s);
    first.parsePage(full);

    // A name with place markers is not filled by the names behind it.
    EP_Team team;
    QString text = u"<title>Elite Prospects - A %2 B</title>Team Facts"
                   u"<span>Full name</span><span class=\"value\">%1 Full</span>"_s;
    team.testReport(text);
    QCOMPARE(log.lines().mid(1, 3),
             (QStringList{
                 u"ASCII names: A %2 B (%1 Full)"_s,
                 u"UTF names: A %2 B (%1 Full)"_s,
                 u"City: "_s,
             }));
    QCOMPARE(log.lines().at(6), u"Player entries: 3"_s);
}

QM_TEST_MAIN(TestEpTeam)
#include "tst_epteam.moc"
