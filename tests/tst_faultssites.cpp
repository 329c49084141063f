#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/website.h"
#include "tests/support/dialogs.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/fmdsite.h"
#include "tests/support/harness.h"
#include "tests/support/harvestsite.h"
#include "tests/support/networkfaults.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tests/support/windowsandbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The network faults of the Transfer Markt drills, on one page of each pass of
// the Elite Prospects and FMDataba harvests. Each run is held to the same run
// without the fault: a page that fails adds exactly its pass's error line for
// that address, a page that is odd but whole adds none, the run ends with its
// last line, exactly the players that hung on the page are missing, and Save As
// writes the others.
namespace {

enum class Site { EliteProspects, FMDataba };
// A page fails (an error line, and the players that hang on it are lost), is
// taken in whole (nothing changes), or is read but holds nothing of the site's
// (no error line, and the players that the page would have listed are lost).
enum class Outcome { Fails, TakenIn, ReadAsEmpty };

QString ep(const QString &path)
{
    return EP_ROOT_URL + path;
}

// One page of a pass that the fault hits: the address the pass asks for, what
// its error line names, the fixture it stands for, the page requested just
// before it (for a certificate shown to the faulty page's connection alone), and
// the players the harvest loses when the page fails or is read empty.
struct FaultyPage
{
    Site site;
    QString url;
    QString named;
    QString fixture;
    QString before;
    qsizetype lostWhenFailed = 0;
    qsizetype lostWhenEmpty = 0;
};

// What becomes of the faulty page.
Outcome outcomeOf(NetworkFault fault)
{
    switch (fault) {
    case NetworkFault::FiftyMegabytes:
        return Outcome::ReadAsEmpty;
    case NetworkFault::InvalidUtf8:
    case NetworkFault::ByteOrderMark:
        return Outcome::TakenIn;
    default:
        return Outcome::Fails;
    }
}

} // namespace

Q_DECLARE_METATYPE(Site)
Q_DECLARE_METATYPE(Outcome)
Q_DECLARE_METATYPE(FaultyPage)

class TestFaultsSites : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void faultyPage_data();
    void faultyPage();

private:
    struct Run
    {
        QStringList log;
        qsizetype players = 0;
        QByteArray saved;
    };
    Run harvest(Site site);

    WindowSandbox sandbox;
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
};

void TestFaultsSites::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
}

void TestFaultsSites::init()
{
    HarvestSite::startAfresh(web);
    EpHarvestSite::route(web);
    FmdSite::route(web);
    fast = std::make_unique<FastWaits>();
}

void TestFaultsSites::cleanup()
{
    fast.reset();
    QCOMPARE(pendingDialogAnswers(), 0);
}

// One harvest through the window, then Save As: the log, the player records and
// the players' file.
TestFaultsSites::Run TestFaultsSites::harvest(Site site)
{
    clearSiteLists();
    web.clearRequests();

    MainWindow window;
    window.websiteBox->setCurrentIndex(site == Site::EliteProspects ? EliteProspects : FMDataba);
    window.seasonBox->setValue(2023);
    window.downloadPlayerDetailsBox->setChecked(true);
    window.asciiButton->setChecked(true);
    window.urlInput->setPlainText(site == Site::EliteProspects
                                      ? ep(u"/league/faulty-liiga\n"_s)
                                          + EpHarvestSite::leagueAddress()
                                      : FmdSite::listUrl(u"best-players"_s));
    QTest::mouseClick(window.downloadButton, Qt::LeftButton);

    Run run;
    run.log = logLines(window.logBox);
    run.players = window.dataInterface.players.size();
    const QString chosen = sandbox.filePath(u"drill.csv"_s);
    const QString players
        = site == Site::EliteProspects ? sandbox.filePath(u"drill_players.csv"_s) : chosen;
    QFile::remove(players);
    saveThroughWindow(window, chosen);
    QFile file(players);
    if (file.open(QIODevice::ReadOnly))
        run.saved = file.readAll();
    return run;
}

void TestFaultsSites::faultyPage_data()
{
    QTest::addColumn<FaultyPage>("page");
    QTest::addColumn<FaultyAnswer>("fault");
    QTest::addColumn<Outcome>("outcome");

    // The first league address of the Elite Prospects input is one of its own.
    const QString faultyLeague = ep(u"/league/faulty-liiga/2023-2024?team-history=complete"_s);
    const QList<QPair<FaultyPage, const char *>> pages = {
        // The same league page stands second in the input, so its teams come anyway.
        {{Site::EliteProspects, faultyLeague, faultyLeague, u"ep/harvest_league.html"_s, {}, 0, 0},
         "Elite Prospects league"},
        // Three of the seven players stand on the Karhut roster alone.
        {{Site::EliteProspects, ep(u"/team/101/kiekko-karhut/2023-2024"_s),
          ep(u"/team/101/kiekko-karhut/2023-2024"_s), u"ep/harvest_team_karhut.html"_s,
          ep(u"/league/test-liiga/2023-2024?team-history=complete"_s), 3, 3},
         "Elite Prospects team"},
        // The record comes from the roster row; the player page only fills it in.
        {{Site::EliteProspects, ep(u"/player/5123/henrik-vesterinen"_s),
          ep(u"/player/5123/henrik-vesterinen"_s), u"ep/player_goalkeeper.html"_s,
          ep(u"/player/404/missing-player"_s), 0, 0},
         "Elite Prospects player"},
        // The walk ends at the faulty page: its new player and the last page's two.
        {{Site::FMDataba, FmdSite::listUrl(u"best-players/1"_s),
          FmdSite::listUrl(u"best-players/1"_s), u"fmd/list_middle.html"_s,
          FmdSite::listUrl(u"best-players"_s), 3, 3},
         "FMDataba list walk"},
        // A profile that fails makes no record; one read empty makes an empty one.
        {{Site::FMDataba, FmdSite::playerUrl(1002, u"tom-keeper"_s),
          FmdSite::playerUrl(1002, u"tom-keeper"_s), u"fmd/profile_goalkeeper.html"_s,
          FmdSite::playerUrl(1001, u"jan-smith"_s), 1, 0},
         "FMDataba player"},
    };
    for (const auto &[page, name] : pages) {
        for (const FaultyAnswer &fault : faultyAnswers(fixtureBytes(page.fixture), page.url)) {
            QTest::newRow(
                qPrintable(u"%1: %2"_s.arg(QLatin1StringView(name), QLatin1StringView(fault.name))))
                << page << fault << outcomeOf(fault.fault);
        }
    }
}

void TestFaultsSites::faultyPage()
{
    QFETCH(FaultyPage, page);
    QFETCH(FaultyAnswer, fault);
    QFETCH(Outcome, outcome);

    // Without the fault, the page is the fixture it stands for.
    web.routeFile(page.url, page.fixture);
    const Run plain = harvest(page.site);
    QVERIFY(plain.players > 0);

    putFault(web, page.url, fault, 1, page.before);
    const Run faulty = harvest(page.site);

    QCOMPARE(faulty.log.mid(faulty.log.size() - 3),
             (QStringList{u"----- PROCESS COMPLETE -----"_s, QString(), QString()}));
    QStringList added = errorLines(faulty.log);
    for (const QString &line : errorLines(plain.log))
        added.removeOne(line);
    qsizetype lost = 0;
    if (outcome == Outcome::Fails) {
        QCOMPARE(added.size(), 1);
        QVERIFY2(added.first().startsWith(u"ERROR: Unable to access "_s + page.named),
                 qPrintable(added.first()));
        lost = page.lostWhenFailed;
    } else {
        QVERIFY2(added.isEmpty(), qPrintable(added.join(u'\n')));
        if (outcome == Outcome::ReadAsEmpty)
            lost = page.lostWhenEmpty;
    }
    if (fault.untrusted)
        QCOMPARE(web.requestCount(page.url), 0);

    // The records of the other pages stay, and Save As writes them, a line each.
    QCOMPARE(faulty.players, plain.players - lost);
    QVERIFY(faulty.saved.startsWith("\xef\xbb\xbf"));
    QCOMPARE(faulty.saved.count('\n'), plain.saved.count('\n') - lost);
    if (outcome == Outcome::TakenIn)
        QCOMPARE(faulty.saved, plain.saved);
}

QM_TEST_MAIN(TestFaultsSites)
#include "tst_faultssites.moc"
