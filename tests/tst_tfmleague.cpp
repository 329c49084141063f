#include "core/sharedstate.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tfm/tfmleague.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

// The competition page scanner: its opening, its four team scans, the rewrites
// of a club link and the offline report.
class TestTfmLeague : public QObject
{
    Q_OBJECT

private:
    LogCapture log;

private slots:
    void initTestCase();
    void init();

    void fixturesExist_data();
    void fixturesExist();
    void parsePage_data();
    void parsePage();
    void parsePageOnAPageWithoutMarkers();
    void linkAlreadyListedKeepsItsYear();
    void clubsTableHasNoYearRule();
    void rewrites_data();
    void rewrites();
    void teamUrlsAreOneListForAllLeagues();
    void testReport_data();
    void testReport();
    void testReportCountsWhatEarlierPagesLeft();
    void testReportWithoutLog();
};

void TestTfmLeague::initTestCase()
{
    QLocale::setDefault(QLocale::c());
}

void TestTfmLeague::init()
{
    // The list lives as long as the process; each test starts from an empty one.
    TFM_League::teamUrls().clear();
    log->clear();
}

void TestTfmLeague::fixturesExist_data()
{
    QTest::addColumn<QString>("fixture");
    for (const QString &name :
         {u"league_clubs.html"_s, u"league_tournament.html"_s, u"league_clublinks.html"_s,
          u"league_nomarkers.html"_s, u"league_both.html"_s, u"league_repeat.html"_s})
        QTest::newRow(qPrintable(name)) << name;
}

void TestTfmLeague::fixturesExist()
{
    QFETCH(QString, fixture);
    QVERIFY2(!fixtureText(u"tfm/"_s + fixture).isEmpty(), qPrintable(fixture));
}

void TestTfmLeague::parsePage_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QString>("leagueName");
    QTest::addColumn<QString>("nation");
    QTest::addColumn<QStringList>("teamUrls");

    // Only "startseite" becomes "leistungsdaten" here; every link is kept, with
    // its year, and the replacement is case-sensitive.
    QTest::newRow("clubs table")
        << u"league_clubs.html"_s << u"Premier League"_s << u"England"_s
        << QStringList{
               u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s,
               u"/fc-chelsea/spielplan/verein/631/saison_id/2019"_s,
               u"/fc-liverpool/leistungsdaten/verein/31/saison_id/2019"_s,
               u"/wolverhampton-wanderers/kader/verein/543/saison_id/2019"_s,
               u"/fc-brentford/Startseite/verein/1148/saison_id/2019"_s,
           };

    // Every other link: the name cell's link of each row is passed over; the
    // table ends at the first "footer".
    QTest::newRow("tournament table")
        << u"league_tournament.html"_s << u"UEFA Champions League"_s << u"Europe"_s
        << QStringList{
               u"/fc-bayern-munchen/leistungsdaten/verein/27/saison_id/2023"_s,
               u"/real-madrid/spielplan/verein/418/saison_id/2023"_s,
               u"/paris-saint-germain/leistungsdaten/verein/583/saison_id/2023"_s,
               u"/borussia-dortmund/kader/verein/16/saison_id/2023"_s,
           };

    // All three rewrites and the filter; the links between the club names and
    // behind the last one are not looked at.
    QTest::newRow("club links") << u"league_clublinks.html"_s << u"Primera División"_s << u"Spain"_s
                                << QStringList{
                                       u"/real-madrid/leistungsdaten/verein/418"_s,
                                       u"/fc-barcelona/leistungsdaten/verein/131"_s,
                                       u"/fc-sevilla/leistungsdaten/verein/368/saison_id/2020"_s,
                                       u"/fc-villarreal/leistungsdaten/verein/1050/plus/1"_s,
                                   };

    // Every link left on the page, with the filter alone deciding, until the
    // empty link ends the walk.
    QTest::newRow("all links") << u"league_nomarkers.html"_s << u"Ligue 1"_s << u"France"_s
                               << QStringList{
                                      u"/ligue-1/leistungsdaten/wettbewerb/FR1"_s,
                                      u"/paris-saint-germain/leistungsdaten/verein/583"_s,
                                      u"/olympique-marseille/leistungsdaten/verein/244"_s,
                                      u"/as-monaco/leistungsdaten/verein/162/saison_id/2018"_s,
                                  };

    QTest::newRow("clubs heading wins over the tournament heading")
        << u"league_both.html"_s << u"DFB-Pokal"_s << u"Germany"_s
        << QStringList{
               u"/bayer-04-leverkusen/leistungsdaten/verein/15/saison_id/2019"_s,
               u"/1-fc-saarbrucken/leistungsdaten/verein/132/saison_id/2019"_s,
           };

    QTest::newRow("club links with a year not yet listed")
        << u"league_repeat.html"_s << u"Premier League"_s << u"England"_s
        << QStringList{
               u"/fc-arsenal/leistungsdaten/verein/11"_s,
               u"/fc-everton/leistungsdaten/verein/29"_s,
           };
}

void TestTfmLeague::parsePage()
{
    QFETCH(QString, fixture);
    QFETCH(QString, leagueName);
    QFETCH(QString, nation);
    QFETCH(QStringList, teamUrls);

    TFM_League league;
    QVERIFY(league.leagueName.isNull());
    QVERIFY(league.nation.isNull());
    QString text = fixtureText(u"tfm/"_s + fixture);
    QVERIFY(!text.isEmpty());
    league.parsePage(text);

    QCOMPARE(league.leagueName, leagueName);
    QCOMPARE(league.nation, nation);
    QCOMPARE(TFM_League::teamUrls(), teamUrls);
    QVERIFY(log->toPlainText().isEmpty());
}

void TestTfmLeague::parsePageOnAPageWithoutMarkers()
{
    TFM_League league;
    QString text = u"<html><body><p>Nothing here</p></body></html>"_s;
    league.parsePage(text);
    QVERIFY(league.leagueName.isEmpty());
    QVERIFY(league.nation.isEmpty());
    QVERIFY(TFM_League::teamUrls().isEmpty());
}

void TestTfmLeague::linkAlreadyListedKeepsItsYear()
{
    // A clubs table leaves the Arsenal link with its year; the club links of the
    // next page produce that very link, which then keeps the year.
    TFM_League first;
    QString clubs = fixtureText(u"tfm/league_clubs.html"_s);
    first.parsePage(clubs);
    TFM_League second;
    QString links = fixtureText(u"tfm/league_repeat.html"_s);
    second.parsePage(links);

    const QStringList urls = TFM_League::teamUrls();
    QCOMPARE(urls.size(), 7);
    QCOMPARE(urls.at(5), u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s);
    QCOMPARE(urls.at(6), u"/fc-everton/leistungsdaten/verein/29"_s);
    QCOMPARE(urls.count(u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s), 2);
}

void TestTfmLeague::clubsTableHasNoYearRule()
{
    // The other order: the club link, not yet listed, loses its year; the clubs
    // table has no year rule and keeps it.
    TFM_League first;
    QString links = fixtureText(u"tfm/league_repeat.html"_s);
    first.parsePage(links);
    TFM_League second;
    QString clubs = fixtureText(u"tfm/league_clubs.html"_s);
    second.parsePage(clubs);

    const QStringList urls = TFM_League::teamUrls();
    QCOMPARE(urls.size(), 7);
    QCOMPARE(urls.at(0), u"/fc-arsenal/leistungsdaten/verein/11"_s);
    QCOMPARE(urls.at(2), u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s);
}

void TestTfmLeague::rewrites_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QStringList>("teamUrls");

    const QString header = u"<h1 class=\"spielername-profil\">L</h1>"
                           u"<div class=\"flagge\"><img title=\"N\"></div>"_s;
    const auto clubLink = [&](const QString &url) -> QString {
        return header + u"<span class=\"vereinsname\"><a href=\""_s + url + u"\">C</a></span>"_s;
    };
    const auto anyLink = [&](const QString &url) -> QString {
        return header + u"<p><a href=\""_s + url + u"\">C</a></p>"_s;
    };
    const auto clubsRow = [&](const QString &url) -> QString {
        return header
            + u"<h2>Clubs - L</h2><table><thead></thead><tbody><tr class=\"odd\"><td>"
              u"<a title=\"C\" href=\""_s
            + url + u"\"><img src=\"c.png\"></a></td></tr></tbody></table>"_s;
    };

    QTest::newRow("fixtures page becomes squad page in club links")
        << clubLink(u"/x/spielplan/verein/1"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/verein/1"_s};
    QTest::newRow("fixtures page stays in the clubs table")
        << clubsRow(u"/x/spielplan/verein/1"_s) << QStringList()
        << QStringList{u"/x/spielplan/verein/1"_s};
    QTest::newRow("home page becomes squad page in the clubs table")
        << clubsRow(u"/x/startseite/verein/1"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/verein/1"_s};
    QTest::newRow("link without either word is dropped from club links")
        << clubLink(u"/x/kader/verein/1"_s) << QStringList() << QStringList();
    QTest::newRow("link without either word is kept in the clubs table")
        << clubsRow(u"/x/kader/verein/1"_s) << QStringList() << QStringList{u"/x/kader/verein/1"_s};
    QTest::newRow("rewrites run fixtures first, then home page")
        << clubLink(u"/x/spielplan/startseite/1"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/leistungsdaten/1"_s};
    QTest::newRow("every fixtures word is rewritten")
        << anyLink(u"/spielplan/x/spielplan/1"_s) << QStringList()
        << QStringList{u"/leistungsdaten/x/leistungsdaten/1"_s};
    QTest::newRow("rewrites are case-sensitive")
        << clubLink(u"/x/SPIELPLAN/verein/1"_s) << QStringList() << QStringList();
    QTest::newRow("filter is case-sensitive")
        << anyLink(u"/x/Leistungsdaten/verein/1"_s) << QStringList() << QStringList();
    QTest::newRow("year 2019 goes when not listed")
        << clubLink(u"/x/startseite/verein/1/saison_id/2019"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/verein/1"_s};
    QTest::newRow("every year 2019 goes")
        << anyLink(u"/x/saison_id/2019/leistungsdaten/saison_id/2019/1"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/1"_s};
    QTest::newRow("another year stays")
        << clubLink(u"/x/startseite/verein/1/saison_id/2023"_s) << QStringList()
        << QStringList{u"/x/leistungsdaten/verein/1/saison_id/2023"_s};
    QTest::newRow("year 2019 stays when the rewritten link is listed")
        << clubLink(u"/x/spielplan/verein/1/saison_id/2019"_s)
        << QStringList{u"/x/leistungsdaten/verein/1/saison_id/2019"_s}
        << QStringList{u"/x/leistungsdaten/verein/1/saison_id/2019"_s,
                       u"/x/leistungsdaten/verein/1/saison_id/2019"_s};
    QTest::newRow("listing is compared case-sensitively")
        << clubLink(u"/x/spielplan/verein/1/saison_id/2019"_s)
        << QStringList{u"/X/leistungsdaten/verein/1/saison_id/2019"_s}
        << QStringList{u"/X/leistungsdaten/verein/1/saison_id/2019"_s,
                       u"/x/leistungsdaten/verein/1"_s};
    QTest::newRow("listing is compared as a whole")
        << clubLink(u"/x/spielplan/verein/1/saison_id/2019"_s)
        << QStringList{u"/x/leistungsdaten/verein/1/saison_id/2019/plus"_s}
        << QStringList{u"/x/leistungsdaten/verein/1/saison_id/2019/plus"_s,
                       u"/x/leistungsdaten/verein/1"_s};
    QTest::newRow("year stays in the tournament table")
        << QString(header
                   + u"<h2>Teams still represented in competition</h2><table><tr>"
                     u"<td class=\"zentriert no-border-rechts\"><a "
                     u"href=\"/x/startseite/1/saison_id/2019\">"
                     u"</a></td></tr></table><footer></footer>"_s)
        << QStringList() << QStringList{u"/x/leistungsdaten/1/saison_id/2019"_s};
    QTest::newRow("club links stop at the first link without a club name behind it")
        << QString(header
                   + u"<span class=\"vereinsname\"><a href=\"/a/startseite/1\">A</a></span>"
                     u"<a href=\"/b/startseite/2\">B</a><a href=\"/c/startseite/3\">C</a>"_s)
        << QStringList() << QStringList{u"/a/leistungsdaten/1"_s};
    QTest::newRow("empty link ends the club links")
        << QString(header
                   + u"<span class=\"vereinsname\"><a href=\"\">A</a></span>"
                     u"<span class=\"vereinsname\"><a href=\"/b/startseite/2\">B</a></span>"_s)
        << QStringList() << QStringList();
}

void TestTfmLeague::rewrites()
{
    QFETCH(QString, page);
    QFETCH(QStringList, listed);
    QFETCH(QStringList, teamUrls);

    TFM_League::teamUrls() = listed;
    TFM_League league;
    league.parsePage(page);
    QCOMPARE(league.leagueName, u"L"_s);
    QCOMPARE(league.nation, u"N"_s);
    QCOMPARE(TFM_League::teamUrls(), teamUrls);
}

void TestTfmLeague::teamUrlsAreOneListForAllLeagues()
{
    QCOMPARE(&TFM_League::teamUrls(), &TFM_League::teamUrls());
    TFM_League first;
    QString tournament = fixtureText(u"tfm/league_tournament.html"_s);
    first.parsePage(tournament);
    TFM_League second;
    QString both = fixtureText(u"tfm/league_both.html"_s);
    second.parsePage(both);
    QCOMPARE(TFM_League::teamUrls().size(), 6);
    QCOMPARE(TFM_League::teamUrls().first(),
             u"/fc-bayern-munchen/leistungsdaten/verein/27/saison_id/2023"_s);
    QCOMPARE(TFM_League::teamUrls().last(),
             u"/1-fc-saarbrucken/leistungsdaten/verein/132/saison_id/2019"_s);
}

void TestTfmLeague::testReport_data()
{
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("club links, name made Ascii")
        << u"league_clublinks.html"_s
        << QStringList{
               u"--- TESTING LEAGUE WEBPAGE ---"_s,
               u"League: Primera Divisi\uFFFDn"_s,
               u"Teams: 4"_s,
               u"Team 1: /real-madrid/leistungsdaten/verein/418"_s,
               u"Team 2: /fc-barcelona/leistungsdaten/verein/131"_s,
               u"Team 3: /fc-sevilla/leistungsdaten/verein/368/saison_id/2020"_s,
               u"Team 4: /fc-villarreal/leistungsdaten/verein/1050/plus/1"_s,
           };
    QTest::newRow("tournament table")
        << u"league_tournament.html"_s
        << QStringList{
               u"--- TESTING LEAGUE WEBPAGE ---"_s,
               u"League: UEFA Champions League"_s,
               u"Teams: 4"_s,
               u"Team 1: /fc-bayern-munchen/leistungsdaten/verein/27/saison_id/2023"_s,
               u"Team 2: /real-madrid/spielplan/verein/418/saison_id/2023"_s,
               u"Team 3: /paris-saint-germain/leistungsdaten/verein/583/saison_id/2023"_s,
               u"Team 4: /borussia-dortmund/kader/verein/16/saison_id/2023"_s,
           };
}

void TestTfmLeague::testReport()
{
    QFETCH(QString, fixture);
    QFETCH(QStringList, lines);

    TFM_League league;
    QString text = fixtureText(u"tfm/"_s + fixture);
    league.testReport(text);
    QCOMPARE(log.lines(), lines);
}

void TestTfmLeague::testReportCountsWhatEarlierPagesLeft()
{
    TFM_League::teamUrls() = QStringList{u"/earlier/leistungsdaten/verein/1"_s};
    TFM_League league;
    QString text = fixtureText(u"tfm/league_both.html"_s);
    league.testReport(text);
    QCOMPARE(log.lines(),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: DFB-Pokal"_s,
                 u"Teams: 3"_s,
                 u"Team 1: /earlier/leistungsdaten/verein/1"_s,
                 u"Team 2: /bayer-04-leverkusen/leistungsdaten/verein/15/saison_id/2019"_s,
                 u"Team 3: /1-fc-saarbrucken/leistungsdaten/verein/132/saison_id/2019"_s,
             }));
}

void TestTfmLeague::testReportWithoutLog()
{
    setLogOutput(nullptr);
    TFM_League league;
    QString text = fixtureText(u"tfm/league_clubs.html"_s);
    league.testReport(text);
    setLogOutput(log.box());
    QCOMPARE(league.leagueName, u"Premier League"_s);
    QCOMPARE(TFM_League::teamUrls().size(), 5);
    QVERIFY(log->toPlainText().isEmpty());
}

QM_TEST_MAIN(TestTfmLeague)
#include "tst_tfmleague.moc"
