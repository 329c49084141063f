#include "core/constants.h"
#include "core/datainterface.h"
#include "core/datawrapper.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
#include "ep/epteam.h"
#include "fmd/fmdleague.h"
#include "fmd/fmdplayer.h"
#include "tests/support/fixtureweb.h"
#include "tests/support/harness.h"
#include "tests/support/logcapture.h"
#include "tests/support/testmain.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmplayer.h"
#include "tfm/tfmteam.h"

#include <QComboBox>
#include <QFile>
#include <QLocale>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A record that notes its own destruction, so that a test sees which records
// were freed and in what order.
class CountedRecord : public DataWrapper
{
public:
    CountedRecord(QString tag, QStringList *freed)
        : tag(std::move(tag))
        , freed(freed)
    { }
    ~CountedRecord() override { freed->append(tag); }

private:
    QString tag;
    QStringList *freed;
};

QList<int> announcements(const QSignalSpy &spy)
{
    QList<int> counts;
    for (const QList<QVariant> &arguments : spy)
        counts.append(arguments.at(0).toInt());
    return counts;
}

QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

const QString nationalTeam = TFM_ROOT_URL + u"/brasilien/erweiterterkader/verein/3439"_s;
const QString playerPage = TFM_ROOT_URL + u"/marten-olsbey/profil/spieler/342229"_s;
const QString epLeague = EP_ROOT_URL + u"/league/nhl"_s;

// The Elite Prospects league pass leaves each line as the page address it asked
// for: the part behind "/league/" (or the whole line) with the planner's season 2000.
QStringList askedFor(const QStringList &lines)
{
    QStringList addresses;
    for (const QString &line : lines) {
        const qsizetype at = line.indexOf(u"/league/"_s);
        const QString slug = at < 0 ? line : line.mid(at + 8);
        addresses.append(EP_ROOT_URL + u"/league/"_s + slug
                         + u"/2000-2001?team-history=complete#team-history"_s);
    }
    return addresses;
}

} // namespace

Q_DECLARE_METATYPE(Website)

// The planner: which road a job's first line takes, the page counts it
// announces, the FMDataba expansion, the shuffle, the records it owns, the
// offline test entries and the save dispatch. Every page the passes ask for
// reaches the in-process fixture web, where an unrouted address answers 404.
class TestDataInterface : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void defaults();
    void setSeason();
    void fillWebsiteBox();

    void firstLineChoosesRoad_data();
    void firstLineChoosesRoad();
    void startDownloadClearsEarlierRecordsAndStoresWebsite();

    void fmdExpansion_data();
    void fmdExpansion();
    void fmdNationalTeamWorksThroughStaticList();

    void tfmNationalTeamRoadStripsRoot();
    void tfmPlayerRoadStripsRootAndFetchesEach();
    void tfmIntervalTotals_data();
    void tfmIntervalTotals();
    void tfmIntervalWithOtherWebsiteAnnouncesNothing();
    void tfmLeagueRoadWithEmptyLists();

    void shuffleWithFixedSeed_data();
    void shuffleWithFixedSeed();
    void shuffleLeavesShortListsAndRandAlone_data();
    void shuffleLeavesShortListsAndRandAlone();

    void clearRecordsFreesInOrderAndKeepsStaticLists();
    void destructorFreesRecords();

    void testEntries_data();
    void testEntries();
    void testEntryWithoutRecordReturnsFalse_data();
    void testEntryWithoutRecordReturnsFalse();
    void testLeaguePageStoresEpSeason();

    void saveRecordsDispatchesByStoredWebsite_data();
    void saveRecordsDispatchesByStoredWebsite();
    void saveRecordsAlwaysTrue();

    void testEntryDuringWaitingPass();

private:
    FixtureWeb web;
    std::unique_ptr<FastWaits> fastWaits;
    LogCapture log;
    QTemporaryDir dir;
};

void TestDataInterface::initTestCase()
{
    QLocale::setDefault(QLocale::c());
    QVERIFY(web.start());
    fastWaits = std::make_unique<FastWaits>(1);
    QVERIFY(dir.isValid());
}

void TestDataInterface::cleanupTestCase()
{
    clearSiteLists();
}

void TestDataInterface::init()
{
    clearSiteLists();
    setIncludeOlympicStats(false);
    setIncludePlayerData(true);
    setIncludePlayerHistory(false);
    resetFixtureWeb(web);
    log->clear();
}

void TestDataInterface::defaults()
{
    DataInterface planner;
    QVERIFY(planner.leagues.isEmpty());
    QVERIFY(planner.players.isEmpty());
    QVERIFY(planner.teams.isEmpty());
    QCOMPARE(planner.season, 2000);
    QCOMPARE(planner.website, TransferMarkt);
    QCOMPARE(int(EliteProspects), 0);
    QCOMPARE(int(TransferMarkt), 1);
    QCOMPARE(int(FMDataba), 2);
    QCOMPARE(sizeof(Website), sizeof(qint32));
}

void TestDataInterface::setSeason()
{
    DataInterface planner;
    planner.setSeason(2017);
    QCOMPARE(planner.season, 2017);
    planner.setSeason(-1);
    QCOMPARE(planner.season, -1);
}

void TestDataInterface::fillWebsiteBox()
{
    QComboBox box;
    DataInterface::fillWebsiteBox(&box);
    QCOMPARE(box.count(), 3);
    const QStringList names = {u"Elite Prospects"_s, u"Transfer Markt"_s, u"FMDataba"_s};
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(box.itemText(i), names.at(i));
        QVERIFY(box.itemIcon(i).isNull());
        QVERIFY(!box.itemData(i).isValid());
    }
    QCOMPARE(box.itemText(EliteProspects), u"Elite Prospects"_s);
    QCOMPARE(box.itemText(TransferMarkt), u"Transfer Markt"_s);
    QCOMPARE(box.itemText(FMDataba), u"FMDataba"_s);
}

void TestDataInterface::firstLineChoosesRoad_data()
{
    // Elite Prospects with two team pages and three player pages prepared in
    // the site's lists: a league job announces its league pages, then 2, then
    // 3; a national team job only the player pass's 3; an id interval and a
    // player list nothing at all. The list as the planner leaves it tells the
    // roads apart further: the player and national roads remove duplicates.
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<bool>("details");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<QStringList>("urlsAfter");
    QTest::addColumn<bool>("shuffled");

    const QString national2 = TFM_ROOT_URL + u"/x/erweiterterkader/verein/9"_s;

    QTest::newRow("league address") << QStringList{epLeague} << true << QList<int>{1, 2, 3}
                                    << askedFor(QStringList{epLeague}) << false;
    QTest::newRow("league list keeps its duplicates")
        << QStringList{epLeague, epLeague} << true << QList<int>{2, 2, 3}
        << askedFor(QStringList{epLeague, epLeague}) << false;
    QTest::newRow("league without player details")
        << QStringList{epLeague} << false << QList<int>{1, 2} << askedFor(QStringList{epLeague})
        << false;
    QTest::newRow("5-3 is a league address") << QStringList{u"5-3"_s} << true << QList<int>{1, 2, 3}
                                             << askedFor(QStringList{u"5-3"_s}) << false;
    QTest::newRow("12345 without a dash") << QStringList{u"12345"_s} << true << QList<int>{1, 2, 3}
                                          << askedFor(QStringList{u"12345"_s}) << false;
    QTest::newRow("1-2-3 has three parts") << QStringList{u"1-2-3"_s} << true << QList<int>{1, 2, 3}
                                           << askedFor(QStringList{u"1-2-3"_s}) << false;
    QTest::newRow("id out of range converts to 0")
        << QStringList{u"1-99999999999"_s} << true << QList<int>{1, 2, 3}
        << askedFor(QStringList{u"1-99999999999"_s}) << false;
    QTest::newRow("no first id") << QStringList{u"-5"_s} << true << QList<int>{1, 2, 3}
                                 << askedFor(QStringList{u"-5"_s}) << false;
    QTest::newRow("no last id") << QStringList{u"5-"_s} << true << QList<int>{1, 2, 3}
                                << askedFor(QStringList{u"5-"_s}) << false;
    QTest::newRow("letters") << QStringList{u"a-b"_s} << true << QList<int>{1, 2, 3}
                             << askedFor(QStringList{u"a-b"_s}) << false;
    QTest::newRow("blank before the ids") << QStringList{u" 1-2"_s} << true << QList<int>{1, 2, 3}
                                          << askedFor(QStringList{u" 1-2"_s}) << false;
    QTest::newRow("one blank is a league address")
        << QStringList{u" "_s} << true << QList<int>{1, 2, 3} << askedFor(QStringList{u" "_s})
        << false;
    QTest::newRow("blank lines stay")
        << QStringList{QString(), QString()} << true << QList<int>{2, 2, 3}
        << askedFor(QStringList{QString(), QString()}) << false;
    QTest::newRow("empty list") << QStringList() << true << QList<int>{0, 2, 3} << QStringList()
                                << false;
    QTest::newRow("national marker is case-sensitive")
        << QStringList{EP_ROOT_URL + u"/Erweiterterkader/Verein/1"_s} << true << QList<int>{1, 2, 3}
        << askedFor(QStringList{EP_ROOT_URL + u"/Erweiterterkader/Verein/1"_s}) << false;
    QTest::newRow("player marker is case-sensitive")
        << QStringList{EP_ROOT_URL + u"/Profil/Spieler/1"_s} << true << QList<int>{1, 2, 3}
        << askedFor(QStringList{EP_ROOT_URL + u"/Profil/Spieler/1"_s}) << false;
    QTest::newRow("only the first line decides")
        << QStringList{epLeague, nationalTeam, u"1-2"_s} << true << QList<int>{3, 2, 3}
        << askedFor(QStringList{epLeague, nationalTeam, u"1-2"_s}) << false;

    QTest::newRow("interval of one id")
        << QStringList{u"28003-28003"_s, u"x"_s, u"x"_s} << true << QList<int>()
        << QStringList{u"28003-28003"_s, u"x"_s, u"x"_s} << false;
    QTest::newRow("interval 0-0") << QStringList{u"0-0"_s} << true << QList<int>()
                                  << QStringList{u"0-0"_s} << false;
    QTest::newRow("interval without player details")
        << QStringList{u"1-2"_s} << false << QList<int>() << QStringList{u"1-2"_s} << false;
    QTest::newRow("interval with a national team after it")
        << QStringList{u"1-2"_s, nationalTeam} << true << QList<int>()
        << QStringList{u"1-2"_s, nationalTeam} << false;

    QTest::newRow("player address, the rest taken as players")
        << QStringList{playerPage, epLeague, playerPage, u"1-2"_s} << true << QList<int>()
        << QStringList{playerPage, epLeague, u"1-2"_s} << true;
    QTest::newRow("player address without player details")
        << QStringList{playerPage, playerPage} << false << QList<int>() << QStringList{playerPage}
        << true;

    QTest::newRow("national team")
        << QStringList{nationalTeam, nationalTeam, national2} << true << QList<int>{3}
        << QStringList{nationalTeam, national2} << false;
    QTest::newRow("national team without player details")
        << QStringList{nationalTeam, national2, nationalTeam} << false << QList<int>()
        << QStringList{nationalTeam, national2} << false;
}

void TestDataInterface::firstLineChoosesRoad()
{
    QFETCH(QStringList, urls);
    QFETCH(bool, details);
    QFETCH(QList<int>, expected);
    QFETCH(QStringList, urlsAfter);
    QFETCH(bool, shuffled);

    EP_League::teamUrls() = {web.plainUrl(u"/ep/team/1"_s), web.plainUrl(u"/ep/team/2"_s)};
    for (const QString &slug : {u"p1"_s, u"p2"_s, u"p3"_s})
        EP_Team::playerUrls().append(slug);

    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    QVERIFY(planner.startDownload(EliteProspects, urls, details));

    QCOMPARE(announcements(spy), expected);
    if (shuffled)
        QCOMPARE(sorted(urls), sorted(urlsAfter));
    else
        QCOMPARE(urls, urlsAfter);
    QCOMPARE(planner.website, EliteProspects);
}

void TestDataInterface::startDownloadClearsEarlierRecordsAndStoresWebsite()
{
    QStringList freed;
    DataInterface planner;
    planner.leagues.append(new CountedRecord(u"league"_s, &freed));
    planner.players.append(new CountedRecord(u"player"_s, &freed));
    planner.teams.append(new CountedRecord(u"team"_s, &freed));
    planner.players.append(nullptr);

    QStringList urls = {u"1-2"_s};
    QVERIFY(planner.startDownload(FMDataba, urls, false));
    QCOMPARE(freed, (QStringList{u"league"_s, u"player"_s, u"team"_s}));
    QVERIFY(planner.leagues.isEmpty());
    QVERIFY(planner.players.isEmpty());
    QVERIFY(planner.teams.isEmpty());
    QCOMPARE(planner.website, FMDataba);
}

static QStringList fmdPages(const QString &url)
{
    // Written out here rather than taken from the product.
    static const QStringList names = {
        u"best-goalkeepers"_s,
        u"best-defenders-center"_s,
        u"best-defenders-left"_s,
        u"best-defenders-right"_s,
        u"best-wing-backs-left"_s,
        u"best-wing-backs-right"_s,
        u"best-defensive-midfielders"_s,
        u"best-midfielders-center"_s,
        u"best-midfielders-left"_s,
        u"best-midfielders-right"_s,
        u"best-attacking-midfielders-center"_s,
        u"best-attacking-midfielders-left"_s,
        u"best-attacking-midfielders-right"_s,
        u"best-strikers-center"_s,
    };
    QStringList pages = {url};
    for (const QString &name : names)
        pages.append(QString(url).replace(u"best-players"_s, name));
    return pages;
}

void TestDataInterface::fmdExpansion_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<QStringList>("expected");

    const QString league = FMD_ROOT_URL + u"/19/l/4/premier-league/best-players/"_s;
    const QString nation = FMD_ROOT_URL + u"/19/n/63/england/best-players/"_s;
    const QString plain = FMD_ROOT_URL + u"/19/l/4/premier-league/"_s;
    const QString keepers = FMD_ROOT_URL + u"/19/l/4/premier-league/best-goalkeepers/"_s;
    const QString twice = FMD_ROOT_URL + u"/best-players/19/best-players/"_s;

    QTest::newRow("one list page gives fifteen") << QStringList{league} << fmdPages(league);
    QTest::newRow("two identical lines give one and fourteen")
        << QStringList{league, league} << fmdPages(league);
    QTest::newRow("without best-players kept alone") << QStringList{plain} << QStringList{plain};
    QTest::newRow("entries in order, each followed by its pages")
        << QStringList{nation, plain, league}
        << fmdPages(nation) + QStringList{plain} + fmdPages(league);
    QStringList afterKeepers = QStringList{keepers} + fmdPages(league);
    afterKeepers.removeAt(2);
    QTest::newRow("a page already listed is removed after the expansion")
        << QStringList{keepers, league} << afterKeepers;
    QTest::newRow("every best-players of an entry replaced")
        << QStringList{twice} << fmdPages(twice);
    QTest::newRow("marker is case-sensitive") << QStringList{FMD_ROOT_URL + u"/Best-Players/"_s}
                                              << QStringList{FMD_ROOT_URL + u"/Best-Players/"_s};
}

void TestDataInterface::fmdExpansion()
{
    QFETCH(QStringList, urls);
    QFETCH(QStringList, expected);

    FMD_League::playerUrls() = {web.plainUrl(u"/fmd/player/1"_s)};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    QVERIFY(planner.startDownload(FMDataba, urls, true));

    QCOMPARE(urls, expected);
    // League pages, no team stage, then the player list.
    QCOMPARE(announcements(spy), (QList<int>{int(expected.size()), 1}));
}

void TestDataInterface::fmdNationalTeamWorksThroughStaticList()
{
    // A national team list with another website fetches none of its addresses,
    // but goes on to that website's player pass.
    FMD_League::playerUrls() = {web.plainUrl(u"/fmd/player/1"_s), web.plainUrl(u"/fmd/player/2"_s)};
    QStringList urls = {nationalTeam, nationalTeam};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.startDownload(FMDataba, urls, true);
    QCOMPARE(announcements(spy), QList<int>{2});
    QCOMPARE(urls, QStringList{nationalTeam});
    QCOMPARE(web.requestCount(nationalTeam), 0);
}

void TestDataInterface::tfmNationalTeamRoadStripsRoot()
{
    const QString second = TFM_ROOT_URL + u"/x/erweiterterkader/verein/9"_s + TFM_ROOT_URL;
    // The player pass works through what the team list already holds.
    TFM_Team::playerUrls().append(u"/a/profil/spieler/1"_s);
    web.routeBody(TFM_ROOT_URL + u"/a/profil/spieler/1"_s, "<html></html>"_ba);

    QStringList urls = {nationalTeam, nationalTeam, second};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.startDownload(TransferMarkt, urls, true);

    QCOMPARE(urls,
             (QStringList{u"/brasilien/erweiterterkader/verein/3439"_s,
                          u"/x/erweiterterkader/verein/9"_s}));
    QCOMPARE(announcements(spy), (QList<int>{2, 1}));
    QCOMPARE(web.requestCount(nationalTeam), 1);
    QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/x/erweiterterkader/verein/9"_s), 1);
    QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/a/profil/spieler/1"_s), 1);
}

void TestDataInterface::tfmPlayerRoadStripsRootAndFetchesEach()
{
    const QString second = TFM_ROOT_URL + u"/b/profil/spieler/2"_s;
    const QString third = u"/c/profil/spieler/3"_s;
    web.routeBody(playerPage, "<html></html>"_ba);
    web.routeBody(second, "<html></html>"_ba);
    web.routeBody(TFM_ROOT_URL + third, "<html></html>"_ba);

    // The player list ignores "Download player details".
    QStringList urls = {playerPage, second, playerPage, third};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.startDownload(TransferMarkt, urls, false);

    QCOMPARE(sorted(urls), sorted({playerPage, second, third}));
    QCOMPARE(announcements(spy), QList<int>{3});
    for (const QString &url : QStringList{playerPage, second, TFM_ROOT_URL + third})
        QCOMPARE(web.requestCount(url), 1);
    QCOMPARE(planner.players.size(), 3);
}

void TestDataInterface::tfmIntervalTotals_data()
{
    QTest::addColumn<bool>("data");
    QTest::addColumn<bool>("history");
    QTest::addColumn<int>("total");

    QTest::newRow("data and history count twice") << true << true << 6;
    QTest::newRow("data only") << true << false << 3;
    QTest::newRow("history only") << false << true << 3;
    QTest::newRow("neither") << false << false << 3;
}

void TestDataInterface::tfmIntervalTotals()
{
    QFETCH(bool, data);
    QFETCH(bool, history);
    QFETCH(int, total);

    setIncludePlayerData(data);
    setIncludePlayerHistory(history);
    for (int id = 7; id <= 9; ++id) {
        web.routeBody(TFM_ROOT_URL + u"/name/profil/spieler/"_s + QString::number(id),
                      "<html></html>"_ba);
        web.routeBody(TFM_ROOT_URL + u"/name/detaillierteleistungsdaten/spieler/"_s
                          + QString::number(id),
                      "<html></html>"_ba);
    }

    QStringList urls = {u"7-9"_s};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.startDownload(TransferMarkt, urls, true);

    QCOMPARE(announcements(spy), QList<int>{total});
    QCOMPARE(urls, QStringList{u"7-9"_s});
    // The filler word "name" stands in the path in place of the player's name.
    const bool dataPages = data || !history;
    for (int id = 7; id <= 9; ++id) {
        QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/name/profil/spieler/"_s + QString::number(id)),
                 dataPages ? 1 : 0);
    }
    QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/name/profil/spieler/6"_s), 0);
    QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/name/profil/spieler/10"_s), 0);
}

void TestDataInterface::tfmIntervalWithOtherWebsiteAnnouncesNothing()
{
    for (Website website : {EliteProspects, FMDataba}) {
        QStringList urls = {u"1-3"_s};
        DataInterface planner;
        QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
        QVERIFY(planner.startDownload(website, urls, true));
        QCOMPARE(spy.count(), 0);
    }
    QCOMPARE(web.requests().size(), 0);
}

void TestDataInterface::tfmLeagueRoadWithEmptyLists()
{
    // A league address that is no address: its page fails, no team is found,
    // and the team and player passes announce what the empty lists hold.
    QStringList urls = {u"5-3"_s};
    DataInterface planner;
    QSignalSpy spy(&planner, &DataInterface::pageCountIncreased);
    planner.startDownload(TransferMarkt, urls, true);
    QCOMPARE(announcements(spy), (QList<int>{1, 0, 0}));
    QVERIFY(planner.leagues.isEmpty());
}

void TestDataInterface::shuffleWithFixedSeed_data()
{
    QTest::addColumn<unsigned>("seed");
    QTest::addColumn<int>("size");
    QTest::newRow("two entries") << 1u << 2;
    QTest::newRow("ten entries, seed 1") << 1u << 10;
    QTest::newRow("ten entries, seed 42") << 42u << 10;
    QTest::newRow("hundred entries") << 2024u << 100;
}

void TestDataInterface::shuffleWithFixedSeed()
{
    QFETCH(unsigned, seed);
    QFETCH(int, size);

    QStringList original;
    for (int i = 0; i < size; ++i)
        original.append(u"/p%1/profil/spieler/%1"_s.arg(i));

    // The expected order: for each place from the second on, a swap with the
    // place rand() % (i + 1) when that differs.
    std::srand(seed);
    QStringList expected = original;
    for (int i = 1; i < size; ++i) {
        const int j = std::rand() % (i + 1);
        if (j != i)
            std::swap(expected[i], expected[j]);
    }
    const int nextAfterExpected = std::rand();

    std::srand(seed);
    QStringList urls = original;
    shuffleUrls(urls);
    QCOMPARE(urls, expected);
    // As many draws as places after the first.
    QCOMPARE(std::rand(), nextAfterExpected);
}

void TestDataInterface::shuffleLeavesShortListsAndRandAlone_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::newRow("empty") << QStringList();
    QTest::newRow("one entry") << QStringList{playerPage};
}

void TestDataInterface::shuffleLeavesShortListsAndRandAlone()
{
    QFETCH(QStringList, urls);
    std::srand(7);
    const int first = std::rand();

    std::srand(7);
    QStringList shuffled = urls;
    shuffleUrls(shuffled);
    QCOMPARE(shuffled, urls);
    QCOMPARE(std::rand(), first);
}

void TestDataInterface::clearRecordsFreesInOrderAndKeepsStaticLists()
{
    TFM_League::teamUrls() = {u"/t/startseite/verein/1"_s};
    TFM_Team::playerUrls().append(u"/p/profil/spieler/1"_s);
    EP_League::teamUrls() = {web.plainUrl(u"/ep/team/1"_s)};
    EP_Team::playerUrls().append(u"slug"_s);
    FMD_League::playerUrls() = {web.plainUrl(u"/fmd/player/1"_s)};

    QStringList freed;
    DataInterface planner;
    planner.teams.append(new CountedRecord(u"team 1"_s, &freed));
    planner.players.append(new CountedRecord(u"player 1"_s, &freed));
    planner.leagues.append(new CountedRecord(u"league 1"_s, &freed));
    planner.players.append(nullptr);
    planner.players.append(new CountedRecord(u"player 2"_s, &freed));
    planner.leagues.append(new CountedRecord(u"league 2"_s, &freed));

    planner.clearRecords();
    QCOMPARE(
        freed,
        (QStringList{u"league 1"_s, u"league 2"_s, u"player 1"_s, u"player 2"_s, u"team 1"_s}));
    QVERIFY(planner.leagues.isEmpty());
    QVERIFY(planner.players.isEmpty());
    QVERIFY(planner.teams.isEmpty());

    QCOMPARE(TFM_League::teamUrls(), QStringList{u"/t/startseite/verein/1"_s});
    QCOMPARE(TFM_Team::playerUrls().urls, QStringList{u"/p/profil/spieler/1"_s});
    QCOMPARE(EP_League::teamUrls().size(), 1);
    QCOMPARE(EP_Team::playerUrls().urls, QStringList{u"slug"_s});
    QCOMPARE(FMD_League::playerUrls().size(), 1);

    // Clearing again frees nothing twice.
    planner.clearRecords();
    QCOMPARE(freed.size(), 5);
}

void TestDataInterface::destructorFreesRecords()
{
    QStringList freed;
    {
        DataInterface planner;
        planner.leagues.append(new CountedRecord(u"league"_s, &freed));
        planner.players.append(new CountedRecord(u"player"_s, &freed));
        planner.teams.append(new CountedRecord(u"team"_s, &freed));
    }
    QCOMPARE(freed, (QStringList{u"league"_s, u"player"_s, u"team"_s}));
}

enum class Entry { League, Team, Player };
Q_DECLARE_METATYPE(Entry)

static bool runEntry(DataInterface &planner, Entry entry, Website website, QString &text)
{
    switch (entry) {
    case Entry::League:
        return planner.testLeaguePage(website, text);
    case Entry::Team:
        return planner.testTeamPage(website, text);
    case Entry::Player:
        return planner.testPlayerPage(website, text);
    }
    return false;
}

void TestDataInterface::testEntries_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<Website>("website");

    QTest::newRow("league, Transfer Markt") << Entry::League << TransferMarkt;
    QTest::newRow("league, Elite Prospects") << Entry::League << EliteProspects;
    QTest::newRow("league, FMDataba") << Entry::League << FMDataba;
    QTest::newRow("team, Transfer Markt") << Entry::Team << TransferMarkt;
    QTest::newRow("team, Elite Prospects") << Entry::Team << EliteProspects;
    QTest::newRow("player, Transfer Markt") << Entry::Player << TransferMarkt;
    QTest::newRow("player, Elite Prospects") << Entry::Player << EliteProspects;
    QTest::newRow("player, FMDataba") << Entry::Player << FMDataba;
}

void TestDataInterface::testEntries()
{
    QFETCH(Entry, entry);
    QFETCH(Website, website);

    QStringList freed;
    DataInterface planner;
    planner.leagues.append(new CountedRecord(u"league"_s, &freed));
    planner.players.append(new CountedRecord(u"player"_s, &freed));
    planner.teams.append(new CountedRecord(u"team"_s, &freed));

    QString text = u"<html><body></body></html>"_s;
    QVERIFY(runEntry(planner, entry, website, text));
    QCOMPARE(freed, (QStringList{u"league"_s, u"player"_s, u"team"_s}));
    QCOMPARE(planner.website, website);

    const QList<DataWrapper *> &list = entry == Entry::League ? planner.leagues
        : entry == Entry::Team                                ? planner.teams
                                                              : planner.players;
    QCOMPARE(planner.leagues.size() + planner.teams.size() + planner.players.size(), 1);
    QCOMPARE(list.size(), 1);
    DataWrapper *record = list.first();

    bool rightClass = false;
    switch (entry) {
    case Entry::League:
        rightClass = website == TransferMarkt ? dynamic_cast<TFM_League *>(record) != nullptr
            : website == EliteProspects       ? dynamic_cast<EP_League *>(record) != nullptr
                                              : dynamic_cast<FMD_League *>(record) != nullptr;
        break;
    case Entry::Team:
        rightClass = website == TransferMarkt ? dynamic_cast<TFM_Team *>(record) != nullptr
                                              : dynamic_cast<EP_Team *>(record) != nullptr;
        break;
    case Entry::Player:
        rightClass = website == TransferMarkt ? dynamic_cast<TFM_Player *>(record) != nullptr
            : website == EliteProspects       ? dynamic_cast<EP_Player *>(record) != nullptr
                                              : dynamic_cast<FMD_Player *>(record) != nullptr;
        break;
    }
    QVERIFY(rightClass);
}

void TestDataInterface::testEntryWithoutRecordReturnsFalse_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<Website>("website");
    QTest::newRow("team, FMDataba") << Entry::Team << FMDataba;
    QTest::newRow("league, outside the enumeration") << Entry::League << Website(7);
    QTest::newRow("team, outside the enumeration") << Entry::Team << Website(-1);
    QTest::newRow("player, outside the enumeration") << Entry::Player << Website(3);
}

void TestDataInterface::testEntryWithoutRecordReturnsFalse()
{
    QFETCH(Entry, entry);
    QFETCH(Website, website);

    QStringList freed;
    DataInterface planner;
    planner.leagues.append(new CountedRecord(u"league"_s, &freed));
    planner.players.append(new CountedRecord(u"player"_s, &freed));
    planner.teams.append(new CountedRecord(u"team"_s, &freed));

    QString text = u"<html></html>"_s;
    QVERIFY(!runEntry(planner, entry, website, text));
    QCOMPARE(freed.size(), 3);
    QVERIFY(planner.leagues.isEmpty());
    QVERIFY(planner.players.isEmpty());
    QVERIFY(planner.teams.isEmpty());
    QCOMPARE(planner.website, website);
}

void TestDataInterface::testLeaguePageStoresEpSeason()
{
    DataInterface planner;
    planner.setSeason(1999);
    EP_League::selectedSeason = 0;
    QString text = u"<html></html>"_s;
    QVERIFY(planner.testLeaguePage(EliteProspects, text));
    QCOMPARE(EP_League::selectedSeason, 1999);

    // The other websites leave it as it is.
    planner.setSeason(2005);
    QVERIFY(planner.testLeaguePage(TransferMarkt, text));
    QCOMPARE(EP_League::selectedSeason, 1999);
}

void TestDataInterface::saveRecordsDispatchesByStoredWebsite_data()
{
    QTest::addColumn<Website>("stored");
    QTest::newRow("Transfer Markt") << TransferMarkt;
    QTest::newRow("FMDataba") << FMDataba;
    QTest::newRow("Elite Prospects") << EliteProspects;
}

void TestDataInterface::saveRecordsDispatchesByStoredWebsite()
{
    QFETCH(Website, stored);

    // An interval with no player details fetches nothing and stores the website.
    DataInterface planner;
    QStringList urls = {u"1-2"_s};
    planner.startDownload(stored, urls, false);
    QCOMPARE(planner.website, stored);

    const QString name = dir.filePath(u"dispatch_%1.csv"_s.arg(int(stored)));
    QVERIFY(planner.saveRecords(name, false));

    // The Transfer Markt and the FMDataba export each write their own title row
    // into the chosen file.
    QFile file(name);
    const QByteArray titles = file.open(QIODevice::ReadOnly) ? file.readLine() : QByteArray();
    const QByteArray common = "\xef\xbb\xbfId,NameInUrl,First name,Second name,Common name,"
                              "Complete name,DOB,Nation 1,"_ba;
    QCOMPARE(titles.startsWith(QByteArray(common + "Nation 2,")), stored == TransferMarkt);
    QCOMPARE(titles.startsWith(QByteArray(common + "Contract end,")), stored == FMDataba);
}

void TestDataInterface::saveRecordsAlwaysTrue()
{
    DataInterface planner;
    for (Website website : {TransferMarkt, FMDataba, EliteProspects}) {
        planner.website = website;
        QVERIFY(planner.saveRecords(dir.filePath(u"missing/folder/x.csv"_s), true));
    }
}

void TestDataInterface::testEntryDuringWaitingPass()
{
    // A test button stays live while a pass waits for a page: every time the
    // run's nested loop turns, an offline league test clears the records. The
    // passes must never touch a record after that.
    const QString second = TFM_ROOT_URL + u"/x/erweiterterkader/verein/9"_s;
    for (const QString &url : {nationalTeam, second}) {
        web.routeBody(url, "<html></html>"_ba);
    }
    TFM_Team::playerUrls().append(u"/a/profil/spieler/1"_s);
    TFM_Team::playerUrls().append(u"/b/profil/spieler/2"_s);
    web.routeBody(TFM_ROOT_URL + u"/a/profil/spieler/1"_s, "<html></html>"_ba);

    DataInterface planner;
    int tests = 0;
    QTimer tester;
    tester.setInterval(0);
    connect(&tester, &QTimer::timeout, &planner, [&planner, &tests] {
        QString text = u"<html></html>"_s;
        planner.testLeaguePage(TransferMarkt, text);
        ++tests;
    });
    tester.start();

    QStringList urls = {nationalTeam, second};
    planner.startDownload(TransferMarkt, urls, true);
    tester.stop();

    QVERIFY(tests > 0);
    QVERIFY(planner.leagues.size() <= 1);
    for (DataWrapper *record : std::as_const(planner.leagues))
        QVERIFY(dynamic_cast<TFM_League *>(record));
    for (DataWrapper *record : std::as_const(planner.teams))
        QVERIFY(dynamic_cast<TFM_Team *>(record));
    for (DataWrapper *record : std::as_const(planner.players))
        QVERIFY(dynamic_cast<TFM_Player *>(record));
    QCOMPARE(web.requestCount(TFM_ROOT_URL + u"/a/profil/spieler/1"_s), 1);
}

QM_TEST_MAIN(TestDataInterface)
#include "tst_datainterface.moc"
