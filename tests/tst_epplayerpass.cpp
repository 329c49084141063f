#include "app/mainwindow.h"
#include "core/constants.h"
#include "core/datainterface.h"
#include "core/fetchtesting.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
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
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString skaterSlug = u"8001/mattias-ekstrom-lindqvist"_s;
const QString tremblaySlug = u"9102/jean-luc-tremblay"_s;
const QString missingSlug = u"404/missing-player"_s;
const QString goalkeeperSlug = u"5123/henrik-vesterinen"_s;

QString playerUrl(const QString &slug)
{
    return EP_ROOT_URL + u"/player/"_s + slug;
}

// A roster row as the team scanner hands it on; only the slug, the jersey, the
// team and the two flags matter to the player pass.
void addRow(PlayerPageList &list, const QString &slug, const QString &jersey, const QString &team,
            bool captain = false, bool alternate = false)
{
    list.addRosterEntry(slug, u"Roster Name"_s, u"1990-01-01"_s, u"180"_s, u"80"_s, u"D"_s, u"L"_s,
                        jersey, team, u"24/25"_s, captain, alternate);
}

// Two teams: the second roster names the first one's centre again, in capitals,
// and one player's page is gone.
void addTwoRosters(PlayerPageList &list)
{
    addRow(list, skaterSlug, u"27"_s, u"Fr\u00f6lunda HC"_s, true, false);
    addRow(list, tremblaySlug, u"91"_s, u"Fr\u00f6lunda HC"_s);
    addRow(list, missingSlug, u"5"_s, u"Fr\u00f6lunda HC"_s);
    addRow(list, goalkeeperSlug, u"31"_s, u"TPS"_s, false, true);
    addRow(list, tremblaySlug.toUpper(), u"19"_s, u"TPS"_s);
}

const QStringList twoRostersLog = {
    u"2 duplicate players(s) have been removed from the downloads list."_s,
    QString(),
    u"Downloading 5 player(s)"_s,
    u"     1.\tMattias Ekstr\u00f6m Lindqvist\tFr\u00f6lunda HC"_s,
    u"ERROR: Unable to access https://www.eliteprospects.com/player/404/missing-player."_s,
    u"     4.\tHenrik Vesterinen\tTPS"_s,
};

// The record after the pass: duplicate index, duplicate flag, names, team,
// jersey, status and the number of career rows.
QString summary(const DataWrapper *record)
{
    const auto *player = dynamic_cast<const EP_Player *>(record);
    if (!player)
        return u"<not a player>"_s;
    return u"%1|%2|%3|%4|%5|%6|%7|%8"_s.arg(player->duplicateIndex)
        .arg(int(player->isDuplicate))
        .arg(player->firstName, player->secondName, player->team)
        .arg(player->jersey)
        .arg(player->status)
        .arg(player->histories.size());
}

QStringList summaries(const QList<DataWrapper *> &records)
{
    QStringList lines;
    for (const DataWrapper *record : records)
        lines.append(summary(record));
    return lines;
}

const QStringList twoRostersRecords = {
    u"-1|0|Mattias|Ekstr\u00f6m Lindqvist|Fr\u00f6lunda HC|27|C|7"_s,
    u"-1|1|||Fr\u00f6lunda HC|91||0"_s,
    u"-1|0|||Fr\u00f6lunda HC|5||0"_s,
    u"-1|0|Henrik|Vesterinen|TPS|31|A|2"_s,
    // The first row of the slug wrote its index into this one before it was read.
    u"1|1|||TPS|19||0"_s,
};

} // namespace

class TestEpPlayerPass : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void readSide_data();
    void readSide();
    void readSideOfAnAddressList();
    void markDuplicate_data();
    void markDuplicate();
    void twoRosters();
    void threeRowsOfOneSlug();
    void emptyList();
    void withoutLogOutput();
    void plannerAnnouncesEveryRow();
    void recordsClearedAndListGrowsDuringWait();
    void testLeaguePagePressedDuringThePlayerPass();

private:
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    LogCapture log;
    std::unique_ptr<StatusDisplay> panel;
    QList<DataWrapper *> players;
    WindowSandbox sandbox;
};

void TestEpPlayerPass::initTestCase()
{
    QVERIFY(startFixtureHarness(sandbox, web));
    fast = std::make_unique<FastWaits>();
    panel = std::make_unique<StatusDisplay>();
}

void TestEpPlayerPass::init()
{
    setLogOutput(log.box());
    setStatusDisplay(panel.get());
    log->clear();
    resetFixtureWeb(web);
    FetchTesting::clearWaitsSeen();
    EP_PlayerHistory::lastYear = 0;
    clearSiteLists();

    web.routeFile(playerUrl(skaterSlug), u"ep/player_skater.html"_s);
    web.routeFile(playerUrl(tremblaySlug), u"ep/player_two_nations.html"_s);
    web.routeFile(playerUrl(goalkeeperSlug), u"ep/player_goalkeeper.html"_s);
    web.routeBody(playerUrl(missingSlug), "<html>gone</html>", 404);
}

void TestEpPlayerPass::cleanup()
{
    qDeleteAll(players);
    players.clear();
}

void TestEpPlayerPass::cleanupTestCase()
{
    setStatusDisplay(nullptr);
    EP_Team::playerUrls() = PlayerPageList();
}

void TestEpPlayerPass::readSide_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("duplicateIndex");
    QTest::addColumn<int>("jersey");
    QTest::addColumn<QString>("team");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("url");

    QTest::newRow("first") << 0 << -1 << 27 << u"Fr\u00f6lunda HC"_s << u"C"_s << skaterSlug;
    QTest::newRow("no status") << 1 << -1 << 91 << u"Fr\u00f6lunda HC"_s << QString()
                               << tremblaySlug;
    QTest::newRow("alternate") << 3 << -1 << 31 << u"TPS"_s << u"A"_s << goalkeeperSlug;
    QTest::newRow("last") << 4 << -1 << 19 << u"TPS"_s << QString() << tremblaySlug.toUpper();
    QTest::newRow("one beyond the end") << 5 << -1 << 0 << QString() << QString() << QString();
    QTest::newRow("far beyond the end") << 500 << -1 << 0 << QString() << QString() << QString();
    QTest::newRow("negative") << -1 << -1 << 0 << QString() << QString() << QString();
}

void TestEpPlayerPass::readSide()
{
    QFETCH(int, index);
    QFETCH(int, duplicateIndex);
    QFETCH(int, jersey);
    QFETCH(QString, team);
    QFETCH(QString, status);
    QFETCH(QString, url);

    PlayerPageList list;
    addTwoRosters(list);
    QCOMPARE(list.duplicateIndexAt(index), duplicateIndex);
    QCOMPARE(list.jerseyAt(index), qint16(jersey));
    QCOMPARE(list.teamAt(index), team);
    QCOMPARE(list.statusAt(index), status);
    QCOMPARE(list.urlAt(index), url);
    // Out of range, and where a row has none, the texts are null.
    QCOMPARE(list.teamAt(index).isNull(), team.isNull());
    QCOMPARE(list.statusAt(index).isNull(), status.isNull());
    QCOMPARE(list.urlAt(index).isNull(), url.isNull());
}

void TestEpPlayerPass::readSideOfAnAddressList()
{
    // A list of addresses alone has no roster rows: every row answers as one out
    // of range, but the address is there.
    PlayerPageList list;
    list.append(u"/a/profil/spieler/1"_s);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.urlAt(0), u"/a/profil/spieler/1"_s);
    QCOMPARE(list.duplicateIndexAt(0), -1);
    QCOMPARE(list.jerseyAt(0), qint16(0));
    QVERIFY(list.teamAt(0).isNull());
    QVERIFY(list.statusAt(0).isNull());

    list.clear();
    QCOMPARE(list.count(), 0);
    QVERIFY(list.entries.isEmpty());
}

void TestEpPlayerPass::markDuplicate_data()
{
    QTest::addColumn<QStringList>("slugs");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("result");
    QTest::addColumn<QList<int>>("duplicateIndexes");

    const QStringList pair{u"1/a"_s, u"2/b"_s, u"1/A"_s};
    QTest::newRow("first of a pair writes into the later row")
        << pair << 0 << true << QList<int>{-1, -1, 0};
    QTest::newRow("later of a pair writes into itself")
        << pair << 2 << true << QList<int>{-1, -1, 0};
    QTest::newRow("no match") << pair << 1 << false << QList<int>{-1, -1, -1};

    const QStringList three{u"x"_s, u"x"_s, u"x"_s};
    QTest::newRow("three: the first") << three << 0 << true << QList<int>{-1, 0, -1};
    // Looking back comes first, and the lowest match counts.
    QTest::newRow("three: the middle") << three << 1 << true << QList<int>{-1, 0, -1};
    QTest::newRow("three: the last") << three << 2 << true << QList<int>{-1, -1, 0};

    const QStringList gap{u"x"_s, u"y"_s, u"x"_s, u"x"_s};
    QTest::newRow("forward: the lowest later match")
        << gap << 0 << true << QList<int>{-1, -1, 0, -1};
    QTest::newRow("names play no part")
        << QStringList{u"1/jan-smith"_s, u"2/jan-smith"_s} << 0 << false << QList<int>{-1, -1};
    QTest::newRow("whole slugs only")
        << QStringList{u"1/a"_s, u"1/ab"_s} << 0 << false << QList<int>{-1, -1};
    QTest::newRow("out of range") << pair << 3 << false << QList<int>{-1, -1, -1};
    QTest::newRow("negative") << pair << -1 << false << QList<int>{-1, -1, -1};
}

void TestEpPlayerPass::markDuplicate()
{
    QFETCH(QStringList, slugs);
    QFETCH(int, index);
    QFETCH(bool, result);
    QFETCH(QList<int>, duplicateIndexes);

    PlayerPageList list;
    for (const QString &slug : slugs)
        addRow(list, slug, u"1"_s, u"Team"_s);
    QCOMPARE(list.markDuplicate(index), result);
    QList<int> indexes;
    for (int i = 0; i < slugs.size(); ++i)
        indexes.append(list.duplicateIndexAt(i));
    QCOMPARE(indexes, duplicateIndexes);
}

void TestEpPlayerPass::twoRosters()
{
    PlayerPageList list;
    addTwoRosters(list);
    QVERIFY(EP_Player::downloadPlayers(players, list));

    QCOMPARE(log.lines(), twoRostersLog);
    // No page for either row of the player on two rosters, whatever the letter case.
    QCOMPARE(
        web.requestedUrls(),
        QStringList({playerUrl(skaterSlug), playerUrl(missingSlug), playerUrl(goalkeeperSlug)}));
    QCOMPARE(summaries(players), twoRostersRecords);
    // The failed page paused once, and no page has a delay of its own.
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    // The list is emptied, both halves.
    QCOMPARE(list.count(), 0);
    QVERIFY(list.entries.isEmpty());
}

void TestEpPlayerPass::threeRowsOfOneSlug()
{
    PlayerPageList list;
    addRow(list, skaterSlug, u"1"_s, u"A"_s);
    addRow(list, skaterSlug, u"2"_s, u"B"_s);
    addRow(list, skaterSlug, u"3"_s, u"C"_s, true);
    QVERIFY(EP_Player::downloadPlayers(players, list));

    QCOMPARE(log.lines(),
             QStringList({u"3 duplicate players(s) have been removed from the downloads list."_s,
                          QString(), u"Downloading 3 player(s)"_s}));
    QVERIFY(web.requests().isEmpty());
    // Each row's index is read before its own search writes into a later row.
    QCOMPARE(summaries(players),
             QStringList({u"-1|1|||A|1||0"_s, u"0|1|||B|2||0"_s, u"-1|1|||C|3|C|0"_s}));
}

void TestEpPlayerPass::emptyList()
{
    PlayerPageList list;
    QVERIFY(EP_Player::downloadPlayers(players, list));
    QCOMPARE(log.lines(), QStringList({QString(), u"Downloading 0 player(s)"_s}));
    QVERIFY(players.isEmpty());
    QVERIFY(web.requests().isEmpty());
}

void TestEpPlayerPass::withoutLogOutput()
{
    setLogOutput(nullptr);
    PlayerPageList list;
    addTwoRosters(list);
    const bool result = EP_Player::downloadPlayers(players, list);
    setLogOutput(log.box());

    QVERIFY(result);
    QCOMPARE(summaries(players), twoRostersRecords);
    QVERIFY(log->toPlainText().isEmpty());
}

void TestEpPlayerPass::plannerAnnouncesEveryRow()
{
    // A run with no league address: the league and team passes find nothing,
    // and the player pass works through the rosters left from before.
    addTwoRosters(EP_Team::playerUrls());
    DataInterface planner;
    QSignalSpy announced(&planner, &DataInterface::pageCountIncreased);
    QStringList urls;
    QVERIFY(planner.startDownload(EliteProspects, urls, true));

    // Every row is announced, duplicates too: five pages planned, three fetched.
    QCOMPARE(announced.size(), 3);
    QCOMPARE(announced.at(0).at(0).toInt(), 0);
    QCOMPARE(announced.at(1).at(0).toInt(), 0);
    QCOMPARE(announced.at(2).at(0).toInt(), 5);
    QCOMPARE(web.requests().size(), 3);
    QCOMPARE(summaries(planner.players), twoRostersRecords);
    QCOMPARE(EP_Team::playerUrls().count(), 0);
    const QStringList lines = log.lines();
    QCOMPARE(lines.mid(lines.size() - twoRostersLog.size()), twoRostersLog);

    // Without player details the rosters stay for the next run.
    addRow(EP_Team::playerUrls(), skaterSlug, u"1"_s, u"A"_s);
    web.clearRequests();
    announced.clear();
    QVERIFY(planner.startDownload(EliteProspects, urls, false));
    QVERIFY(planner.players.isEmpty());
    QCOMPARE(EP_Team::playerUrls().count(), 1);
    QCOMPARE(announced.size(), 2);
    QVERIFY(web.requests().isEmpty());
}

void TestEpPlayerPass::recordsClearedAndListGrowsDuringWait()
{
    PlayerPageList list;
    addRow(list, skaterSlug, u"27"_s, u"A"_s);
    addRow(list, goalkeeperSlug, u"31"_s, u"B"_s);
    addRow(list, tremblaySlug, u"91"_s, u"C"_s);

    // What the test buttons can do while the pass waits for its first page: clear
    // the records, and add a team's roster to the list being worked through. The
    // page stays unanswered until that is done; a second request would be
    // answered at once and fail the test below.
    FixtureWeb::Answer answer;
    answer.body = fixtureBytes(u"ep/player_skater.html"_s);
    FixtureWeb::Answer held = answer;
    held.hold = true;
    web.routeSequence(playerUrl(skaterSlug), {held, answer});

    bool done = false;
    QObject thisTest;
    web.whenRequested(QString(), &thisTest, [&] {
        done = true;
        qDeleteAll(players);
        players.clear();
        addRow(list, u"7/late"_s, u"7"_s, u"D"_s);
        web.releaseHeld();
    });
    QVERIFY(EP_Player::downloadPlayers(players, list));

    QVERIFY(done);
    // The records were gone: nothing was scanned or logged for them, and no
    // further page was asked for.
    QCOMPARE(web.requestedUrls(), QStringList({playerUrl(skaterSlug)}));
    QCOMPARE(log.lines(), QStringList({QString(), u"Downloading 3 player(s)"_s}));
    QVERIFY(players.isEmpty());
    // The rows added meanwhile go with the rest.
    QCOMPARE(list.count(), 0);
}

void TestEpPlayerPass::testLeaguePagePressedDuringThePlayerPass()
{
    // The run's league page holds no team, so the player pass works through the
    // rows left from before. Once the first player page is in, "Test League
    // Page" is pressed while the pass waits for the second: it frees every record
    // the pass has made. Under the sanitizers, nothing may touch freed memory.
    const QString league = EP_ROOT_URL + u"/league/test-league"_s;
    web.routeBody(league + u"?team-history=complete#team-history"_s,
                  "<html><title>Elite Prospects - Test League</title></html>");
    addRow(EP_Team::playerUrls(), skaterSlug, u"27"_s, u"A"_s);
    addRow(EP_Team::playerUrls(), goalkeeperSlug, u"31"_s, u"B"_s);
    addRow(EP_Team::playerUrls(), tremblaySlug, u"91"_s, u"C"_s);
    const QString saved = sandbox.filePath(u"league-during-run.html"_s);
    {
        QFile file(saved);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<html><title>Elite Prospects - Saved League</title></html>");
    }

    MainWindow window;
    window.websiteBox->setCurrentIndex(EliteProspects);
    window.seasonBox->setValue(0);
    window.downloadPlayerDetailsBox->setChecked(true);
    window.urlInput->setPlainText(league);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    int playersBeforeTest = -1;
    QMetaObject::Connection once;
    once = connect(window.statusPanel->statusEdit, &QLineEdit::textChanged, &window,
                   [&](const QString &status) {
                       if (!status.contains(u"/player/"_s))
                           return;
                       disconnect(once);
                       QTimer::singleShot(0, &window, [&] {
                           playersBeforeTest = int(window.dataInterface.players.size());
                           answerNextFileDialog(saved);
                           window.testLeagueButton->click();
                       });
                   });
    window.downloadButton->click();

    QCOMPARE(playersBeforeTest, 3);
    QCOMPARE(pendingDialogAnswers(), 0);
    QVERIFY(window.logBox->toPlainText().contains(u"----- PROCESS COMPLETE -----"_s));
    // The test's league record is all that is left; the pass made no more.
    QCOMPARE(window.dataInterface.leagues.size(), 1);
    QVERIFY(dynamic_cast<EP_League *>(window.dataInterface.leagues.first()));
    QVERIFY(window.dataInterface.players.isEmpty());
    QCOMPARE(web.requestCount(playerUrl(skaterSlug)), 1);
    QCOMPARE(web.requestCount(playerUrl(goalkeeperSlug)), 1);
    QCOMPARE(web.requestCount(playerUrl(tremblaySlug)), 0);
    QCOMPARE(EP_Team::playerUrls().count(), 0);

    // Save As still writes the files of what is left.
    answerNextFileDialog(sandbox.filePath(u"after.csv"_s));
    window.saveButton->click();
    QVERIFY(QFile::exists(sandbox.filePath(u"after_players.csv"_s)));
    QVERIFY(QFile::exists(sandbox.filePath(u"after_player_histories.csv"_s)));
    window.logBox->clear();
}

QM_TEST_MAIN(TestEpPlayerPass)
#include "tst_epplayerpass.moc"
