#include "core/constants.h"
#include "core/fetchtesting.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "status/statusdisplay.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"
#include "tfm/tfmplayer.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString smithPath = u"/jan-smith/profil/spieler/12345"_s;
const QString edersonPath = u"/ederson/profil/spieler/4711"_s;
const QString gomezPath = u"/carlos-gomez/profil/spieler/777"_s;
const QString smithHistoryPath = u"/jan-smith/detaillierteleistungsdaten/spieler/12345"_s;
const QString edersonHistoryPath = u"/ederson/detaillierteleistungsdaten/spieler/4711"_s;
const QString gomezHistoryPath = u"/carlos-gomez/detaillierteleistungsdaten/spieler/777"_s;

QString site(const QString &path)
{
    return TFM_ROOT_URL + path;
}

// What a record looked like after the pass, in one comparable line.
QString summary(const DataWrapper *record)
{
    const auto *player = dynamic_cast<const TFM_Player *>(record);
    if (!player)
        return u"<not a player>"_s;
    return u"%1|%2|%3|%4|%5|%6|%7|%8"_s.arg(player->id, player->nameInUrl, player->firstName,
                                            player->secondName, player->commonName,
                                            player->dateOfBirth.toString(u"dd.MM.yyyy"_s),
                                            player->club, QString::number(player->history.size()));
}

QStringList summaries(const QList<DataWrapper *> &records)
{
    QStringList lines;
    for (const DataWrapper *record : records)
        lines.append(summary(record));
    return lines;
}

QString announcement(int data, int history)
{
    return u"Downloading %1 player data page(s) and %2 player history page(s). Total page(s): %3"_s
        .arg(data)
        .arg(history)
        .arg(data + history);
}

} // namespace

class TestTfmPlayerLoop : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void modes_data();
    void modes();
    void failedDataPage();
    void failedDataPageInTheMiddle();
    void failedHistoryPage();
    void interval();
    void pathRules_data();
    void pathRules();
    void emptyList();
    void nullLog();
    void listGrowsAndRecordsClearedDuringWait();

private:
    FixtureWeb web;
    std::unique_ptr<FastWaits> fast;
    LogCapture log;
    std::unique_ptr<StatusDisplay> panel;
    QList<DataWrapper *> players;
};

void TestTfmPlayerLoop::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(web.start());
    fast = std::make_unique<FastWaits>();
    panel = std::make_unique<StatusDisplay>();
    setStatusDisplay(panel.get());
}

void TestTfmPlayerLoop::init()
{
    setIncludePlayerData(true);
    setIncludePlayerHistory(false);
    setIncludeOlympicStats(false);
    log->clear();
    resetFixtureWeb(web);
    FetchTesting::clearWaitsSeen();

    web.routeFile(site(smithPath), u"tfm/harvest_player_smith.html"_s);
    web.routeFile(site(edersonPath), u"tfm/harvest_player_ederson.html"_s);
    web.routeFile(site(gomezPath), u"tfm/harvest_player_gomez.html"_s);
    web.routeFile(site(smithHistoryPath), u"tfm/harvest_history_smith.html"_s);
    web.routeFile(site(edersonHistoryPath), u"tfm/harvest_history_ederson.html"_s);
    web.routeFile(site(gomezHistoryPath), u"tfm/harvest_history_gomez.html"_s);
}

void TestTfmPlayerLoop::cleanup()
{
    qDeleteAll(players);
    players.clear();
}

void TestTfmPlayerLoop::cleanupTestCase()
{
    setStatusDisplay(nullptr);
    setIncludePlayerData(true);
    setIncludePlayerHistory(false);
}

void TestTfmPlayerLoop::modes_data()
{
    QTest::addColumn<bool>("data");
    QTest::addColumn<bool>("history");
    QTest::addColumn<QStringList>("expectedLog");
    QTest::addColumn<QStringList>("requests");
    QTest::addColumn<QStringList>("records");
    QTest::addColumn<QList<int>>("waits");

    const QString smithData = u"12345|jan-smith|Jan|Smith||04.03.1995|FC Alpha|"_s;
    const QString edersonData = u"4711|ederson|||Ederson|17.08.1993|FC Alpha|"_s;
    const QString gomezData = u"777|carlos-gomez|Carlos|G\u00f3mez||"_s;

    QTest::newRow("data only") << true << false
                               << QStringList{QString(), announcement(3, 0),
                                              u"     1.\tJan Smith player data"_s,
                                              u"     2.\tEderson player data"_s,
                                              u"     3.\tCarlos G\u00f3mez player data"_s}
                               << QStringList{site(smithPath), site(edersonPath), site(gomezPath)}
                               << QStringList{smithData + u'0', edersonData + u'0',
                                              gomezData + u"|FC Beta|0"_s}
                               << QList<int>{7, 7, 7};
    QTest::newRow("data and history")
        << true << true
        << QStringList{QString(),
                       announcement(3, 3),
                       u"     1.\tJan Smith player data"_s,
                       u"     2.\tJan Smith player history"_s,
                       u"     3.\tEderson player data"_s,
                       u"     4.\tEderson player history"_s,
                       u"     5.\tCarlos G\u00f3mez player data"_s,
                       u"     6.\tCarlos G\u00f3mez player history"_s}
        << QStringList{site(smithPath),          site(smithHistoryPath), site(edersonPath),
                       site(edersonHistoryPath), site(gomezPath),        site(gomezHistoryPath)}
        // The date of birth that the profile lacks comes from the history page.
        << QStringList{smithData + u'2', edersonData + u'0', gomezData + u"31.12.2001|FC Beta|1"_s}
        << QList<int>{7, 7, 7};
    // No data page: no id, no address name and the history page's name as common name.
    QTest::newRow("history only") << false << true
                                  << QStringList{QString(), announcement(0, 3),
                                                 u"     1.\tJan Smith player history"_s,
                                                 u"     2.\tEderson player history"_s,
                                                 u"     3.\tCarlos G\u00f3mez player history"_s}
                                  << QStringList{site(smithHistoryPath), site(edersonHistoryPath),
                                                 site(gomezHistoryPath)}
                                  << QStringList{u"||||Jan Smith|04.03.1995||2"_s,
                                                 u"||||Ederson|17.08.1993||0"_s,
                                                 u"||||Carlos G\u00f3mez|31.12.2001||1"_s}
                                  << QList<int>{};
    // With both options off the pass fetches the data pages all the same.
    QTest::newRow("both off") << false << false
                              << QStringList{QString(), announcement(3, 0),
                                             u"     1.\tJan Smith player data"_s,
                                             u"     2.\tEderson player data"_s,
                                             u"     3.\tCarlos G\u00f3mez player data"_s}
                              << QStringList{site(smithPath), site(edersonPath), site(gomezPath)}
                              << QStringList{smithData + u'0', edersonData + u'0',
                                             gomezData + u"|FC Beta|0"_s}
                              << QList<int>{7, 7, 7};
}

void TestTfmPlayerLoop::modes()
{
    QFETCH(bool, data);
    QFETCH(bool, history);
    QFETCH(QStringList, expectedLog);
    QFETCH(QStringList, requests);
    QFETCH(QStringList, records);
    QFETCH(QList<int>, waits);
    setIncludePlayerData(data);
    setIncludePlayerHistory(history);

    PlayerPageList list;
    list.append(smithPath);
    list.append(edersonPath);
    list.append(gomezPath);
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    QCOMPARE(log.lines(), expectedLog);
    QCOMPARE(web.requestedUrls(), requests);
    QCOMPARE(summaries(players), records);
    // A data page waits 7 seconds; a history page has no delay.
    QCOMPARE(FetchTesting::waitsSeen(), waits);
    // The list itself is not touched.
    QCOMPARE(list.urls, QStringList({smithPath, edersonPath, gomezPath}));
}

void TestTfmPlayerLoop::failedDataPage()
{
    setIncludePlayerHistory(true);
    FixtureWeb::Answer failure;
    failure.status = 500;
    failure.body = "<html>Internal error</html>";
    web.route(site(smithPath), failure);

    PlayerPageList list;
    list.append(smithPath);
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    // Ten attempts, each with its delay and its pause; no history page follows.
    QCOMPARE(web.requestCount(site(smithPath)), 10);
    QCOMPARE(web.requestCount(site(smithHistoryPath)), 0);
    QCOMPARE(web.requests().size(), 10);
    QList<int> waits;
    for (int attempt = 0; attempt < 10; ++attempt)
        waits << 7 << 30;
    QCOMPARE(FetchTesting::waitsSeen(), waits);

    QVERIFY(players.isEmpty());
    const QStringList lines = log.lines();
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(1), announcement(1, 1));
    // The error text is the network layer's own description of the last reply.
    QCOMPARE(lines.at(2),
             u"ERROR: Unable to access "_s + smithPath + u": Error transferring "_s
                 + site(smithPath) + u" - server replied: Internal Server Error"_s);
}

void TestTfmPlayerLoop::failedDataPageInTheMiddle()
{
    setIncludePlayerHistory(true);
    web.routeBody(site(edersonPath), "<html>gone</html>", 404);

    PlayerPageList list;
    list.append(smithPath);
    list.append(edersonPath);
    list.append(gomezPath);
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    const QStringList lines = log.lines();
    QCOMPARE(lines.size(), 7);
    QCOMPARE(lines.at(1), announcement(3, 3));
    QCOMPARE(lines.at(2), u"     1.\tJan Smith player data"_s);
    QCOMPARE(lines.at(3), u"     2.\tJan Smith player history"_s);
    QVERIFY2(lines.at(4).startsWith(u"ERROR: Unable to access "_s + edersonPath + u": "_s),
             qPrintable(lines.at(4)));
    // The numbers go on from where they were: a failed data page is not counted.
    QCOMPARE(lines.at(5), u"     3.\tCarlos G\u00f3mez player data"_s);
    QCOMPARE(lines.at(6), u"     4.\tCarlos G\u00f3mez player history"_s);

    QCOMPARE(players.size(), 2);
    QCOMPARE(summary(players.at(0)).section(u'|', 0, 0), u"12345"_s);
    QCOMPARE(summary(players.at(1)).section(u'|', 0, 0), u"777"_s);
    QCOMPARE(web.requestCount(site(edersonPath)), 10);
    QCOMPARE(web.requestCount(site(edersonHistoryPath)), 0);
}

void TestTfmPlayerLoop::failedHistoryPage()
{
    setIncludePlayerHistory(true);
    web.routeBody(site(smithHistoryPath), QByteArray(), 404);

    PlayerPageList list;
    list.append(smithPath);
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    QCOMPARE(log.lines(),
             QStringList({QString(), announcement(1, 1), u"     1.\tJan Smith player data"_s,
                          u"ERROR: Unable to access "_s + smithHistoryPath,
                          u"     2.\tJan Smith player history"_s}));
    // Tried once, with no pause before it; the player stays without rows.
    QCOMPARE(web.requestCount(site(smithHistoryPath)), 1);
    QCOMPARE(summaries(players),
             QStringList({u"12345|jan-smith|Jan|Smith||04.03.1995|FC Alpha|0"_s}));
}

void TestTfmPlayerLoop::interval()
{
    setIncludePlayerHistory(true);
    // The site sends the filler name on to the player's real address.
    web.routeRedirect(site(u"/name/profil/spieler/12345"_s), site(smithPath), 301);
    web.routeRedirect(site(u"/name/detaillierteleistungsdaten/spieler/12345"_s),
                      site(smithHistoryPath), 301);

    PlayerPageList list;
    list.append(u"/name/profil/spieler/12345"_s);
    QVERIFY(TFM_Player::downloadPlayers(players, list, true));

    QCOMPARE(web.requestedUrls(),
             QStringList({site(u"/name/profil/spieler/12345"_s), site(smithPath),
                          site(u"/name/detaillierteleistungsdaten/spieler/12345"_s),
                          site(smithHistoryPath)}));
    QCOMPARE(log.lines(),
             QStringList({QString(), announcement(1, 1), u"     1.\tJan Smith player data"_s,
                          u"     2.\tJan Smith player history"_s}));
    // The id comes from the path that was asked for; the filler is no name.
    QCOMPARE(summaries(players), QStringList({u"12345||Jan|Smith||04.03.1995|FC Alpha|2"_s}));
}

void TestTfmPlayerLoop::pathRules_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("historyPath");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("nameInUrl");

    QTest::newRow("squad link") << u"/some-name/profil/spieler/12345"_s
                                << u"/some-name/detaillierteleistungsdaten/spieler/12345"_s
                                << u"12345"_s << u"some-name"_s;
    QTest::newRow("trailing slash: empty id")
        << u"/some-name/profil/spieler/12345/"_s
        << u"/some-name/detaillierteleistungsdaten/spieler/12345/"_s << QString() << u"some-name"_s;
    QTest::newRow("one segment: the whole path as name")
        << u"/single"_s << u"/single"_s << u"single"_s << u"/single"_s;
    QTest::newRow("the word in the slug is replaced as well")
        << u"/profiler/profil/spieler/8"_s
        << u"/detaillierteleistungsdatener/detaillierteleistungsdaten/spieler/8"_s << u"8"_s
        << u"profiler"_s;
    QTest::newRow("replacement is case-sensitive")
        << u"/Profil-man/profil/spieler/9"_s
        << u"/Profil-man/detaillierteleistungsdaten/spieler/9"_s << u"9"_s << u"Profil-man"_s;
}

void TestTfmPlayerLoop::pathRules()
{
    QFETCH(QString, path);
    QFETCH(QString, historyPath);
    QFETCH(QString, id);
    QFETCH(QString, nameInUrl);
    setIncludePlayerHistory(true);
    web.routeFile(site(path), u"tfm/harvest_player_smith.html"_s);
    if (historyPath != path)
        web.routeFile(site(historyPath), u"tfm/harvest_history_smith.html"_s);

    PlayerPageList list;
    list.append(path);
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    QCOMPARE(web.requestedUrls(), QStringList({site(path), site(historyPath)}));
    QCOMPARE(players.size(), 1);
    const auto *player = dynamic_cast<const TFM_Player *>(players.first());
    QVERIFY(player);
    QCOMPARE(player->id, id);
    QCOMPARE(player->nameInUrl, nameInUrl);
}

void TestTfmPlayerLoop::emptyList()
{
    for (const bool history : {false, true}) {
        log->clear();
        setIncludePlayerHistory(history);
        PlayerPageList list;
        QVERIFY(TFM_Player::downloadPlayers(players, list, false));
        QCOMPARE(log.lines(), QStringList({QString(), announcement(0, 0)}));
    }
    QVERIFY(players.isEmpty());
    QVERIFY(web.requests().isEmpty());
}

void TestTfmPlayerLoop::nullLog()
{
    setIncludePlayerHistory(true);
    setLogOutput(nullptr);
    web.routeBody(site(edersonPath), QByteArray(), 404);
    PlayerPageList list;
    list.append(smithPath);
    list.append(edersonPath);
    const bool result = TFM_Player::downloadPlayers(players, list, false);
    setLogOutput(log.box());

    QVERIFY(result);
    QCOMPARE(summaries(players),
             QStringList({u"12345|jan-smith|Jan|Smith||04.03.1995|FC Alpha|2"_s}));
    QVERIFY(log->toPlainText().isEmpty());
}

void TestTfmPlayerLoop::listGrowsAndRecordsClearedDuringWait()
{
    PlayerPageList list;
    list.append(smithPath);
    list.append(edersonPath);

    // What a test button can do while the pass waits for a page: clear the records
    // and add to the shared list. The second page stays unanswered until that is
    // done.
    FixtureWeb::Answer held;
    held.body = fixtureBytes(u"tfm/harvest_player_ederson.html"_s);
    held.hold = true;
    web.route(site(edersonPath), held);

    bool done = false;
    int playersWhileWaiting = -1;
    QObject thisTest;
    web.whenRequested(site(edersonPath), &thisTest, [&] {
        done = true;
        playersWhileWaiting = int(players.size());
        qDeleteAll(players);
        players.clear();
        list.append(gomezPath);
        web.releaseHeld();
    });
    QVERIFY(TFM_Player::downloadPlayers(players, list, false));

    QVERIFY(done);
    QCOMPARE(playersWhileWaiting, 1);
    QCOMPARE(list.count(), 3);
    // The pass went through the paths it started with and nothing else.
    QCOMPARE(web.requestedUrls(), QStringList({site(smithPath), site(edersonPath)}));
    QCOMPARE(log.lines(),
             QStringList({QString(), announcement(2, 0), u"     1.\tJan Smith player data"_s,
                          u"     2.\tEderson player data"_s}));
    QCOMPARE(summaries(players), QStringList({u"4711|ederson|||Ederson|17.08.1993|FC Alpha|0"_s}));
}

QM_TEST_MAIN(TestTfmPlayerLoop)

#include "tst_tfmplayerloop.moc"
