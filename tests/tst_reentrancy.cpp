#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/website.h"
#include "proxy/proxy.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/fmdsite.h"
#include "tests/support/harness.h"
#include "tests/support/harvestsite.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// Every control that stays live during a run, pressed while a pass stands still
// in the fetcher's wait for a page: the two test buttons (which free the
// records the run is filling), the proxy's "Test" (a fetch inside the fetch),
// the season box, the website box, the text format, the option boxes, and the
// test buttons once more with the options changed. Nothing may fault, and the
// run ends as any other.
namespace {

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

const QString leagueUrl = HarvestSite::leagueUrl();
const QString alphaPath = HarvestSite::alphaPath();
const QString smithProfilePath = HarvestSite::smithProfilePath();
const QString smithHistoryPath = HarvestSite::smithHistoryPath();
const QByteArray echoedAddress = "203.0.113.7"_ba;

} // namespace

class TestReentrancy : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void pressEveryLiveControlWhileAPassWaits_data();
    void pressEveryLiveControlWhileAPassWaits();

private:
    void pressEverything(MainWindow &window, const QString &leaguePage, const QString &teamPage);

    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
};

void TestReentrancy::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
}

void TestReentrancy::init()
{
    HarvestSite::startAfresh(web);
    EpHarvestSite::route(web);
    FmdSite::route(web);
    fast = std::make_unique<FastWaits>();
    web.routeBody(IP_ECHO_URL, echoedAddress);
}

void TestReentrancy::cleanup()
{
    fast.reset();
    web.releaseHeld();
    QCOMPARE(pendingDialogAnswers(), 0);
}

void TestReentrancy::pressEverything(MainWindow &window, const QString &leaguePage,
                                     const QString &teamPage)
{
    auto testButton = [](QPushButton *button, const QString &fixture) {
        answerNextFileDialog(fixturePath(fixture));
        QTest::mouseClick(button, Qt::LeftButton);
    };
    // Pages of the run's own site first.
    testButton(window.testLeagueButton, leaguePage);
    testButton(window.testTeamButton, teamPage);

    // The proxy's test sets the fixture's own proxy again, so the run's later
    // pages still reach the fixture web.
    window.proxy->enabledBox->setChecked(true);
    window.proxy->hostEdit->setText(u"127.0.0.1"_s);
    window.proxy->portEdit->setText(QString::number(web.proxyPort()));
    QTest::mouseClick(window.proxy->testButton, Qt::LeftButton);

    window.seasonBox->setValue(2019);
    window.utfButton->setChecked(true);
    window.downloadPlayerDetailsBox->setChecked(false);
    window.includeOlympicStatsBox->setChecked(true);
    window.includePlayerDataBox->setChecked(false);
    window.includePlayerHistoryBox->setChecked(true);

    // The tests copy the changed options into the running pass, and run the
    // scanners of other sites on top of it.
    testButton(window.testLeagueButton, u"tfm/league_clublinks.html"_s);
    window.websiteBox->setCurrentIndex(EliteProspects);
    testButton(window.testTeamButton, u"tfm/harvest_team_alpha.html"_s);
    testButton(window.testLeagueButton, u"tfm/harvest_league.html"_s);
    window.websiteBox->setCurrentIndex(FMDataba);
    testButton(window.testTeamButton, u"tfm/harvest_team_alpha.html"_s);
    testButton(window.testLeagueButton, u"tfm/harvest_league.html"_s);
    window.websiteBox->setCurrentIndex(TransferMarkt);
    window.includePlayerDataBox->setChecked(true);
    testButton(window.testTeamButton, u"tfm/harvest_team_beta.html"_s);
}

void TestReentrancy::pressEveryLiveControlWhileAPassWaits_data()
{
    QTest::addColumn<int>("website");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("heldPage");
    QTest::addColumn<QString>("heldFixture");
    QTest::addColumn<bool>("history");
    // The pages the test buttons open first: the run's site's own.
    QTest::addColumn<QString>("leaguePage");
    QTest::addColumn<QString>("teamPage");

    const QString tfmLeague = u"tfm/harvest_league.html"_s;
    const QString tfmTeam = u"tfm/harvest_team_beta.html"_s;
    const QString tfm = HarvestSite::leagueAddress();
    QTest::newRow("Transfer Markt league pass")
        << int(TransferMarkt) << tfm << leagueUrl << tfmLeague << false << tfmLeague << tfmTeam;
    QTest::newRow("Transfer Markt team pass")
        << int(TransferMarkt) << tfm << site(alphaPath) << u"tfm/harvest_team_alpha.html"_s << false
        << tfmLeague << tfmTeam;
    QTest::newRow("Transfer Markt player pass")
        << int(TransferMarkt) << tfm << site(smithProfilePath) << u"tfm/harvest_player_smith.html"_s
        << false << tfmLeague << tfmTeam;
    QTest::newRow("Transfer Markt history pass")
        << int(TransferMarkt) << tfm << site(smithHistoryPath)
        << u"tfm/harvest_history_smith.html"_s << true << tfmLeague << tfmTeam;

    const QString epLeague = u"ep/harvest_league.html"_s;
    const QString epTeam = u"ep/harvest_team_sudet.html"_s;
    const QString ep = EpHarvestSite::leagueAddress();
    QTest::newRow("Elite Prospects league pass")
        << int(EliteProspects) << ep << EpHarvestSite::leagueUrl() << epLeague << false << epLeague
        << epTeam;
    QTest::newRow("Elite Prospects team pass")
        << int(EliteProspects) << ep << EpHarvestSite::karhutUrl()
        << u"ep/harvest_team_karhut.html"_s << false << epLeague << epTeam;
    QTest::newRow("Elite Prospects player pass")
        << int(EliteProspects) << ep << EpHarvestSite::skaterUrl() << u"ep/player_skater.html"_s
        << false << epLeague << epTeam;

    const QString fmdList = u"fmd/list_middle.html"_s;
    const QString fmd = FmdSite::listUrl(u"best-players"_s);
    QTest::newRow("FMDataba list walk")
        << int(FMDataba) << fmd << FmdSite::listUrl(u"best-players/1"_s) << fmdList << false
        << fmdList << u"fmd/list_first.html"_s;
    QTest::newRow("FMDataba player pass")
        << int(FMDataba) << fmd << FmdSite::playerUrl(1001, u"jan-smith"_s)
        << u"fmd/profile_field.html"_s << false << fmdList << u"fmd/list_first.html"_s;
}

void TestReentrancy::pressEveryLiveControlWhileAPassWaits()
{
    QFETCH(int, website);
    QFETCH(QString, input);
    QFETCH(QString, heldPage);
    QFETCH(QString, heldFixture);
    QFETCH(bool, history);
    QFETCH(QString, leaguePage);
    QFETCH(QString, teamPage);

    // The page stays unanswered until every control has been pressed.
    // Only the first request waits: the FMDataba player pass walks on through
    // what the tests add to its list, and so asks for the page again.
    FixtureWeb::Answer answer;
    answer.body = fixtureBytes(heldFixture);
    FixtureWeb::Answer held = answer;
    held.hold = true;
    web.routeSequence(heldPage, {held, answer});

    MainWindow window;
    window.websiteBox->setCurrentIndex(website);
    window.seasonBox->setValue(2023);
    window.asciiButton->setChecked(true);
    window.downloadPlayerDetailsBox->setChecked(true);
    window.includePlayerDataBox->setChecked(true);
    window.includePlayerHistoryBox->setChecked(history);
    window.includeOlympicStatsBox->setChecked(false);
    window.urlInput->setPlainText(input);

    bool pressed = false;
    web.whenRequested(heldPage, &window, [&] {
        pressed = true;
        pressEverything(window, leaguePage, teamPage);
        web.releaseHeld();
    });
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);

    QVERIFY(pressed);
    QVERIFY(web.requestCount(heldPage) >= 1);
    const QStringList lines = logLines(window.logBox);
    QCOMPARE(lines.mid(lines.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    QVERIFY(lines.contains(u"--- TESTING LEAGUE WEBPAGE ---"_s));
    QVERIFY(lines.count(u"--- TESTING TEAM ROSTER WEBPAGE ---"_s) >= 2);
    QVERIFY(lines.contains(u"Your IP address: "_s + QString::fromLatin1(echoedAddress)));
    // The run ends in the finished state, whatever the tests did on the way.
    QVERIFY(!window.downloadButton->isEnabled());
    QVERIFY(window.saveButton->isEnabled());

    // Whatever the records are now, Save As writes them; the last test was one
    // of Transfer Markt, and so is the export.
    QVERIFY(
        saveThroughWindow(window, sandbox.filePath(u"after.csv"_s)).startsWith("\xef\xbb\xbfId\t"));
}

QM_TEST_MAIN(TestReentrancy)
#include "tst_reentrancy.moc"
