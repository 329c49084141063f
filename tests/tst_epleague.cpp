#include "core/constants.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString team(const QString &slug)
{
    return EP_ROOT_URL + u"/team/"_s + slug;
}

} // namespace

// The league page scanner: its name, the section the season chooses, the link
// walk and the offline report.
class TestEpLeague : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void freshRecord();
    void parsePage_data();
    void parsePage();
    void sectionWithoutItsEnd();
    void pageWithoutTitle();
    void emptyNameInTheTitle();
    void linksAreNotFiltered();
    void markersInAnyLetterCase();
    void teamUrlsAreOneListForAllLeagues();
    void testReport_data();
    void testReport();
    void testReportCountsWhatEarlierPagesLeft();
};

void TestEpLeague::initTestCase()
{
    // Before any test has touched the statics: no season yet, and no teams.
    QCOMPARE(EP_League::selectedSeason, -1);
    QVERIFY(EP_League::teamUrls().isEmpty());
    QLocale::setDefault(QLocale::c());
}

void TestEpLeague::init()
{
    // The list and the season live as long as the process; each test starts afresh.
    EP_League::teamUrls().clear();
    EP_League::selectedSeason = -1;
    log->clear();
}

void TestEpLeague::freshRecord()
{
    EP_League league;
    QVERIFY(league.leagueName.isNull());
    QCOMPARE(&EP_League::teamUrls(), &EP_League::teamUrls());
}

void TestEpLeague::parsePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<qint32>("season");
    QTest::addColumn<QString>("leagueName");
    QTest::addColumn<QStringList>("teamUrls");

    // Every link is kept with its season or query part; the empty link ends the
    // walk, and the team behind it is lost.
    const QStringList rosters = {
        team(u"105/stavanger-storm"_s),
        team(u"106/narvik-nordics?tab=stats"_s),
        team(u"107/drammen-dragons/2018-2019"_s),
    };
    const QStringList standings = {
        team(u"101/oslo-hawks/2019-2020"_s),
        team(u"102/bergen-bears/2019-2020"_s),
        team(u"103/tromso-tigers/2019-2020?tab=roster"_s),
    };
    // The other form's section is not tried: without its first marker the scan
    // runs from near the top up to the first "</ul>", the menu's, and takes its link.
    const QStringList menu = {team(u"999/featured-club"_s)};

    QTest::newRow("team list, no season")
        << u"league_rosters.html"_s << -1 << u"Nordic Development League"_s << rosters;
    QTest::newRow("team list, season 0")
        << u"league_rosters.html"_s << 0 << u"Nordic Development League"_s << rosters;
    QTest::newRow("standings, season 1")
        << u"league_standings.html"_s << 1 << u"Testland Hockey League"_s << standings;
    QTest::newRow("standings, season 2019")
        << u"league_standings.html"_s << 2019 << u"Testland Hockey League"_s << standings;
    QTest::newRow("standings page without a season")
        << u"league_standings.html"_s << -1 << u"Testland Hockey League"_s << menu;
    // Without "</table>" the section is empty.
    QTest::newRow("team list page with a season")
        << u"league_rosters.html"_s << 2019 << u"Nordic Development League"_s << QStringList();
}

void TestEpLeague::parsePage()
{
    QFETCH(QString, fixture);
    QFETCH(qint32, season);
    QFETCH(QString, leagueName);
    QFETCH(QStringList, teamUrls);

    EP_League::selectedSeason = season;
    EP_League league;
    QString text = fixtureText(u"ep/"_s + fixture);
    QVERIFY(!text.isEmpty());
    league.parsePage(text);

    QCOMPARE(league.leagueName, leagueName);
    QCOMPARE(EP_League::teamUrls(), teamUrls);
    QCOMPARE(EP_League::selectedSeason, season);
    QVERIFY(log->toPlainText().isEmpty());
}

void TestEpLeague::sectionWithoutItsEnd()
{
    // A team list without "</ul>" behind it is emptied whole.
    EP_League league;
    QString text = u"<title>Elite Prospects - L</title><h2>Team Rosters</h2>"
                   u"<a href=\"https://www.eliteprospects.com/team/1/a\">A</a>"_s;
    league.parsePage(text);
    QCOMPARE(league.leagueName, u"L"_s);
    QVERIFY(EP_League::teamUrls().isEmpty());
}

void TestEpLeague::pageWithoutTitle()
{
    EP_League league;
    QString text = u"<title>Other site - L</title><h2>Team Rosters</h2><ul>"
                   u"<li><a href=\"/team/1/a\">A</a></li></ul>"_s;
    league.parsePage(text);
    QVERIFY(league.leagueName.isNull());
    QCOMPARE(EP_League::teamUrls(), QStringList{team(u"1/a"_s)});
}

void TestEpLeague::emptyNameInTheTitle()
{
    // The title step fails on an empty name; the teams are still read.
    EP_League league;
    QString text = u"<title>Elite Prospects - </title><h2>Team Rosters</h2><ul>"
                   u"<li><a href=\"/team/1/a\">A</a></li></ul>"_s;
    league.parsePage(text);
    QVERIFY(league.leagueName.isEmpty());
    QCOMPARE(EP_League::teamUrls(), QStringList{team(u"1/a"_s)});
}

void TestEpLeague::linksAreNotFiltered()
{
    // Any "team/" with a closing quote behind it counts, listed or not, and the
    // slug is all up to the quote.
    EP_League::teamUrls() = QStringList{team(u"1/a"_s)};
    EP_League league;
    QString text = u"<h2>Team Rosters</h2><ul><li><a href=\"/team/1/a\">A</a></li>"
                   u"<li><a href=\"/team/1/a\">A again</a></li>"
                   u"<li><a href=\"x/team/2/b/2019-2020?x=1&y=2\">B</a></li></ul>"_s;
    league.parsePage(text);
    QCOMPARE(EP_League::teamUrls(),
             (QStringList{team(u"1/a"_s), team(u"1/a"_s), team(u"1/a"_s),
                          team(u"2/b/2019-2020?x=1&y=2"_s)}));
}

void TestEpLeague::markersInAnyLetterCase()
{
    EP_League::selectedSeason = 2020;
    EP_League league;
    QString text = u"<TITLE>ELITE PROSPECTS - Liga</TITLE><div>STANDINGS </DIV><table>"
                   u"<a href=\"/TEAM/7/g\">G</a></TABLE>"_s;
    league.parsePage(text);
    QCOMPARE(league.leagueName, u"Liga"_s);
    QCOMPARE(EP_League::teamUrls(), QStringList{team(u"7/g"_s)});
}

void TestEpLeague::teamUrlsAreOneListForAllLeagues()
{
    EP_League first;
    QString rosters = fixtureText(u"ep/league_rosters.html"_s);
    first.parsePage(rosters);
    EP_League::selectedSeason = 2019;
    EP_League second;
    QString standings = fixtureText(u"ep/league_standings.html"_s);
    second.parsePage(standings);

    QCOMPARE(EP_League::teamUrls().size(), 6);
    QCOMPARE(EP_League::teamUrls().first(), team(u"105/stavanger-storm"_s));
    QCOMPARE(EP_League::teamUrls().last(), team(u"103/tromso-tigers/2019-2020?tab=roster"_s));
}

void TestEpLeague::testReport_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<qint32>("season");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("team list") << u"league_rosters.html"_s << -1
                               << QStringList{
                                      u"--- TESTING LEAGUE WEBPAGE ---"_s,
                                      u"League: Nordic Development League"_s,
                                      u"Teams: 3"_s,
                                      u"Team 1: "_s + team(u"105/stavanger-storm"_s),
                                      u"Team 2: "_s + team(u"106/narvik-nordics?tab=stats"_s),
                                      u"Team 3: "_s + team(u"107/drammen-dragons/2018-2019"_s),
                                  };
    QTest::newRow("standings") << u"league_standings.html"_s << 2019
                               << QStringList{
                                      u"--- TESTING LEAGUE WEBPAGE ---"_s,
                                      u"League: Testland Hockey League"_s,
                                      u"Teams: 3"_s,
                                      u"Team 1: "_s + team(u"101/oslo-hawks/2019-2020"_s),
                                      u"Team 2: "_s + team(u"102/bergen-bears/2019-2020"_s),
                                      u"Team 3: "_s
                                          + team(u"103/tromso-tigers/2019-2020?tab=roster"_s),
                                  };
}

void TestEpLeague::testReport()
{
    QFETCH(QString, fixture);
    QFETCH(qint32, season);
    QFETCH(QStringList, lines);

    EP_League::selectedSeason = season;
    EP_League league;
    QString text = fixtureText(u"ep/"_s + fixture);
    league.testReport(text);
    QCOMPARE(log.lines(), lines);
}

void TestEpLeague::testReportCountsWhatEarlierPagesLeft()
{
    EP_League::teamUrls() = QStringList{team(u"1/earlier"_s)};
    EP_League league;
    QString text = u"<title>Elite Prospects - Liga Ñ, Sur;</title><h2>Team Rosters</h2><ul>"
                   u"<li><a href=\"/team/2/b\">B</a></li></ul>"_s;
    league.testReport(text);
    // The name is made Ascii for the report: its lone Latin-1 letter turns into a
    // replacement character, and the comma and semicolon go.
    QCOMPARE(log.lines(),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: Liga \uFFFD Sur"_s,
                 u"Teams: 2"_s,
                 u"Team 1: "_s + team(u"1/earlier"_s),
                 u"Team 2: "_s + team(u"2/b"_s),
             }));
    QCOMPARE(league.leagueName, u"Liga Ñ, Sur;"_s);
}

QM_TEST_MAIN(TestEpLeague)
#include "tst_epleague.moc"
