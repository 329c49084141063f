#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/datainterface.h"
#include "core/fetchtesting.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epteam.h"
#include "status/statusdisplay.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString team(const QString &slug)
{
    return EP_ROOT_URL + u"/team/"_s + slug;
}

QString leagueUrl(const QString &slug, const QString &years = QString())
{
    return EP_ROOT_URL + u"/league/"_s + slug + (years.isEmpty() ? QString() : u'/' + years)
        + u"?team-history=complete#team-history"_s;
}

const QString oslo = team(u"101/oslo-hawks/2019-2020"_s);
const QString bergen = team(u"102/bergen-bears/2019-2020"_s);
const QString tromso = team(u"103/tromso-tigers/2019-2020?tab=roster"_s);
const QString stavanger = team(u"105/stavanger-storm"_s);
const QString narvik = team(u"106/narvik-nordics?tab=stats"_s);
const QString drammen = team(u"107/drammen-dragons/2018-2019"_s);

QList<int> announced(const QSignalSpy &spy)
{
    QList<int> counts;
    for (const QList<QVariant> &arguments : spy)
        counts.append(arguments.at(0).toInt());
    return counts;
}

// The pass lines written out in full: numbers right-aligned in 6, names
// left-aligned in 40.
const QString testlandThree = u"     1.\tTestland Hockey League                  \t     3 teams"_s;
const QString nordicThree = u"     1.\tNordic Development League               \t     3 teams"_s;
const QString osloThree = u"     1.\tOslo Hawks                              \t     3 players"_s;
const QString bergenFive = u"     2.\tBergen Bears                            \t     5 players"_s;
const QString tromsoFive = u"     3.\tTromsø Tigers                           \t     5 players"_s;

} // namespace

// The league and team passes against the fixture web, the road through the
// planner, and the same pages through the real window.
class TestEpTeamPasses : public QObject
{
    Q_OBJECT

private:
    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    LogCapture log;
    StatusDisplay *panel = nullptr;
    QList<DataWrapper *> records;

    void routeTeams();

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void leagueAddress_data();
    void leagueAddress();
    void twoLinesForOneLeague();
    void failingLeaguePage();
    void emptyLeagueList_data();
    void emptyLeagueList();
    void leaguePassWorksThroughTheListAsItStood();
    void teamPass();
    void teamPassOfNoAddress();
    void teamPassWorksThroughTheListAsItStood();
    void teamListCarriesOverIntoASecondRun();

    void windowDownloadAndSave_data();
    void windowDownloadAndSave();
    void windowTestLeaguePage_data();
    void windowTestLeaguePage();
    void windowTestTeamPage();
    void windowTestTeamPageWhileTheTeamPassWaits();
};

void TestEpTeamPasses::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
    panel = new StatusDisplay;
}

void TestEpTeamPasses::cleanupTestCase()
{
    setStatusDisplay(nullptr);
    delete panel;
}

void TestEpTeamPasses::init()
{
    // The address lists and the stored seasons live as long as the process; each
    // test starts afresh.
    clearSiteLists();
    EP_League::selectedSeason = -1;
    EP_TeamHistory::lastSeason = 0;
    QLocale::setDefault(QLocale::c());
    resetFixtureWeb(web);
    fast = std::make_unique<FastWaits>();
    log->clear();
    setLogOutput(log.box());
    setStatusDisplay(panel);
    panel->reset();
    panel->start();
    panel->incrementPageCountTotal(20);
}

void TestEpTeamPasses::cleanup()
{
    panel->stop();
    fast.reset();
    qDeleteAll(records);
    records.clear();
    QLocale::setDefault(QLocale::c());
    QCOMPARE(pendingDialogAnswers(), 0);
}

void TestEpTeamPasses::routeTeams()
{
    web.routeFile(oslo, u"ep/team_full.html"_s);
    web.routeFile(bergen, u"ep/team_plaintown.html"_s);
    web.routeFile(tromso, u"ep/team_emptyroster.html"_s);
    web.routeFile(stavanger, u"ep/team_oldlink.html"_s);
    web.routeFile(narvik, u"ep/team_nofacts.html"_s);
    web.routeFile(drammen, u"ep/team_nohistory.html"_s);
}

void TestEpTeamPasses::leagueAddress_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<qint32>("season");
    QTest::addColumn<QString>("requested");

    const QString withYears = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    QTest::newRow("slug alone") << u"testland-hockey-league"_s << 2019 << withYears;
    QTest::newRow("pasted address")
        << QString(EP_ROOT_URL + u"/league/testland-hockey-league"_s) << 2019 << withYears;
    QTest::newRow("marker in capitals")
        << QString(EP_ROOT_URL + u"/LEAGUE/testland-hockey-league"_s) << 2019 << withYears;
    QTest::newRow("address ending in the marker")
        << u"https://example.org/league/testland-hockey-league"_s << 2019 << withYears;
    QTest::newRow("season 1") << u"testland-hockey-league"_s << 1
                              << leagueUrl(u"testland-hockey-league"_s, u"1-2"_s);
    // What follows "/league/" stays whole.
    QTest::newRow("pasted season stays")
        << QString(EP_ROOT_URL + u"/league/testland-hockey-league/2015-2016"_s) << 2019
        << leagueUrl(u"testland-hockey-league/2015-2016"_s, u"2019-2020"_s);
    QTest::newRow("trailing slash stays")
        << QString(EP_ROOT_URL + u"/league/testland-hockey-league/"_s) << 2019
        << leagueUrl(u"testland-hockey-league/"_s, u"2019-2020"_s);
    QTest::newRow("no season") << u"nordic-development-league"_s << -1
                               << leagueUrl(u"nordic-development-league"_s);
    QTest::newRow("season 0") << QString(EP_ROOT_URL + u"/league/nordic-development-league"_s) << 0
                              << leagueUrl(u"nordic-development-league"_s);
}

void TestEpTeamPasses::leagueAddress()
{
    QFETCH(QString, line);
    QFETCH(qint32, season);
    QFETCH(QString, requested);

    const bool standings = season > 0;
    web.routeFile(requested,
                  standings ? u"ep/league_standings.html"_s : u"ep/league_rosters.html"_s);
    QStringList urls{line};
    QVERIFY(EP_League::downloadLeagues(records, urls, season));

    QCOMPARE(EP_League::selectedSeason, season);
    QCOMPARE(urls, QStringList{requested});
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({requested}));
    QCOMPARE(records.size(), 1);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 standings ? testlandThree : nordicThree,
                 u"No duplicate teams were found."_s,
             }));
    const QStringList teams
        = standings ? QStringList{oslo, bergen, tromso} : QStringList{stavanger, narvik, drammen};
    QCOMPARE(EP_League::teamUrls(), teams);
}

void TestEpTeamPasses::twoLinesForOneLeague()
{
    const QString address = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    web.routeFile(address, u"ep/league_standings.html"_s);
    QStringList urls{u"testland-hockey-league"_s,
                     EP_ROOT_URL + u"/league/testland-hockey-league"_s};
    EP_League::downloadLeagues(records, urls, 2019);

    // The running total counts every team twice before the duplicates go.
    QCOMPARE(web.requestCount(address), 2);
    QCOMPARE(urls, (QStringList{address, address}));
    QCOMPARE(records.size(), 2);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 2 league page(s)"_s,
                 testlandThree,
                 u"     2.\tTestland Hockey League                  \t     6 teams"_s,
                 u"3 duplicate team(s) have been removed from the downloads list."_s,
             }));
    QCOMPARE(EP_League::teamUrls(), (QStringList{oslo, bergen, tromso}));
}

void TestEpTeamPasses::failingLeaguePage()
{
    const QString broken = leagueUrl(u"broken-league"_s, u"2019-2020"_s);
    const QString good = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    web.routeBody(broken, "gone", 500);
    web.routeFile(good, u"ep/league_standings.html"_s);

    QStringList urls{u"broken-league"_s, u"testland-hockey-league"_s};
    EP_League::downloadLeagues(records, urls, 2019);

    // The failed entry holds the complete address too.
    QCOMPARE(urls, (QStringList{broken, good}));
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls(urls));
    QCOMPARE(records.size(), 1);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 2 league page(s)"_s,
                 u"ERROR: Unable to access "_s + broken + u"."_s,
                 testlandThree,
                 u"No duplicate teams were found."_s,
             }));
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
}

void TestEpTeamPasses::emptyLeagueList_data()
{
    QTest::addColumn<QStringList>("earlier");
    QTest::addColumn<QString>("last");

    QTest::newRow("nothing left by earlier runs")
        << QStringList{oslo, bergen} << u"No duplicate teams were found."_s;
    QTest::newRow("duplicates left by an earlier run")
        << QStringList{oslo, bergen, oslo}
        << u"1 duplicate team(s) have been removed from the downloads list."_s;
}

void TestEpTeamPasses::emptyLeagueList()
{
    QFETCH(QStringList, earlier);
    QFETCH(QString, last);

    EP_League::teamUrls() = earlier;
    QStringList urls;
    QVERIFY(EP_League::downloadLeagues(records, urls, 2019));
    QCOMPARE(log.lines(), (QStringList{QString(), u"Downloading 0 league page(s)"_s, last}));
    QVERIFY(web.requests().isEmpty());
    QVERIFY(records.isEmpty());
    QCOMPARE(EP_League::selectedSeason, 2019);
    QCOMPARE(EP_League::teamUrls(), (QStringList{oslo, bergen}));
}

void TestEpTeamPasses::leaguePassWorksThroughTheListAsItStood()
{
    const QString first = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    const QString second = leagueUrl(u"other-league"_s, u"2019-2020"_s);
    web.routeFile(first, u"ep/league_standings.html"_s);
    web.routeFile(second, u"ep/league_standings.html"_s);

    QStringList urls{u"testland-hockey-league"_s, u"other-league"_s};
    // Runs inside the first fetch's wait, as a click of the window could.
    QTimer::singleShot(0, this, [&urls] { urls.clear(); });
    EP_League::downloadLeagues(records, urls, 2019);

    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({first, second}));
    QVERIFY(urls.isEmpty());
    QCOMPARE(records.size(), 2);
}

void TestEpTeamPasses::teamPass()
{
    routeTeams();
    const QString missing = team(u"404/missing"_s);
    QStringList urls{oslo, missing, bergen, tromso};
    QVERIFY(EP_Team::downloadTeams(records, urls));

    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls(urls));
    QCOMPARE(records.size(), 3);
    QCOMPARE(static_cast<EP_Team *>(records.at(1))->teamName, u"Bergen Bears"_s);
    // The error line has no full stop; the count is the running total of all rosters.
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 4 team page(s)"_s,
                 osloThree,
                 u"ERROR: Unable to access "_s + missing,
                 u"     2.\tBergen Bears                            \t     5 players"_s,
                 u"     3.\tTromsø Tigers                           \t     5 players"_s,
             }));
    QCOMPARE(EP_Team::playerUrls().urls,
             (QStringList{u"5001/lars-olsen"_s, u"5002/jan-erik-dahl"_s, u"5003/ostergaard"_s,
                          u"5101/per-haugen"_s, u"5001/lars-olsen"_s}));
    QCOMPARE(EP_Team::playerUrls().entries.size(), 5);
    // The league list it was given is not touched.
    QVERIFY(EP_League::teamUrls().isEmpty());
}

void TestEpTeamPasses::teamPassOfNoAddress()
{
    EP_Team::playerUrls().addRosterEntry(u"1/left"_s, u"Left Over"_s, QString(), QString(),
                                         QString(), QString(), QString(), QString(), QString(),
                                         QString(), false, false);
    QStringList urls;
    QVERIFY(EP_Team::downloadTeams(records, urls));
    QCOMPARE(log.lines(), (QStringList{QString(), u"Downloading 0 team page(s)"_s}));
    QVERIFY(web.requests().isEmpty());
    QVERIFY(records.isEmpty());
    QCOMPARE(EP_Team::playerUrls().count(), 1);
}

void TestEpTeamPasses::teamPassWorksThroughTheListAsItStood()
{
    routeTeams();
    EP_League::teamUrls() = QStringList{oslo, bergen, oslo};
    // A test of a league page, pressed while the pass waits for its first page,
    // pours more addresses into the very list the pass was given.
    QTimer::singleShot(0, this, [] {
        for (int i = 0; i < 300; ++i)
            EP_League::teamUrls().append(team(u"late/"_s + QString::number(i)));
    });
    EP_Team::downloadTeams(records, EP_League::teamUrls());

    // No duplicate removal in this pass: the first team is fetched twice.
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({oslo, bergen, oslo}));
    QCOMPARE(EP_League::teamUrls().size(), 303);
    QCOMPARE(records.size(), 3);
    QCOMPARE(log.lines().at(1), u"Downloading 3 team page(s)"_s);
    QCOMPARE(log.lines().at(4),
             u"     3.\tOslo Hawks                              \t     8 players"_s);
}

void TestEpTeamPasses::teamListCarriesOverIntoASecondRun()
{
    routeTeams();
    web.routeFile(leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s),
                  u"ep/league_standings.html"_s);
    web.routeFile(leagueUrl(u"nordic-development-league"_s), u"ep/league_rosters.html"_s);

    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.setSeason(2019);
    QStringList first{u"testland-hockey-league"_s};
    QVERIFY(planner.startDownload(EliteProspects, first, false));

    QCOMPARE(announced(spy), (QList<int>{1, 3}));
    QCOMPARE(planner.leagues.size(), 1);
    QCOMPARE(planner.teams.size(), 3);
    QCOMPARE(EP_Team::playerUrls().count(), 5);

    // The second run, without a season, works through the teams of the first
    // again, and the roster list goes on growing, as no player pass emptied it.
    log->clear();
    web.clearRequests();
    spy.clear();
    planner.setSeason(-1);
    QStringList second{EP_ROOT_URL + u"/league/nordic-development-league"_s};
    planner.startDownload(EliteProspects, second, false);

    QCOMPARE(announced(spy), (QList<int>{1, 6}));
    QCOMPARE(web.requestedUrls(),
             FixtureWeb::canonicalUrls({leagueUrl(u"nordic-development-league"_s), oslo, bergen,
                                        tromso, stavanger, narvik, drammen}));
    QCOMPARE(planner.leagues.size(), 1);
    QCOMPARE(planner.teams.size(), 6);
    QCOMPARE(EP_League::teamUrls(),
             (QStringList{oslo, bergen, tromso, stavanger, narvik, drammen}));
    QCOMPARE(EP_Team::playerUrls().count(), 15);
    QCOMPARE(log.lines(),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 u"     1.\tNordic Development League               \t     6 teams"_s,
                 u"No duplicate teams were found."_s,
                 QString(),
                 u"Downloading 6 team page(s)"_s,
                 u"     1.\tOslo Hawks                              \t     8 players"_s,
                 u"     2.\tBergen Bears                            \t    10 players"_s,
                 u"     3.\tTromsø Tigers                           \t    10 players"_s,
                 u"     4.\tStavanger Storm                         \t    13 players"_s,
                 u"     5.\tNarvik Nordics                          \t    14 players"_s,
                 u"     6.\tDrammen Dragons                         \t    15 players"_s,
             }));
}

void TestEpTeamPasses::windowDownloadAndSave_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<bool>("utf");
    QTest::addColumn<QString>("mode");

    QTest::newRow("ascii, decimal point") << QLocale::c() << false << u"ascii_point"_s;
    QTest::newRow("ascii, English") << QLocale(QLocale::English) << false << u"ascii_point"_s;
    QTest::newRow("ascii, decimal comma") << QLocale(QLocale::German) << false << u"ascii_comma"_s;
    QTest::newRow("utf, decimal comma") << QLocale(QLocale::German) << true << u"utf"_s;
    QTest::newRow("utf, decimal point") << QLocale(QLocale::English) << true << u"utf"_s;
}

void TestEpTeamPasses::windowDownloadAndSave()
{
    QFETCH(QLocale, locale);
    QFETCH(bool, utf);
    QFETCH(QString, mode);
    QLocale::setDefault(locale);
    routeTeams();
    const QString league = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    web.routeFile(league, u"ep/league_standings.html"_s);

    QTemporaryDir outDir;
    QVERIFY(outDir.isValid());
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::keyClicks(window.urlInput, u"testland-hockey-league"_s);
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Elite Prospects"_s));
    QCOMPARE(window.websiteBox->currentIndex(), int(EliteProspects));
    window.seasonBox->setValue(2019);
    window.downloadPlayerDetailsBox->setChecked(false);
    (utf ? window.utfButton : window.asciiButton)->setChecked(true);

    QTest::mouseClick(window.downloadButton, Qt::LeftButton);
    QTRY_VERIFY(window.logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({league, oslo, bergen, tromso}));
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 QString(),
                 u"Downloading 1 league page(s)"_s,
                 testlandThree,
                 u"No duplicate teams were found."_s,
                 QString(),
                 u"Downloading 3 team page(s)"_s,
                 osloThree,
                 bergenFive,
                 tromsoFive,
                 QString(),
                 QString(),
                 u"----- PROCESS COMPLETE -----"_s,
                 QString(),
                 QString(),
             }));
    QCOMPARE(window.dataInterface.leagues.size(), 1);
    QCOMPARE(window.dataInterface.teams.size(), 3);
    QVERIFY(window.dataInterface.players.isEmpty());
    QVERIFY(window.saveButton->isEnabled());

    answerNextFileDialog(outDir.filePath(u"harvest.csv"_s));
    QTest::mouseClick(window.saveButton, Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(outDir.filePath(u"harvest_retired_numbers.csv"_s)));

    // The chosen name gets no file of its own.
    QVERIFY(!QFile::exists(outDir.filePath(u"harvest.csv"_s)));
    for (const QString &file : {u"clubs"_s, u"club_histories"_s, u"retired_numbers"_s}) {
        const QByteArray written = fileBytes(outDir.filePath(u"harvest_%1.csv"_s.arg(file)));
        const QByteArray expected
            = fixtureBytes(u"ep/expected/harvest_%1_%2.csv"_s.arg(file, mode));
        QVERIFY2(!expected.isEmpty(), qPrintable(file));
        QCOMPARE(written, expected);
    }

    // No player page was read: the two player files hold their title line alone,
    // the first line of a full file of the same mode.
    const QList<std::pair<QString, QString>> playerFiles
        = {{u"players"_s, u"players"_s}, {u"player_histories"_s, u"histories"_s}};
    for (const auto &[file, layout] : playerFiles) {
        const QByteArray full
            = fixtureBytes(u"ep/expected/player_export_%1_%2.csv"_s.arg(layout, mode));
        QVERIFY2(full.count('\n') > 1, qPrintable(layout));
        QCOMPARE(fileBytes(outDir.filePath(u"harvest_%1.csv"_s.arg(file))),
                 full.left(full.indexOf('\n') + 1));
    }
    QCOMPARE(filesIn(outDir.path()),
             (QStringList{u"harvest_club_histories.csv"_s, u"harvest_clubs.csv"_s,
                          u"harvest_player_histories.csv"_s, u"harvest_players.csv"_s,
                          u"harvest_retired_numbers.csv"_s}));
}

void TestEpTeamPasses::windowTestLeaguePage_data()
{
    QTest::addColumn<int>("season");
    QTest::addColumn<QString>("fixture");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("season chooses the standings") << 2019 << u"league_standings.html"_s
                                                  << QStringList{
                                                         u"--- TESTING LEAGUE WEBPAGE ---"_s,
                                                         u"League: Testland Hockey League"_s,
                                                         u"Teams: 3"_s,
                                                         u"Team 1: "_s + oslo,
                                                         u"Team 2: "_s + bergen,
                                                         u"Team 3: "_s + tromso,
                                                     };
    QTest::newRow("no season chooses the team list") << -1 << u"league_rosters.html"_s
                                                     << QStringList{
                                                            u"--- TESTING LEAGUE WEBPAGE ---"_s,
                                                            u"League: Nordic Development League"_s,
                                                            u"Teams: 3"_s,
                                                            u"Team 1: "_s + stavanger,
                                                            u"Team 2: "_s + narvik,
                                                            u"Team 3: "_s + drammen,
                                                        };
    QTest::newRow("season on a team list page") << 2019 << u"league_rosters.html"_s
                                                << QStringList{
                                                       u"--- TESTING LEAGUE WEBPAGE ---"_s,
                                                       u"League: Nordic Development League"_s,
                                                       u"Teams: 0"_s,
                                                   };
}

void TestEpTeamPasses::windowTestLeaguePage()
{
    QFETCH(int, season);
    QFETCH(QString, fixture);
    QFETCH(QStringList, lines);

    MainWindow window;
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Elite Prospects"_s));
    window.seasonBox->setValue(season);
    answerNextFileDialog(fixturePath(u"ep/"_s + fixture));
    QTest::mouseClick(window.testLeagueButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline League Webpage"_s);
    QCOMPARE(EP_League::selectedSeason, season);
    QCOMPARE(logLines(window.logBox), lines);
    QCOMPARE(window.dataInterface.leagues.size(), 1);
    QVERIFY(web.requests().isEmpty());
}

void TestEpTeamPasses::windowTestTeamPage()
{
    MainWindow window;
    window.websiteBox->setCurrentIndex(window.websiteBox->findText(u"Elite Prospects"_s));
    answerNextFileDialog(fixturePath(u"ep/team_full.html"_s));
    QTest::mouseClick(window.testTeamButton, Qt::LeftButton);
    answerNextFileDialog(fixturePath(u"ep/team_nofacts.html"_s));
    QTest::mouseClick(window.testTeamButton, Qt::LeftButton);

    QCOMPARE(lastDialogTitle(), u"Open Offline Team Webpage"_s);
    // The second report counts the roster entries of the first test as well, and
    // its row without a year takes the season the first page left.
    QCOMPARE(logLines(window.logBox),
             (QStringList{
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII names: Oslo Hawks (Oslo Hawks Ishockeyklubb)"_s,
                 u"UTF names: Oslo Hawks (Oslo Hawks, Ishockeyklubb)"_s,
                 u"City: Oslo:Norway"_s,
                 u"Founded: 1921"_s,
                 u"Colours: Red,White"_s,
                 u"Player entries: 3"_s,
                 u"History entries: 3"_s,
                 u"History sample:  2020  THL 52 30-2-15 3:2 170:130 97 2 Won Final"_s,
                 u"Retired numbers: 3"_s,
                 u"Ret. no. sample: 9 - Erik Berg (Oslo Hawks)"_s,
                 u"--- TESTING TEAM ROSTER WEBPAGE ---"_s,
                 u"ASCII names: Narvik Nordics ()"_s,
                 u"UTF names: Narvik Nordics ()"_s,
                 u"City: "_s,
                 u"Founded: 0"_s,
                 u"Colours: "_s,
                 u"Player entries: 4"_s,
                 u"History entries: 1"_s,
                 u"History sample:  2018  NDL 30 10-2-18 0:0 70:95 32 6 "_s,
                 u"Retired numbers: 0"_s,
                 u"Ret. no. sample: n/a"_s,
             }));
    // Each test keeps only its own record.
    QCOMPARE(window.dataInterface.teams.size(), 1);
    QCOMPARE(static_cast<EP_Team *>(window.dataInterface.teams.first())->teamName,
             u"Narvik Nordics"_s);
    QCOMPARE(EP_Team::playerUrls().count(), 4);
}

void TestEpTeamPasses::windowTestTeamPageWhileTheTeamPassWaits()
{
    // A download of three teams. Once the first team page is in, "Test Team Page"
    // is pressed while the pass waits for the second: the test frees the team
    // record the pass has made so far, and the pass goes on with its own list.
    routeTeams();
    const QString league = leagueUrl(u"testland-hockey-league"_s, u"2019-2020"_s);
    web.routeFile(league, u"ep/league_standings.html"_s);

    auto window = std::make_unique<MainWindow>();
    window->websiteBox->setCurrentIndex(EliteProspects);
    window->seasonBox->setValue(2019);
    window->downloadPlayerDetailsBox->setChecked(false);
    window->urlInput->setPlainText(u"testland-hockey-league"_s);

    int teamsBeforeTest = -1;
    QMetaObject::Connection once;
    once = connect(window->statusPanel->statusEdit, &QLineEdit::textChanged, window.get(),
                   [&](const QString &text) {
                       if (!text.contains(u"/team/101/"_s))
                           return;
                       disconnect(once);
                       QTimer::singleShot(0, window.get(), [&] {
                           teamsBeforeTest = int(window->dataInterface.teams.size());
                           answerNextFileDialog(fixturePath(u"ep/team_oldlink.html"_s));
                           window->testTeamButton->click();
                       });
                   });
    window->downloadButton->click();

    QCOMPARE(teamsBeforeTest, 1);
    QCOMPARE(web.requestedUrls(), FixtureWeb::canonicalUrls({league, oslo, bergen, tromso}));
    // The test's record, then the two teams that came in after it.
    QList<QString> names;
    for (DataWrapper *record : std::as_const(window->dataInterface.teams)) {
        auto *team = dynamic_cast<EP_Team *>(record);
        QVERIFY(team);
        names.append(team->teamName);
    }
    QCOMPARE(names, (QList<QString>{u"Stavanger Storm"_s, u"Bergen Bears"_s, u"Tromsø Tigers"_s}));
    const QStringList lines = logLines(window->logBox);
    QVERIFY(lines.contains(u"--- TESTING TEAM ROSTER WEBPAGE ---"_s));
    QVERIFY(lines.contains(u"Player entries: 6"_s));
    // The pass numbers its lines by the list as it now stands.
    QVERIFY(lines.contains(u"     2.\tBergen Bears                            \t     8 players"_s));
    QVERIFY(lines.contains(u"     3.\tTromsø Tigers                           \t     8 players"_s));
    QVERIFY(lines.contains(u"----- PROCESS COMPLETE -----"_s));
    QCOMPARE(EP_Team::playerUrls().count(), 8);
    QCOMPARE(EP_Team::playerUrls().entries.size(), 8);
}

QM_TEST_MAIN(TestEpTeamPasses)
#include "tst_epteampasses.moc"
