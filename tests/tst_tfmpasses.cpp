#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/datainterface.h"
#include "core/sharedstate.h"
#include "status/statusdisplay.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmteam.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

// The log lines of the passes, written out in full: the fields are blank-filled
// to 6 (numbers, to the right) and to 40 and 35 (names, to the left).
const QString premierLeagueFive = u"     1.\tPremier League                          \tEngland    "
                                  u"                        \t     5 teams"_s;

} // namespace

// The league and team passes against the fixture web, the national team road
// through the planner, and the same pages through the real window.
class TestTfmPasses : public QObject
{
    Q_OBJECT

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    LogCapture log;
    StatusDisplay *panel = nullptr;
    QList<DataWrapper *> records;

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void leagueAddressIsRewritten_data();
    void leagueAddressIsRewritten();
    void failingLeagueIsLoggedAndTheRunGoesOn();
    void leaguesSharingAClubRemoveTheDuplicate();
    void sameLeagueTwiceRemovesEveryRepeat();
    void leaguePageWithoutMarkers();
    void longLeagueNameIsNotCut();
    void leaguePassSurvivesTheCallersListChanging();
    void teamPass();
    void teamPassOfNoAddress();
    void teamPassWorksThroughTheListAsItStood();
    void teamPassRemovesNoDuplicates();
    void nationalTeamRoadRunsTheTeamPassOnly();
    void leagueRoadThroughThePlanner();

    void windowTestLeaguePage();
    void windowTestTeamPage();
    void windowTestsGrowTheStaticLists();
    void windowDownloadsOneLeague();
};

void TestTfmPasses::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
    panel = new StatusDisplay;
}

void TestTfmPasses::cleanupTestCase()
{
    setStatusDisplay(nullptr);
    delete panel;
}

void TestTfmPasses::init()
{
    // The address lists live as long as the process; each test starts afresh.
    clearSiteLists();
    resetFixtureWeb(web);
    fast = std::make_unique<FastWaits>();
    log->clear();
    setLogOutput(log.box());
    setStatusDisplay(panel);
    panel->reset();
    panel->start();
    panel->incrementPageCountTotal(20);
}

void TestTfmPasses::cleanup()
{
    panel->stop();
    fast.reset();
    qDeleteAll(records);
    records.clear();
}

void TestTfmPasses::leagueAddressIsRewritten_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<qint32>("season");
    QTest::addColumn<QString>("requested");

    const QString base = site(u"/premier-league/startseite/wettbewerb/GB1"_s);
    const QString wanted = base + u"/plus/?saison_id=2023"_s;
    QTest::newRow("season part of another year")
        << QString(base + u"/saison_id/2015"_s) << 2023 << wanted;
    QTest::newRow("bare address") << base << 2023 << wanted;
    QTest::newRow("trailing slash") << QString(base + u"/"_s) << 2023 << wanted;
    QTest::newRow("trailing plus part") << QString(base + u"/plus/"_s) << 2023 << wanted;
    QTest::newRow("plus part with a page number") << QString(base + u"/plus/1"_s) << 2023 << wanted;
    QTest::newRow("season query of another year")
        << QString(base + u"/plus/?saison_id=2019"_s) << 2023 << wanted;
    QTest::newRow("season part and plus part")
        << QString(base + u"/saison_id/2015/plus/1"_s) << 2023 << wanted;
    QTest::newRow("season of the run goes in as it is")
        << base << 1999 << QString(base + u"/plus/?saison_id=1999"_s);
}

void TestTfmPasses::leagueAddressIsRewritten()
{
    QFETCH(QString, address);
    QFETCH(qint32, season);
    QFETCH(QString, requested);

    web.routeFile(requested, u"tfm/league_clubs.html"_s);
    QStringList urls{address};
    QVERIFY(TFM_League::downloadLeagues(records, urls, season));

    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({requested}));
    QCOMPARE(urls, QStringList{requested});
    QCOMPARE(records.size(), 1);
    QCOMPARE(static_cast<TFM_League *>(records.first())->leagueName, u"Premier League"_s);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 premierLeagueFive,
                 u"No duplicate teams were found."_s,
             }));
}

void TestTfmPasses::failingLeagueIsLoggedAndTheRunGoesOn()
{
    const QString broken = site(u"/broken/startseite/wettbewerb/XX1"_s);
    const QString good = site(u"/premier-league/startseite/wettbewerb/GB1"_s);
    web.routeBody(broken + u"/plus/?saison_id=2019"_s, "gone", 500);
    web.routeFile(good + u"/plus/?saison_id=2019"_s, u"tfm/league_clubs.html"_s);

    QStringList urls{broken + u"/saison_id/2015"_s, good};
    TFM_League::downloadLeagues(records, urls, 2019);

    // Both entries are rewritten, the failed one as well.
    QCOMPARE(urls,
             (QStringList{broken + u"/plus/?saison_id=2019"_s, good + u"/plus/?saison_id=2019"_s}));
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls(urls));
    QCOMPARE(records.size(), 1);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 2 league page(s)"_s,
                 u"ERROR: Unable to access "_s + broken + u"/plus/?saison_id=2019."_s,
                 premierLeagueFive,
                 u"No duplicate teams were found."_s,
             }));
    QCOMPARE(TFM_League::teamUrls().size(), 5);
}

void TestTfmPasses::leaguesSharingAClubRemoveTheDuplicate()
{
    const QString clubs = site(u"/premier-league/startseite/wettbewerb/GB1"_s);
    const QString matchday = site(u"/premier-league/spieltag/wettbewerb/GB1"_s);
    web.routeFile(clubs + u"/plus/?saison_id=2019"_s, u"tfm/league_clubs.html"_s);
    web.routeFile(matchday + u"/plus/?saison_id=2019"_s, u"tfm/league_repeat.html"_s);

    QStringList urls{clubs, matchday};
    TFM_League::downloadLeagues(records, urls, 2019);

    // The second line shows the running total before the duplicate goes.
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 2 league page(s)"_s,
                 premierLeagueFive,
                 u"     2.\tPremier League                          \tEngland    "
                 u"                        \t     7 teams"_s,
                 u"1 duplicate team(s) have been removed from the downloads list."_s,
             }));
    QCOMPARE(TFM_League::teamUrls(),
             (QStringList{
                 u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s,
                 u"/fc-chelsea/spielplan/verein/631/saison_id/2019"_s,
                 u"/fc-liverpool/leistungsdaten/verein/31/saison_id/2019"_s,
                 u"/wolverhampton-wanderers/kader/verein/543/saison_id/2019"_s,
                 u"/fc-brentford/Startseite/verein/1148/saison_id/2019"_s,
                 u"/fc-everton/leistungsdaten/verein/29"_s,
             }));
}

void TestTfmPasses::sameLeagueTwiceRemovesEveryRepeat()
{
    const QString address = site(u"/uefa-champions-league/startseite/pokalwettbewerb/CL"_s);
    web.routeFile(address + u"/plus/?saison_id=2023"_s, u"tfm/league_tournament.html"_s);

    // Nothing earlier in the list: the lists only ever grow, so a run also
    // counts and thins what an earlier run left.
    TFM_League::teamUrls().append(u"/earlier/leistungsdaten/verein/1"_s);
    QStringList urls{address, address + u"/"_s};
    TFM_League::downloadLeagues(records, urls, 2023);

    QCOMPARE(web.requestCount(address + u"/plus/?saison_id=2023"_s), 2);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 2 league page(s)"_s,
                 u"     1.\tUEFA Champions League                   \tEurope     "
                 u"                        \t     5 teams"_s,
                 u"     2.\tUEFA Champions League                   \tEurope     "
                 u"                        \t     9 teams"_s,
                 u"4 duplicate team(s) have been removed from the downloads list."_s,
             }));
    QCOMPARE(TFM_League::teamUrls().size(), 5);
}

void TestTfmPasses::leaguePageWithoutMarkers()
{
    const QString address = site(u"/nothing/startseite/wettbewerb/NO1"_s);
    web.routeBody(address + u"/plus/?saison_id=2023"_s, "<html><body>Nothing</body></html>");
    QStringList urls{address};
    TFM_League::downloadLeagues(records, urls, 2023);

    QCOMPARE(records.size(), 1);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 u"     1.\t                                        \t          "
                 u"                         \t     0 teams"_s,
                 u"No duplicate teams were found."_s,
             }));
}

void TestTfmPasses::longLeagueNameIsNotCut()
{
    const QString address = site(u"/long/startseite/wettbewerb/LL1"_s);
    web.routeBody(address + u"/plus/?saison_id=2023"_s,
                  "<h1 class=\"spielername-profil\">Campeonato Nacional de Futebol da Primeira "
                  "Divis\xc3\xa3o</h1><div class=\"flagge\"><img title=\"Rep\xc3\xba"
                  "blica Federativa do Brasil e Territ\xc3\xb3rios\"></div>");
    QStringList urls{address};
    TFM_League::downloadLeagues(records, urls, 2023);

    // The names go into the line as they are, Utf, and a name wider than its
    // field widens the line.
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 u"     1.\tCampeonato Nacional de Futebol da Primeira Divisão\t"
                 u"República Federativa do Brasil e Territórios\t     0 teams"_s,
                 u"No duplicate teams were found."_s,
             }));
}

void TestTfmPasses::leaguePassSurvivesTheCallersListChanging()
{
    const QString first = site(u"/premier-league/startseite/wettbewerb/GB1"_s);
    const QString second = site(u"/ligue-1/startseite/wettbewerb/FR1"_s);
    web.routeFile(first + u"/plus/?saison_id=2023"_s, u"tfm/league_clubs.html"_s);
    web.routeFile(second + u"/plus/?saison_id=2023"_s, u"tfm/league_nomarkers.html"_s);

    QStringList urls{first, second};
    // Runs inside the first fetch's wait.
    QTimer::singleShot(0, this, [&urls] { urls.clear(); });
    TFM_League::downloadLeagues(records, urls, 2023);

    // The pass goes on with the addresses it started with; the emptied list
    // stays empty.
    QCOMPARE(web.requestedUrls(),
             FixtureWeb::canonicalUrls(
                 {first + u"/plus/?saison_id=2023"_s, second + u"/plus/?saison_id=2023"_s}));
    QVERIFY(urls.isEmpty());
    QCOMPARE(records.size(), 2);
}

void TestTfmPasses::teamPass()
{
    const QString arsenal = u"/fc-arsenal/leistungsdaten/verein/11/saison_id/2019"_s;
    const QString missing = u"/missing/leistungsdaten/verein/0"_s;
    const QString chelsea = u"/chelsea/kader/631"_s;
    const QString madrid = u"/real-madrid/leistungsdaten/verein/418"_s;
    web.routeFile(site(arsenal), u"tfm/team_club_zusatz.html"_s);
    web.routeFile(site(chelsea), u"tfm/team_club_nohref.html"_s);
    web.routeFile(site(madrid), u"tfm/team_club_wettbewerb.html"_s);

    QVERIFY(TFM_Team::downloadTeams(records, {arsenal, missing, chelsea, madrid}));

    QCOMPARE(
        web.requestedUrls(),
        FixtureWeb::canonicalUrls({site(arsenal), site(missing), site(chelsea), site(madrid)}));
    QCOMPARE(records.size(), 3);
    QCOMPARE(static_cast<TFM_Team *>(records.at(2))->teamName, u"Real Madrid"_s);
    // A name with its address wider than 40 is not cut; the error line has no
    // full stop.
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 4 team page(s)"_s,
                 u"     1.\tArsenal FC (/fc-arsenal/leistungsdaten/verein/11/saison_id/2019)\t"
                 u"Premier League                     \t     4 players"_s,
                 u"ERROR: Unable to access /missing/leistungsdaten/verein/0"_s,
                 u"     2.\tChelsea FC (/chelsea/kader/631)         \t"
                 u"Premier League                     \t     7 players"_s,
                 u"     3.\tReal Madrid (/real-madrid/leistungsdaten/verein/418)\t"
                 u"LaLiga                             \t     9 players"_s,
             }));
    QCOMPARE(TFM_Team::playerUrls().count(), 9);
}

void TestTfmPasses::teamPassOfNoAddress()
{
    QVERIFY(TFM_Team::downloadTeams(records, {}));
    QCOMPARE(log.lines(), (QStringList{QString(), u"Downloading 0 team page(s)"_s}));
    QVERIFY(web.requests().isEmpty());
    QVERIFY(records.isEmpty());
}

void TestTfmPasses::teamPassWorksThroughTheListAsItStood()
{
    const QString arsenal = u"/fc-arsenal/leistungsdaten/verein/11"_s;
    const QString madrid = u"/real-madrid/leistungsdaten/verein/418"_s;
    web.routeFile(site(arsenal), u"tfm/team_club_zusatz.html"_s);
    web.routeFile(site(madrid), u"tfm/team_club_wettbewerb.html"_s);
    TFM_League::teamUrls() = QStringList{arsenal, madrid};

    // A test of a league page, pressed while the pass waits for its first
    // page, pours more addresses into the very list the pass was given.
    QTimer::singleShot(0, this, [] {
        for (int i = 0; i < 500; ++i)
            TFM_League::teamUrls().append(u"/late/leistungsdaten/verein/"_s + QString::number(i));
    });
    TFM_Team::downloadTeams(records, TFM_League::teamUrls());

    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({site(arsenal), site(madrid)}));
    QCOMPARE(TFM_League::teamUrls().size(), 502);
    QCOMPARE(records.size(), 2);
    QCOMPARE(log.lines().at(1), u"Downloading 2 team page(s)"_s);
}

void TestTfmPasses::teamPassRemovesNoDuplicates()
{
    const QString multi = u"/fc-arsenal/leistungsdaten/verein/11/plus/1"_s;
    web.routeFile(site(multi), u"tfm/team_club_multi.html"_s);
    TFM_Team::downloadTeams(records, {multi, multi});

    QCOMPARE(web.requestCount(site(multi)), 2);
    QCOMPARE(TFM_Team::playerUrls().count(), 8);
    QCOMPARE(log.lines().mid(2),
             (QStringList{
                 u"     1.\tArsenal FC (/fc-arsenal/leistungsdaten/verein/11/"
                 u"plus/1)\tPremier League                     \t     4 players"_s,
                 u"     2.\tArsenal FC (/fc-arsenal/leistungsdaten/verein/11/"
                 u"plus/1)\tPremier League                     \t     8 players"_s,
             }));
}

void TestTfmPasses::nationalTeamRoadRunsTheTeamPassOnly()
{
    const QString path = u"/brasilien/erweiterterkader/verein/3439"_s;
    web.routeFile(site(path), u"tfm/team_extended.html"_s);
    // Left by an earlier league test: the national team road does not touch it.
    TFM_League::teamUrls().append(u"/fc-arsenal/leistungsdaten/verein/11"_s);

    DataInterface planner;
    QStringList urls{site(path), site(path)};
    QVERIFY(planner.startDownload(TransferMarkt, urls, false));

    QCOMPARE(urls, QStringList{path});
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({site(path)}));
    QVERIFY(planner.leagues.isEmpty());
    QCOMPARE(planner.teams.size(), 1);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 team page(s)"_s,
                 u"     1.\tBrazil (/brasilien/erweiterterkader/verein/3439)\t"
                 u"Brazil                             \t     3 players"_s,
             }));
    QCOMPARE(TFM_Team::playerUrls().urls,
             (QStringList{
                 u"/alisson/profil/spieler/105470"_s,
                 u"/marquinhos/profil/spieler/181767"_s,
                 u"/vinicius-junior/profil/spieler/371998"_s,
             }));
}

void TestTfmPasses::leagueRoadThroughThePlanner()
{
    const QString league = site(u"/premier-league/spieltag/wettbewerb/GB1"_s);
    web.routeFile(league + u"/plus/?saison_id=2019"_s, u"tfm/league_repeat.html"_s);
    web.routeFile(site(u"/fc-arsenal/leistungsdaten/verein/11"_s), u"tfm/team_club_zusatz.html"_s);
    web.routeFile(site(u"/fc-everton/leistungsdaten/verein/29"_s),
                  u"tfm/team_club_detailedbefore.html"_s);

    DataInterface planner;
    planner.setSeason(2019);
    QStringList urls{league};
    planner.startDownload(TransferMarkt, urls, false);

    QCOMPARE(web.requestedUrls(),
             FixtureWeb::canonicalUrls({
                 league + u"/plus/?saison_id=2019"_s,
                 site(u"/fc-arsenal/leistungsdaten/verein/11"_s),
                 site(u"/fc-everton/leistungsdaten/verein/29"_s),
             }));
    QCOMPARE(planner.leagues.size(), 1);
    QCOMPARE(planner.teams.size(), 2);
    QCOMPARE(TFM_Team::playerUrls().count(), 4);
}

void TestTfmPasses::windowTestLeaguePage()
{
    MainWindow window;
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Transfer Markt"_s));
    answerNextFileDialog(fixturePath(u"tfm/league_clublinks.html"_s));
    QTest::mouseClick(window.testLeagueButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline League Webpage"_s);
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: Primera Divisi\uFFFDn"_s,
                 u"Teams: 4"_s,
                 u"Team 1: /real-madrid/leistungsdaten/verein/418"_s,
                 u"Team 2: /fc-barcelona/leistungsdaten/verein/131"_s,
                 u"Team 3: /fc-sevilla/leistungsdaten/verein/368/saison_id/2020"_s,
                 u"Team 4: /fc-villarreal/leistungsdaten/verein/1050/plus/1"_s,
             }));
    QVERIFY(web.requests().isEmpty());
}

void TestTfmPasses::windowTestTeamPage()
{
    MainWindow window;
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Transfer Markt"_s));
    answerNextFileDialog(fixturePath(u"tfm/team_club_header.html"_s));
    QTest::mouseClick(window.testTeamButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline Team Webpage"_s);
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII name: FC Bayern M\uFFFDnchen"_s,
                 u"UTF name: FC Bayern München"_s,
                 u"League: Bundesliga"_s,
                 u"Player entries: 3"_s,
             }));
    QCOMPARE(TFM_Team::playerUrls().count(), 3);
}

void TestTfmPasses::windowTestsGrowTheStaticLists()
{
    MainWindow window;
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Transfer Markt"_s));

    answerNextFileDialog(fixturePath(u"tfm/league_both.html"_s));
    QTest::mouseClick(window.testLeagueButton, Qt::LeftButton);
    answerNextFileDialog(fixturePath(u"tfm/league_repeat.html"_s));
    QTest::mouseClick(window.testLeagueButton, Qt::LeftButton);
    answerNextFileDialog(fixturePath(u"tfm/team_extended.html"_s));
    QTest::mouseClick(window.testTeamButton, Qt::LeftButton);
    answerNextFileDialog(fixturePath(u"tfm/team_extended.html"_s));
    QTest::mouseClick(window.testTeamButton, Qt::LeftButton);

    // The log box is not cleared between tests, and each report counts the
    // whole list, what the earlier tests left included.
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: DFB-Pokal"_s,
                 u"Teams: 2"_s,
                 u"Team 1: /bayer-04-leverkusen/leistungsdaten/verein/15/saison_id/2019"_s,
                 u"Team 2: /1-fc-saarbrucken/leistungsdaten/verein/132/saison_id/2019"_s,
                 u"--- TESTING LEAGUE WEBPAGE ---"_s,
                 u"League: Premier League"_s,
                 u"Teams: 4"_s,
                 u"Team 1: /bayer-04-leverkusen/leistungsdaten/verein/15/saison_id/2019"_s,
                 u"Team 2: /1-fc-saarbrucken/leistungsdaten/verein/132/saison_id/2019"_s,
                 u"Team 3: /fc-arsenal/leistungsdaten/verein/11"_s,
                 u"Team 4: /fc-everton/leistungsdaten/verein/29"_s,
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII name: Brazil"_s,
                 u"UTF name: Brazil"_s,
                 u"League: Brazil"_s,
                 u"Player entries: 3"_s,
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII name: Brazil"_s,
                 u"UTF name: Brazil"_s,
                 u"League: Brazil"_s,
                 u"Player entries: 6"_s,
             }));
    QCOMPARE(TFM_League::teamUrls().size(), 4);
    QCOMPARE(TFM_Team::playerUrls().count(), 6);
    // Each test keeps only its own record.
    QCOMPARE(window.dataInterface.teams.size(), 1);
    QVERIFY(window.dataInterface.leagues.isEmpty());
}

void TestTfmPasses::windowDownloadsOneLeague()
{
    const QString league = site(u"/premier-league/spieltag/wettbewerb/GB1"_s);
    web.routeFile(league + u"/plus/?saison_id=2019"_s, u"tfm/league_repeat.html"_s);
    web.routeFile(site(u"/fc-arsenal/leistungsdaten/verein/11"_s), u"tfm/team_club_zusatz.html"_s);
    web.routeFile(site(u"/fc-everton/leistungsdaten/verein/29"_s),
                  u"tfm/team_club_detailedbefore.html"_s);

    MainWindow window;
    QTest::keyClicks(window.urlInput, league);
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Transfer Markt"_s));
    window.seasonBox->setValue(2019);
    window.downloadPlayerDetailsBox->setChecked(false);
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);

    QCOMPARE(web.requestedUrls(),
             FixtureWeb::canonicalUrls({
                 league + u"/plus/?saison_id=2019"_s,
                 site(u"/fc-arsenal/leistungsdaten/verein/11"_s),
                 site(u"/fc-everton/leistungsdaten/verein/29"_s),
             }));
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 u"     1.\tPremier League                          \tEngland    "
                 u"                        \t     2 teams"_s,
                 u"No duplicate teams were found."_s,
                 QString(),
                 u"Downloading 2 team page(s)"_s,
                 u"     1.\tArsenal FC (/fc-arsenal/leistungsdaten/verein/11)\t"
                 u"Premier League                     \t     4 players"_s,
                 u"     2.\tEverton FC (/fc-everton/leistungsdaten/verein/29)\t"
                 u"Premier League                     \t     4 players"_s,
                 QString(),
                 QString(),
                 u"----- PROCESS COMPLETE -----"_s,
                 QString(),
                 QString(),
             }));
    QCOMPARE(window.dataInterface.leagues.size(), 1);
    QCOMPARE(window.dataInterface.teams.size(), 2);
    QVERIFY(window.dataInterface.players.isEmpty());
}

QM_TEST_MAIN(TestTfmPasses)
#include "tst_tfmpasses.moc"
