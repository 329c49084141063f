#include "core/datainterface.h"
#include "core/fetchtesting.h"
#include "core/sharedstate.h"
#include "core/website.h"
#include "fmd/fmdleague.h"
#include "fmd/fmdplayer.h"
#include "status/statusdisplay.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/fmdsite.h"
#include "tests/support/harness.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tests/support/testsupport.h"

#include <QLineEdit>
#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

using FmdSite::listUrl;
using FmdSite::playerUrl;

QStringList canonical(const QStringList &urls)
{
    return FixtureWeb::canonicalUrls(urls);
}

// The league pass's line, written out in full: the number and the count in
// columns of 6, the name in 40 and the nation, which the site never names, as 35
// blanks.
const QString premierLeagueSix = u"     1.\tTestland Premier League                 \t"
                                 u"                                   \t     6 total unique "
                                 u"players from all leagues so far"_s;

QString leagueLine(int number, const QString &name, int count)
{
    return u"%1.\t%2\t%3\t%4 total unique players from all leagues so far"_s.arg(number, 6)
        .arg(name, -40)
        .arg(QString(), -35)
        .arg(count, 6);
}

const QString premierLeague = u"Testland Premier League"_s;

} // namespace

// The list walk and the player pass against the fixture web, and the whole road
// of an FMDataba job through the planner.
class TestFmdPasses : public QObject
{
    Q_OBJECT

private:
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

    void lineFormat();
    void listOfThreePages();
    void listWithoutPageClause();
    void pageNumberRules_data();
    void pageNumberRules();
    void failingFirstPageOfAnEmptyRun();
    void failingLaterPage();
    void playerOnTwoLists();
    void recordKeptOnceAnyListFoundAPlayer();
    void pageOfAnotherLayout();
    void duplicatesGoAtTheEndOfTheList();
    void walkHasNoLimitOfItsOwn();
    void playerPass();
    void playerPassOfNoAddress();
    void idAndNameFromTheAddress_data();
    void idAndNameFromTheAddress();
    void playerWithoutATitle();
    void playerPassWalksTheLiveList();
    void plannerRoad();
    void secondRunFetchesTheFirstRunsPlayersAgain();
};

void TestFmdPasses::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(web.start());
    panel = new StatusDisplay;
}

void TestFmdPasses::cleanupTestCase()
{
    setStatusDisplay(nullptr);
    delete panel;
}

void TestFmdPasses::init()
{
    // The address list lives as long as the process; each test starts afresh.
    FMD_League::playerUrls().clear();
    resetFixtureWeb(web);
    FmdSite::route(web);
    fast = std::make_unique<FastWaits>();
    log->clear();
    setLogOutput(log.box());
    setStatusDisplay(panel);
    panel->reset();
    panel->start();
}

void TestFmdPasses::cleanup()
{
    panel->stop();
    fast.reset();
    qDeleteAll(records);
    records.clear();
}

void TestFmdPasses::lineFormat()
{
    QCOMPARE(leagueLine(1, premierLeague, 6), premierLeagueSix);
    QCOMPARE(
        passLine(1, premierLeague, QString(), 6, u"total unique players from all leagues so far"_s),
        premierLeagueSix);
}

void TestFmdPasses::listOfThreePages()
{
    QStringList urls{listUrl(u"best-players"_s)};
    QVERIFY(FMD_League::downloadLeagues(records, urls, 2000));

    QCOMPARE(web.requestedUrls(),
             canonical({listUrl(u"best-players"_s), listUrl(u"best-players/1"_s),
                        listUrl(u"best-players/2"_s)}));
    // Jan Smith stood on two pages: once the list has ended, he stands once.
    QCOMPARE(FMD_League::playerUrls(), FmdSite::playerUrls().mid(0, 6));
    // The last page has no next link: the element is left null.
    QCOMPARE(urls.size(), 1);
    QVERIFY(urls.first().isNull());
    QCOMPARE(records.size(), 1);
    QCOMPARE(static_cast<FMD_League *>(records.first())->leagueName, premierLeague);
    QVERIFY(static_cast<FMD_League *>(records.first())->nation.isNull());
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 1 league page(s)"_s, premierLeagueSix}));
    // One further page announced for each next link followed; no pause.
    QCOMPARE(panel->pageCountTotal, 2u);
    QCOMPARE(panel->pageCount, 3u);
    QVERIFY(FetchTesting::waitsSeen().isEmpty());
}

void TestFmdPasses::listWithoutPageClause()
{
    QStringList urls{listUrl(u"best-goalkeepers"_s)};
    FMD_League::downloadLeagues(records, urls, 2000);

    // Without a page clause the list has one page: the next one is fetched, and
    // its page number ends the walk before it is scanned.
    QCOMPARE(web.requestedUrls(),
             canonical({listUrl(u"best-goalkeepers"_s), listUrl(u"best-goalkeepers/1"_s)}));
    QCOMPARE(urls, QStringList{listUrl(u"best-goalkeepers/1"_s)});
    QCOMPARE(FMD_League::playerUrls(),
             (QStringList{playerUrl(1002, u"tom-keeper"_s), playerUrl(1007, u"ghost-keeper"_s)}));
    QCOMPARE(log.lines().last(), leagueLine(1, premierLeague, 2));
    QCOMPARE(panel->pageCountTotal, 1u);
}

void TestFmdPasses::pageNumberRules_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("clause");
    QTest::addColumn<bool>("scanned");

    QTest::newRow("page 3 under a heading of page 3")
        << listUrl(u"best-players/3"_s) << u", page 3"_s << false;
    QTest::newRow("page 3 under a heading of page 4")
        << listUrl(u"best-players/3"_s) << u", page 4"_s << true;
    QTest::newRow("trailing slash counts as page 0")
        << listUrl(u"best-players/"_s) << QString() << true;
    QTest::newRow("a word counts as page 0")
        << listUrl(u"best-defenders-left"_s) << QString() << true;
    QTest::newRow("page 1 without a clause") << listUrl(u"best-players/1"_s) << QString() << false;
    QTest::newRow("page 1 under a clause of page 0")
        << listUrl(u"best-players/1"_s) << u", page 0"_s << false;
    QTest::newRow("page 0 under a clause of page 0")
        << listUrl(u"best-players/0"_s) << u", page 0"_s << true;
    QTest::newRow("page beyond 32 bits counts as 0")
        << listUrl(u"best-players/99999999999"_s) << u", page 2"_s << true;
}

void TestFmdPasses::pageNumberRules()
{
    QFETCH(QString, address);
    QFETCH(QString, clause);
    QFETCH(bool, scanned);

    // The last page of the list, which has no next link, under the heading asked for.
    QString page = fixtureText(u"fmd/list_last.html"_s);
    page.replace(u"Profiles, page 3</h1>"_s, u"Profiles"_s + clause + u"</h1>"_s);
    web.routeBody(address, page.toUtf8());

    QStringList urls{address};
    FMD_League::downloadLeagues(records, urls, 2000);

    QCOMPARE(web.requestedUrls(), canonical({address}));
    if (scanned) {
        QCOMPARE(FMD_League::playerUrls().size(), 2);
        QCOMPARE(records.size(), 1);
        QVERIFY(urls.first().isNull());
        QCOMPARE(log.lines().last(), leagueLine(1, premierLeague, 2));
    } else {
        // Nothing found in this run: no record and no progress line.
        QVERIFY(FMD_League::playerUrls().isEmpty());
        QVERIFY(records.isEmpty());
        QCOMPARE(urls, QStringList{address});
        QCOMPARE(log.lines(), (QStringList{QString(), u"Downloading 1 league page(s)"_s}));
    }
}

void TestFmdPasses::failingFirstPageOfAnEmptyRun()
{
    const QString gone = listUrl(u"best-strikers-center"_s);
    QStringList urls{gone};
    QVERIFY(FMD_League::downloadLeagues(records, urls, 2000));

    QCOMPARE(web.requestedUrls(), canonical({gone}));
    QVERIFY(records.isEmpty());
    // With the full stop of this pass.
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 1 league page(s)"_s,
                          u"ERROR: Unable to access %1."_s.arg(gone)}));
    QCOMPARE(urls, QStringList{gone});
    // One attempt, and its pause after the failure.
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
}

void TestFmdPasses::failingLaterPage()
{
    web.routeBody(listUrl(u"best-players/1"_s), "gone", 500);
    QStringList urls{listUrl(u"best-players"_s)};
    FMD_League::downloadLeagues(records, urls, 2000);

    // The message shows the next-page address; the first page's players stay.
    QCOMPARE(web.requestedUrls(),
             canonical({listUrl(u"best-players"_s), listUrl(u"best-players/1"_s)}));
    QCOMPARE(urls, QStringList{listUrl(u"best-players/1"_s)});
    QCOMPARE(FMD_League::playerUrls(), FmdSite::playerUrls().mid(0, 3));
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 1 league page(s)"_s,
                          u"ERROR: Unable to access %1."_s.arg(listUrl(u"best-players/1"_s)),
                          leagueLine(1, premierLeague, 3)}));
    QCOMPARE(records.size(), 1);
    QCOMPARE(panel->pageCountTotal, 1u);
}

void TestFmdPasses::playerOnTwoLists()
{
    QStringList urls{listUrl(u"best-players"_s), listUrl(u"best-goalkeepers"_s)};
    FMD_League::downloadLeagues(records, urls, 2000);

    // Tom Keeper stands on both lists and once in the end; the new goalkeeper is appended.
    QCOMPARE(FMD_League::playerUrls(), FmdSite::playerUrls());
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 2 league page(s)"_s, premierLeagueSix,
                          leagueLine(2, premierLeague, 7)}));
    QCOMPARE(records.size(), 2);
    QCOMPARE(urls, (QStringList{QString(), listUrl(u"best-goalkeepers/1"_s)}));
}

void TestFmdPasses::recordKeptOnceAnyListFoundAPlayer()
{
    // A player left by an earlier run counts as well.
    FMD_League::playerUrls().append(playerUrl(1003, u"ederzito"_s));
    const QString gone = listUrl(u"best-wing-backs-left"_s);
    QStringList urls{gone, QString(), listUrl(u"best-goalkeepers"_s)};
    FMD_League::downloadLeagues(records, urls, 2000);

    // The empty element makes no request.
    QCOMPARE(web.requestedUrls(),
             canonical({gone, listUrl(u"best-goalkeepers"_s), listUrl(u"best-goalkeepers/1"_s)}));
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 3 league page(s)"_s,
                          u"ERROR: Unable to access %1."_s.arg(gone), leagueLine(1, QString(), 1),
                          leagueLine(2, QString(), 1), leagueLine(3, premierLeague, 3)}));
    QCOMPARE(records.size(), 3);
    QVERIFY(static_cast<FMD_League *>(records.at(0))->leagueName.isNull());
    QVERIFY(static_cast<FMD_League *>(records.at(1))->leagueName.isNull());
}

void TestFmdPasses::pageOfAnotherLayout()
{
    const QString news = listUrl(u"news"_s);
    web.routeFile(news, u"fmd/list_otherlayout.html"_s);
    QStringList urls{news};
    FMD_League::downloadLeagues(records, urls, 2000);

    // No rows; the walk goes on to the first link with a title that is left.
    const QString winter = u"https://fmdataba.com/19/news/14/winter-update"_s;
    QCOMPARE(web.requestedUrls(), canonical({news, winter}));
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 1 league page(s)"_s,
                          u"ERROR: Unable to access %1."_s.arg(winter)}));
    QVERIFY(records.isEmpty());
    QVERIFY(FMD_League::playerUrls().isEmpty());
}

void TestFmdPasses::duplicatesGoAtTheEndOfTheList()
{
    // The page holds one address twice and once more in other letters, an empty
    // address and a cut one: at the end of the list the repeat goes, and the
    // address in other letters stays as a player of its own.
    const QString strikers = u"https://fmdataba.com/19/l/9/otherland-first-division/"
                             u"best-strikers-center"_s;
    web.routeFile(strikers + u"/1"_s, u"fmd/list_oddrows.html"_s);
    QStringList urls{strikers + u"/1"_s};
    FMD_League::downloadLeagues(records, urls, 2000);

    QCOMPARE(web.requestedUrls(), canonical({strikers + u"/1"_s, strikers + u"/3"_s}));
    QCOMPARE(FMD_League::playerUrls(),
             (QStringList{playerUrl(2001, u"ola-berg"_s), playerUrl(2001, u"Ola-Berg"_s), QString(),
                          u"a=\"x"_s}));
    QCOMPARE(log.lines(),
             (QStringList{QString(), u"Downloading 1 league page(s)"_s,
                          u"ERROR: Unable to access %1."_s.arg(strikers + u"/3"_s),
                          leagueLine(1, u"Otherland First Division"_s, 4)}));
}

void TestFmdPasses::walkHasNoLimitOfItsOwn()
{
    // A page whose next link points to itself, under a heading that counts far
    // ahead: the walk ends only when a page fails.
    const QString loop = listUrl(u"best-strikers-center/5"_s);
    QString page = fixtureText(u"fmd/list_middle.html"_s);
    page.replace(listUrl(u"best-players/2"_s), loop);
    page.replace(u"page 3"_s, u"page 1000"_s);
    QList<FixtureWeb::Answer> answers(12);
    for (FixtureWeb::Answer &answer : answers)
        answer.body = page.toUtf8();
    answers.last().status = 503;
    web.routeSequence(loop, answers);

    QStringList urls{loop};
    FMD_League::downloadLeagues(records, urls, 2000);
    QCOMPARE(web.requestCount(loop), 12);
    QCOMPARE(panel->pageCountTotal, 11u);
    QCOMPARE(FMD_League::playerUrls().size(), 2);
    QCOMPARE(log.lines().at(2), u"ERROR: Unable to access %1."_s.arg(loop));
}

void TestFmdPasses::playerPass()
{
    const QStringList urls = {playerUrl(1001, u"jan-smith"_s), playerUrl(1007, u"ghost-keeper"_s),
                              playerUrl(1002, u"tom-keeper"_s), playerUrl(1003, u"ederzito"_s)};
    FMD_League::playerUrls() = urls;
    QVERIFY(FMD_Player::downloadPlayers(records, FMD_League::playerUrls(), false));

    QCOMPARE(web.requestedUrls(), canonical(urls));
    // No full stop behind this pass's error, and the counter counts successes only.
    QCOMPARE(
        log.lines(),
        (QStringList{QString(), u"Downloading 4 unique player page(s)"_s, u"     1.\tJan Smith"_s,
                     u"ERROR: Unable to access https://fmdataba.com/19/p/1007/ghost-keeper/"_s,
                     u"     2.\tTom Keeper"_s, u"     3.\tEderzito"_s}));
    QCOMPARE(records.size(), 3);
    const auto *smith = dynamic_cast<FMD_Player *>(records.at(0));
    const auto *keeper = dynamic_cast<FMD_Player *>(records.at(1));
    const auto *ederzito = dynamic_cast<FMD_Player *>(records.at(2));
    QVERIFY(smith && keeper && ederzito);
    QCOMPARE(smith->id, u"1001"_s);
    QCOMPARE(smith->nameInUrl, u"jan-smith"_s);
    QCOMPARE(smith->club, u"FC Alpha"_s);
    QCOMPARE(keeper->id, u"1002"_s);
    QCOMPARE(keeper->nameInUrl, u"tom-keeper"_s);
    QCOMPARE(ederzito->commonName, u"Ederzito"_s);
    // The pass leaves the list as it found it; its only pause is the failure's.
    QCOMPARE(FMD_League::playerUrls(), urls);
    QCOMPARE(FetchTesting::waitsSeen(), QList<int>{30});
    QCOMPARE(panel->pageCount, 4u);
}

void TestFmdPasses::playerPassOfNoAddress()
{
    QVERIFY(FMD_Player::downloadPlayers(records, QStringList(), false));
    QVERIFY(records.isEmpty());
    QCOMPARE(log.lines(), (QStringList{QString(), u"Downloading 0 unique player page(s)"_s}));
    QVERIFY(web.requests().isEmpty());
}

void TestFmdPasses::idAndNameFromTheAddress_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("nameInUrl");

    QTest::newRow("profile address")
        << playerUrl(1003, u"ederzito"_s) << u"1003"_s << u"ederzito"_s;
    // Without "19/p/" the number is read from behind the scheme's "http", up to
    // its first slash; the two slashes side by side then give no name.
    QTest::newRow("no 19/p/") << u"https://fmdataba.com/players/1003/ederzito/"_s << u"s:"_s
                              << QString();
    QTest::newRow("no slash behind the name")
        << u"https://fmdataba.com/19/p/1003/ederzito"_s << u"1003"_s << QString();
    // The number stands earlier in the address: the name is read from there.
    QTest::newRow("number seen earlier")
        << u"https://fmdataba.com/19/p/19/ederzito/"_s << u"19"_s << u"p"_s;
    QTest::newRow("markers in capitals")
        << u"https://fmdataba.COM/19/P/1003/Ederzito/"_s << u"1003"_s << u"Ederzito"_s;
    QTest::newRow("query behind the name")
        << u"https://fmdataba.com/19/p/1003/ederzito/?tab=stats"_s << u"1003"_s << u"ederzito"_s;
}

void TestFmdPasses::idAndNameFromTheAddress()
{
    QFETCH(QString, url);
    web.routeFile(url, u"fmd/profile_oneword.html"_s);
    FMD_Player::downloadPlayers(records, QStringList{url}, false);

    QCOMPARE(records.size(), 1);
    const auto *player = dynamic_cast<FMD_Player *>(records.first());
    QVERIFY(player);
    QTEST(player->id, "id");
    QTEST(player->nameInUrl, "nameInUrl");
    QCOMPARE(player->commonName, u"Ederzito"_s);
}

void TestFmdPasses::playerWithoutATitle()
{
    // A page with no usable content is a record of defaults all the same; with
    // no name the line shows the counter, a tab and a single blank.
    const QString url = playerUrl(1010, u"nobody"_s);
    web.routeBody(url, "<html><body>Maintenance</body></html>");
    FMD_Player::downloadPlayers(records, QStringList{url}, false);
    QCOMPARE(records.size(), 1);
    QCOMPARE(log.lines().last(), u"     1.\t "_s);
    QCOMPARE(dynamic_cast<FMD_Player *>(records.first())->id, u"1010"_s);
}

void TestFmdPasses::playerPassWalksTheLiveList()
{
    // What a league test does to the list while the pass waits for a page: it
    // appends to it and clears the planner's records. The page stays unanswered
    // until that is done; a second request would be answered at once and fail
    // the test below.
    const QString smith = playerUrl(1001, u"jan-smith"_s);
    FMD_League::playerUrls() = QStringList{smith};
    FixtureWeb::Answer answer;
    answer.body = fixtureBytes(u"fmd/profile_field.html"_s);
    FixtureWeb::Answer held = answer;
    held.hold = true;
    web.routeSequence(smith, {held, answer});

    bool done = false;
    QObject thisTest;
    web.whenRequested(smith, &thisTest, [&] {
        done = true;
        qDeleteAll(records);
        records.clear();
        FMD_League::playerUrls().append(playerUrl(1002, u"tom-keeper"_s));
        web.releaseHeld();
    });
    QVERIFY(FMD_Player::downloadPlayers(records, FMD_League::playerUrls(), false));

    QVERIFY(done);
    QCOMPARE(web.requestedUrls(),
             canonical({playerUrl(1001, u"jan-smith"_s), playerUrl(1002, u"tom-keeper"_s)}));
    QCOMPARE(records.size(), 2);
    QCOMPARE(log.lines().mid(1),
             (QStringList{u"Downloading 1 unique player page(s)"_s, u"     1.\tJan Smith"_s,
                          u"     2.\tTom Keeper"_s}));
}

void TestFmdPasses::plannerRoad()
{
    DataInterface planner;
    QSignalSpy announced(&planner, &DataInterface::pageCountIncreased);
    connect(&planner, &DataInterface::pageCountIncreased, panel,
            &StatusDisplay::incrementPageCountTotal);
    QStringList urls{listUrl(u"best-players"_s)};
    QVERIFY(planner.startDownload(FMDataba, urls, true));

    // One league becomes fifteen lists, walked in order; then the seven players.
    // The fourteen names and their order are held to the letter by the planner's tests.
    const QStringList &lists = DataInterface::fmdPageNames();
    QCOMPARE(lists.first(), u"best-goalkeepers"_s);
    QStringList expected
        = {listUrl(u"best-players"_s), listUrl(u"best-players/1"_s), listUrl(u"best-players/2"_s),
           listUrl(u"best-goalkeepers"_s), listUrl(u"best-goalkeepers/1"_s)};
    for (const QString &list : lists.mid(1))
        expected.append(listUrl(list));
    expected += FmdSite::playerUrls();
    QCOMPARE(web.requestedUrls(), canonical(expected));

    // No team pass: two announcements, the lists and the players.
    QCOMPARE(announced.size(), 2);
    QCOMPARE(announced.at(0).at(0).toInt(), 15);
    QCOMPARE(announced.at(1).at(0).toInt(), 7);
    QCOMPARE(panel->pageCountTotal, 15u + 3u + 7u);
    QCOMPARE(panel->pageCount, 25u);
    QCOMPARE(panel->pagesEdit->text(), u"25 of 25"_s);

    QStringList lines = {QString(), u"Downloading 15 league page(s)"_s, premierLeagueSix,
                         leagueLine(2, premierLeague, 7)};
    for (qsizetype i = 1; i < lists.size(); ++i) {
        lines.append(u"ERROR: Unable to access %1."_s.arg(listUrl(lists.at(i))));
        lines.append(leagueLine(int(i) + 2, QString(), 7));
    }
    lines += QStringList{QString(),
                         u"Downloading 7 unique player page(s)"_s,
                         u"     1.\tJan Smith"_s,
                         u"     2.\tTom Keeper"_s,
                         u"     3.\tEderzito"_s,
                         u"     4.\tCarlos G\u00f3mez"_s,
                         u"     5.\tMary Jane Watson"_s,
                         u"     6.\tLukas Brandt"_s,
                         u"ERROR: Unable to access "_s + playerUrl(1007, u"ghost-keeper"_s)};
    QCOMPARE(log.lines(), lines);
    QCOMPARE(urls.size(), 15);
    QCOMPARE(urls.first(), QString());
    QCOMPARE(urls.at(1), listUrl(u"best-goalkeepers/1"_s));
}

void TestFmdPasses::secondRunFetchesTheFirstRunsPlayersAgain()
{
    DataInterface planner;
    QStringList first{listUrl(u"best-goalkeepers"_s)};
    planner.startDownload(FMDataba, first, true);
    web.clearRequests();
    log->clear();

    // The list pass finds the same two players; the player list was never cleared,
    // and the second run fetches them once more.
    QStringList second{listUrl(u"best-goalkeepers"_s)};
    planner.startDownload(FMDataba, second, true);
    QCOMPARE(FMD_League::playerUrls(),
             (QStringList{playerUrl(1002, u"tom-keeper"_s), playerUrl(1007, u"ghost-keeper"_s)}));
    QCOMPARE(web.requestCount(playerUrl(1002, u"tom-keeper"_s)), 1);
    QVERIFY(log.lines().contains(u"     1.\tTom Keeper"_s));

    // Without player details no profile is fetched.
    web.clearRequests();
    QStringList third{listUrl(u"best-goalkeepers"_s)};
    planner.startDownload(FMDataba, third, false);
    QCOMPARE(web.requestCount(playerUrl(1002, u"tom-keeper"_s)), 0);
    QCOMPARE(web.requests().size(), 2);
}

QM_TEST_MAIN(TestFmdPasses)

#include "tst_fmdpasses.moc"
