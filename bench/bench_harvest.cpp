// Whole harvests fetched one page at a time from the fixture web on loopback,
// with the fetcher's pacing waits cut to nothing: Transfer Markt, one league, 20
// clubs and 500 players with their history pages; Elite Prospects, one league,
// 20 teams and 500 roster rows with their player pages; and a long Transfer
// Markt one of 5,000 players that follows the memory and how late a 10 ms timer
// fires.
#include "bench/benchpages.h"
#include "core/constants.h"
#include "core/datainterface.h"
#include "core/playerpagelist.h"
#include "core/sharedstate.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
#include "ep/epteam.h"
#include "status/statusdisplay.h"
#include "tests/support/fixtureweb.h"
#include "tfm/tfmhistory.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmplayer.h"
#include "tfm/tfmteam.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int clubCount = 20;
constexpr int playersPerClub = 25;
constexpr int playerCount = clubCount * playersPerClub;
// The league page, the squad pages, and a profile and a history page a player.
constexpr int pageCount = 1 + clubCount + 2 * playerCount;

constexpr qsizetype leagueBytes = 150 * 1024;
constexpr qsizetype squadBytes = 200 * 1024;
constexpr qsizetype profileBytes = 300 * 1024;
constexpr qsizetype historyBytes = 150 * 1024;

const QString leagueUrl = TFM_ROOT_URL + u"/bench-liga/startseite/wettbewerb/BL1"_s;

struct Site
{
    QString league;
    QStringList squads;
    QString profile;
    QString history;
};

QString clubPath(int club, const QString &word)
{
    return u"/club-%1/%2/verein/%1/saison_id/2023"_s.arg(club).arg(word);
}

QString playerPath(int player, const QString &word)
{
    return u"/player-%1/%2/spieler/%1"_s.arg(player).arg(word);
}

Site buildSite()
{
    Site site;
    QStringList clubs;
    for (int club = 1; club <= clubCount; ++club)
        clubs.append(clubPath(club, u"startseite"_s));
    site.league = leaguePage(clubs, leagueBytes);
    for (int club = 1; club <= clubCount; ++club) {
        QStringList players;
        for (int i = 0; i < playersPerClub; ++i)
            players.append(playerPath((club - 1) * playersPerClub + i + 1, u"profil"_s));
        site.squads.append(squadPage(u"Club %1"_s.arg(club), players, squadBytes));
    }
    site.profile = profilePage(profileBytes);
    site.history = historyPage(historyBytes);
    return site;
}

void routeSite(FixtureWeb &web, const Site &site)
{
    web.routeBody(leagueUrl + u"/plus/?saison_id=2023"_s, site.league.toUtf8());
    for (int club = 1; club <= clubCount; ++club) {
        web.routeBody(TFM_ROOT_URL + clubPath(club, u"leistungsdaten"_s),
                      site.squads.at(club - 1).toUtf8());
    }
    // One body for all players, shared: the memory figure is the harvest's own.
    const QByteArray profile = site.profile.toUtf8();
    const QByteArray history = site.history.toUtf8();
    for (int player = 1; player <= playerCount; ++player) {
        web.routeBody(TFM_ROOT_URL + playerPath(player, u"profil"_s), profile);
        web.routeBody(TFM_ROOT_URL + playerPath(player, u"detaillierteleistungsdaten"_s), history);
    }
}

// Mean milliseconds to scan one page of this harvest, offline: each kind timed
// over several scans and weighted by how often the harvest meets it.
double scanMillisecondsPerPage(const Site &site)
{
    constexpr int rounds = 20;
    QElapsedTimer timer;

    timer.start();
    for (int i = 0; i < rounds; ++i) {
        QString text = site.league;
        TFM_League league;
        league.parsePage(text);
    }
    const double league = double(timer.nsecsElapsed()) / rounds;
    TFM_League::teamUrls().clear();

    timer.start();
    for (int i = 0; i < rounds; ++i) {
        QString text = site.squads.at(i % clubCount);
        TFM_Team team;
        team.parsePage(text);
    }
    const double squad = double(timer.nsecsElapsed()) / rounds;
    TFM_Team::playerUrls() = PlayerPageList();

    timer.start();
    for (int i = 0; i < rounds; ++i) {
        QString text = site.profile;
        TFM_Player player;
        player.parsePage(text);
    }
    const double profile = double(timer.nsecsElapsed()) / rounds;

    timer.start();
    for (int i = 0; i < rounds; ++i) {
        QString text = site.history;
        QList<TFM_History> rows;
        QString name;
        QString date;
        TFM_History::scanHistoryPage(rows, text, name, date);
    }
    const double history = double(timer.nsecsElapsed()) / rounds;

    const double total = league + clubCount * squad + playerCount * profile + playerCount * history;
    return total / pageCount / 1e6;
}

// The timed rounds of a harvest through the planner, with the log box and the
// status panel attached. The passes' lists outlive a run, so every round starts
// by emptying them with resetLists; a round that does not fetch every page and
// make every player record fails the benchmark.
void runHarvests(benchmark::State &state, FixtureWeb &web, Website website,
                 const QString &leagueUrl, int players, int pages, double scanMs,
                 const std::function<void()> &resetLists)
{
    FastWaits fast(0);
    QPlainTextEdit log;
    StatusDisplay panel;
    setLogOutput(&log);
    setStatusDisplay(&panel);

    DataInterface data;
    QObject::connect(&data, &DataInterface::pageCountIncreased, &panel,
                     &StatusDisplay::incrementPageCountTotal);
    data.setSeason(2023);

    for (auto _ : state) {
        state.PauseTiming();
        resetLists();
        web.clearRequests();
        log.clear();
        panel.start();
        QStringList urls{leagueUrl};
        state.ResumeTiming();

        data.startDownload(website, urls, true);

        state.PauseTiming();
        panel.stop();
        if (data.players.size() != players || web.requests().size() != pages)
            state.SkipWithError("the harvest did not fetch every page");
        state.ResumeTiming();
    }

    setLogOutput(nullptr);
    setStatusDisplay(nullptr);

    state.counters["pages"] = pages;
    state.counters["pages/s"]
        = benchmark::Counter(double(state.iterations()) * pages, benchmark::Counter::kIsRate);
    state.counters["scan_ms/page"] = scanMs;
    state.counters["peak_rss_MB"] = peakResidentMegabytes();
}

void BM_Harvest(benchmark::State &state)
{
    FixtureWeb web;
    if (!web.start()) {
        state.SkipWithError("the fixture web could not listen");
        return;
    }
    const Site site = buildSite();
    routeSite(web, site);
    const double scanMs = scanMillisecondsPerPage(site);

    // Player data and history: two pages a player.
    setIncludePlayerData(true);
    setIncludePlayerHistory(true);
    setIncludeOlympicStats(false);
    runHarvests(state, web, TransferMarkt, leagueUrl, playerCount, pageCount, scanMs, [] {
        TFM_League::teamUrls().clear();
        TFM_Team::playerUrls() = PlayerPageList();
    });
}
BENCHMARK(BM_Harvest)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(3);

// An Elite Prospects harvest of one league, 20 teams and 500 roster rows, each
// row a player of his own with a 15-season career.
constexpr int epTeamCount = 20;
constexpr int epRowsPerTeam = 25;
constexpr int epPlayerCount = epTeamCount * epRowsPerTeam;
constexpr int epCareerRows = 15;
constexpr int epHistoryRows = 40;
constexpr int epPageCount = 1 + epTeamCount + epPlayerCount;

constexpr qsizetype epLeagueBytes = 150 * 1024;
constexpr qsizetype epTeamBytes = 300 * 1024;
constexpr qsizetype epPlayerBytes = 250 * 1024;

const QString epLeagueUrl = EP_ROOT_URL + u"/league/bench-liiga"_s;

// The league page links each team with the season of its own page.
QString epTeamUrl(int team)
{
    return EP_ROOT_URL + u"/team/%1/club-%1/2019-2020"_s.arg(team);
}

// Roster row i (from 1) of a team whose first player has the site number first.
QString epPlayerUrl(int first, int i)
{
    return EP_ROOT_URL + u"/player/%1/player-%2"_s.arg(first - 1 + i).arg(i);
}

// Mean milliseconds to scan one page of this harvest, offline, weighted as above.
double epScanMillisecondsPerPage(const QString &league, const QString &team, const QString &player)
{
    constexpr int rounds = 20;
    QElapsedTimer timer;
    const auto timed = [&timer](const auto &scan) {
        timer.start();
        for (int i = 0; i < rounds; ++i)
            scan();
        return double(timer.nsecsElapsed()) / rounds;
    };
    const double leagueNs = timed([&league] {
        QString text = league;
        EP_League record;
        record.parsePage(text);
    });
    EP_League::teamUrls().clear();
    const double teamNs = timed([&team] {
        QString text = team;
        EP_Team record;
        record.parsePage(text);
    });
    EP_Team::playerUrls() = PlayerPageList();
    const double playerNs = timed([&player] {
        QString text = player;
        EP_Player record;
        record.parsePage(text);
    });
    const double total = leagueNs + epTeamCount * teamNs + epPlayerCount * playerNs;
    return total / epPageCount / 1e6;
}

void BM_EpHarvest(benchmark::State &state)
{
    FixtureWeb web;
    if (!web.start()) {
        state.SkipWithError("the fixture web could not listen");
        return;
    }
    const QString league = epLeaguePage(epTeamCount, epLeagueBytes);
    web.routeBody(epLeagueUrl + u"/2023-2024?team-history=complete#team-history"_s,
                  league.toUtf8());
    // Every team has players of its own, so that no roster row is a duplicate.
    const QString playerPage = epPlayerPage(epCareerRows, epPlayerBytes);
    const QByteArray playerBody = playerPage.toUtf8();
    QString firstTeam;
    for (int team = 1; team <= epTeamCount; ++team) {
        const int first = 5001 + (team - 1) * epRowsPerTeam;
        const QString page = epTeamPage(epRowsPerTeam, epHistoryRows, epTeamBytes, first);
        if (team == 1)
            firstTeam = page;
        web.routeBody(epTeamUrl(team), page.toUtf8());
        // One body for all players, shared: the memory figure is the harvest's own.
        for (int i = 1; i <= epRowsPerTeam; ++i)
            web.routeBody(epPlayerUrl(first, i), playerBody);
    }
    const double scanMs = epScanMillisecondsPerPage(league, firstTeam, playerPage);

    runHarvests(state, web, EliteProspects, epLeagueUrl, epPlayerCount, epPageCount, scanMs, [] {
        EP_League::teamUrls().clear();
        EP_Team::playerUrls() = PlayerPageList();
    });
}
BENCHMARK(BM_EpHarvest)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(3);

constexpr int longClubCount = 200;
constexpr int longPlayerCount = longClubCount * playersPerClub;

// What a harvested player holds on the heap of its own: the object, its texts
// and its history rows, by their capacities.
qsizetype recordBytes(const TFM_Player &player)
{
    const auto text = [](const QString &s) { return s.capacity() * qsizetype(sizeof(QChar)); };
    qsizetype bytes = sizeof(TFM_Player);
    for (const QString *s :
         {&player.firstName, &player.secondName, &player.commonName, &player.completeName,
          &player.nation1, &player.nation2, &player.club, &player.onLoanFrom, &player.id,
          &player.nameInUrl, &player.foot, &player.mainPosition})
        bytes += text(*s);
    for (const QString &position : player.otherPositions)
        bytes += qsizetype(sizeof(QString)) + text(position);
    bytes += player.history.capacity() * qsizetype(sizeof(TFM_History));
    for (const TFM_History &row : player.history)
        bytes += text(row.club) + text(row.season);
    return bytes;
}

// 5,000 players of 200 clubs, about 10,000 pages. A 10 ms timer runs all along,
// as the window's own events would: how late it fires is how long a click
// waits. After every 1,000 players the peak resident memory is printed.
// The long harvest's pages, each made and handed to the web as bytes at once, so
// that the peak memory before the run is not that of 200 squad pages as text.
void routeLongSite(FixtureWeb &web)
{
    QStringList clubs;
    for (int club = 1; club <= longClubCount; ++club)
        clubs.append(clubPath(club, u"startseite"_s));
    web.routeBody(leagueUrl + u"/plus/?saison_id=2023"_s, leaguePage(clubs, leagueBytes).toUtf8());
    for (int club = 1; club <= longClubCount; ++club) {
        QStringList players;
        for (int i = 0; i < playersPerClub; ++i)
            players.append(playerPath((club - 1) * playersPerClub + i + 1, u"profil"_s));
        web.routeBody(TFM_ROOT_URL + clubPath(club, u"leistungsdaten"_s),
                      squadPage(u"Club %1"_s.arg(club), players, squadBytes).toUtf8());
    }
    const QByteArray profile = profilePage(profileBytes).toUtf8();
    const QByteArray history = historyPage(historyBytes).toUtf8();
    for (int player = 1; player <= longPlayerCount; ++player) {
        web.routeBody(TFM_ROOT_URL + playerPath(player, u"profil"_s), profile);
        web.routeBody(TFM_ROOT_URL + playerPath(player, u"detaillierteleistungsdaten"_s), history);
    }
}

void BM_LongHarvest(benchmark::State &state)
{
    FixtureWeb web;
    if (!web.start()) {
        state.SkipWithError("the fixture web could not listen");
        return;
    }
    routeLongSite(web);

    FastWaits fast(0);
    QPlainTextEdit log;
    StatusDisplay panel;
    setLogOutput(&log);
    setStatusDisplay(&panel);
    setIncludePlayerData(true);
    setIncludePlayerHistory(true);
    setIncludeOlympicStats(false);

    DataInterface data;
    QObject::connect(&data, &DataInterface::pageCountIncreased, &panel,
                     &StatusDisplay::incrementPageCountTotal);
    data.setSeason(2023);

    std::vector<double> lateness;
    // The three latest ticks, with the count of players done when each came.
    std::vector<std::pair<double, qsizetype>> latest;
    std::vector<double> resident;
    std::vector<double> ownBytes;
    const auto note = [&](qsizetype done) {
        resident.push_back(residentMegabytes());
        qsizetype bytes = 0;
        for (DataWrapper *record : std::as_const(data.players))
            bytes += recordBytes(*static_cast<TFM_Player *>(record));
        ownBytes.push_back(double(bytes) / (1024.0 * 1024.0));
        std::printf("%6lld players: peak resident %6.1f MB, resident %6.1f MB, records' own "
                    "%4.1f MB\n",
                    static_cast<long long>(done), peakResidentMegabytes(), resident.back(),
                    ownBytes.back());
        std::fflush(stdout);
    };
    QElapsedTimer clock;
    qint64 last = 0;
    QTimer tick;
    tick.setTimerType(Qt::PreciseTimer);
    tick.setInterval(10);
    QObject::connect(&tick, &QTimer::timeout, &tick, [&] {
        const qint64 now = clock.nsecsElapsed();
        const double late = std::max(0.0, double(now - last) / 1e6 - 10.0);
        lateness.push_back(late);
        last = now;
        // The test web keeps every request it served; that memory is the
        // bench's, not the program's.
        web.clearRequests();
        // The player list is only appended to during the run.
        const auto done = data.players.size();
        latest.emplace_back(late, done);
        std::sort(latest.rbegin(), latest.rend());
        if (latest.size() > 3)
            latest.pop_back();
        if (done >= qsizetype(resident.size() + 1) * 1000)
            note(done);
    });

    const double before = peakResidentMegabytes();
    for (auto _ : state) {
        // The passes' lists outlive a run.
        TFM_League::teamUrls().clear();
        TFM_Team::playerUrls() = PlayerPageList();
        web.clearRequests();
        log.clear();
        panel.start();
        QStringList urls{leagueUrl};
        clock.start();
        last = 0;
        tick.start();

        data.startDownload(TransferMarkt, urls, true);

        tick.stop();
        panel.stop();
        if (data.players.size() >= qsizetype(resident.size() + 1) * 1000)
            note(data.players.size());
        if (data.players.size() != longPlayerCount)
            state.SkipWithError("the harvest did not take in every player");
    }
    for (const auto &[late, done] : latest)
        std::printf("late tick: %5.1f ms, after %lld players\n", late,
                    static_cast<long long>(done));
    setLogOutput(nullptr);
    setStatusDisplay(nullptr);

    std::vector<double> sorted = lateness;
    std::sort(sorted.begin(), sorted.end());
    const auto percentile = [&sorted](double p) {
        if (sorted.empty())
            return 0.0;
        return sorted.at(std::min(sorted.size() - 1, size_t(p * double(sorted.size()))));
    };
    // Growth of the resident memory from one thousand players to the next, less
    // what the records of those players hold themselves.
    double worstGrowth = 0;
    for (size_t i = 1; i < resident.size(); ++i)
        worstGrowth = std::max(worstGrowth,
                               (resident[i] - resident[i - 1]) - (ownBytes[i] - ownBytes[i - 1]));

    state.counters["pages"] = 1 + longClubCount + 2 * longPlayerCount;
    state.counters["rss_before_MB"] = before;
    state.counters["rss_peak_MB"] = peakResidentMegabytes();
    state.counters["growth_MB_per_1000"] = worstGrowth;
    state.counters["late_max_ms"] = sorted.empty() ? 0.0 : sorted.back();
    state.counters["late_p99_ms"] = percentile(0.99);
    state.counters["ticks"] = double(lateness.size());
}
BENCHMARK(BM_LongHarvest)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(1);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
