// Scanning time of each page kind of the three sites on pages of the sites'
// real size.
#include "bench/benchpages.h"
#include "core/playerpagelist.h"
#include "ep/epleague.h"
#include "ep/epplayer.h"
#include "ep/epteam.h"
#include "fmd/fmdleague.h"
#include "fmd/fmdplayer.h"
#include "tfm/tfmhistory.h"
#include "tfm/tfmleague.h"
#include "tfm/tfmplayer.h"
#include "tfm/tfmteam.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype leagueBytes = 150 * 1024;
constexpr qsizetype squadBytes = 200 * 1024;
constexpr qsizetype profileBytes = 300 * 1024;
constexpr qsizetype historyBytes = 150 * 1024;
constexpr qsizetype fmdListBytes = 120 * 1024;
constexpr qsizetype fmdProfileBytes = 150 * 1024;
constexpr qsizetype epLeagueBytes = 150 * 1024;
constexpr qsizetype epTeamBytes = 300 * 1024;
constexpr qsizetype epPlayerBytes = 250 * 1024;
constexpr int epCareerRows = 15;

QStringList numberedPaths(const QString &format, int count)
{
    QStringList paths;
    for (int i = 1; i <= count; ++i)
        paths.append(format.arg(i));
    return paths;
}

void reportPage(benchmark::State &state, const QString &page)
{
    const auto bytes = page.toUtf8().size();
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["page_KB"] = double(bytes) / 1024.0;
    state.counters["pages/s"]
        = benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_LeaguePage(benchmark::State &state)
{
    const QString page
        = leaguePage(numberedPaths(u"/club-%1/startseite/verein/%1"_s, 20), leagueBytes);
    for (auto _ : state) {
        state.PauseTiming();
        TFM_League::teamUrls().clear();
        QString text = page;
        state.ResumeTiming();
        TFM_League league;
        league.parsePage(text);
        benchmark::DoNotOptimize(league.leagueName);
    }
    if (TFM_League::teamUrls().size() != 20)
        state.SkipWithError("the league page gave the wrong number of clubs");
    reportPage(state, page);
}
BENCHMARK(BM_LeaguePage);

void BM_SquadPage(benchmark::State &state)
{
    const QString page
        = squadPage(u"FC One"_s, numberedPaths(u"/player-%1/profil/spieler/%1"_s, 25), squadBytes);
    for (auto _ : state) {
        state.PauseTiming();
        TFM_Team::playerUrls() = PlayerPageList();
        QString text = page;
        state.ResumeTiming();
        TFM_Team team;
        team.parsePage(text);
        benchmark::DoNotOptimize(team.teamName);
    }
    if (TFM_Team::playerUrls().count() != 25)
        state.SkipWithError("the squad page gave the wrong number of players");
    reportPage(state, page);
}
BENCHMARK(BM_SquadPage);

void BM_ProfilePage(benchmark::State &state)
{
    const QString page = profilePage(profileBytes);
    for (auto _ : state) {
        state.PauseTiming();
        QString text = page;
        state.ResumeTiming();
        TFM_Player player;
        player.parsePage(text);
        benchmark::DoNotOptimize(player.marketValue);
        if (player.secondName != u"Smith"_s)
            state.SkipWithError("the profile page was not read");
    }
    reportPage(state, page);
}
BENCHMARK(BM_ProfilePage);

void BM_HistoryPage(benchmark::State &state)
{
    const QString page = historyPage(historyBytes);
    for (auto _ : state) {
        state.PauseTiming();
        QString text = page;
        QList<TFM_History> rows;
        QString name;
        QString date;
        state.ResumeTiming();
        TFM_History::scanHistoryPage(rows, text, name, date);
        benchmark::DoNotOptimize(rows.size());
        if (rows.size() != 2)
            state.SkipWithError("the history page gave the wrong number of rows");
    }
    reportPage(state, page);
}
BENCHMARK(BM_HistoryPage);

void BM_FmdListPage(benchmark::State &state)
{
    const QString page = fmdListPage(
        numberedPaths(u"https://fmdataba.com/19/p/%1/player-%1/"_s, 50), fmdListBytes);
    for (auto _ : state) {
        state.PauseTiming();
        FMD_League::playerUrls().clear();
        QString text = page;
        state.ResumeTiming();
        FMD_League league;
        league.parsePage(text);
        benchmark::DoNotOptimize(text.size());
    }
    if (FMD_League::playerUrls().size() != 50)
        state.SkipWithError("the list page gave the wrong number of players");
    reportPage(state, page);
}
BENCHMARK(BM_FmdListPage);

void BM_FmdProfilePage(benchmark::State &state)
{
    const QString page = fmdProfilePage(fmdProfileBytes);
    for (auto _ : state) {
        state.PauseTiming();
        QString text = page;
        state.ResumeTiming();
        FMD_Player player;
        player.parsePage(text);
        benchmark::DoNotOptimize(player.marketValue);
        if (player.secondName != u"Smith"_s || player.attributes.value(u"Technique"_s) != 9)
            state.SkipWithError("the profile page was not read");
    }
    reportPage(state, page);
}
BENCHMARK(BM_FmdProfilePage);

void BM_EpLeaguePage(benchmark::State &state)
{
    const QString page = epLeaguePage(20, epLeagueBytes);
    EP_League::selectedSeason = 2019;
    for (auto _ : state) {
        state.PauseTiming();
        EP_League::teamUrls().clear();
        QString text = page;
        state.ResumeTiming();
        EP_League league;
        league.parsePage(text);
        benchmark::DoNotOptimize(league.leagueName);
    }
    if (EP_League::teamUrls().size() != 20)
        state.SkipWithError("the league page gave the wrong number of teams");
    reportPage(state, page);
}
BENCHMARK(BM_EpLeaguePage);

void BM_EpTeamPage(benchmark::State &state)
{
    const QString page = epTeamPage(30, 40, epTeamBytes);
    for (auto _ : state) {
        state.PauseTiming();
        EP_Team::playerUrls() = PlayerPageList();
        QString text = page;
        state.ResumeTiming();
        EP_Team team;
        team.parsePage(text);
        benchmark::DoNotOptimize(team.founded);
        if (team.histories.size() != 40 || team.retiredNumbers.size() != 3)
            state.SkipWithError("the team page gave the wrong number of rows");
    }
    if (EP_Team::playerUrls().count() != 30)
        state.SkipWithError("the team page gave the wrong number of roster rows");
    reportPage(state, page);
}
BENCHMARK(BM_EpTeamPage);

void BM_EpPlayerPage(benchmark::State &state)
{
    const QString page = epPlayerPage(epCareerRows, epPlayerBytes);
    for (auto _ : state) {
        state.PauseTiming();
        QString text = page;
        state.ResumeTiming();
        EP_Player player;
        player.parsePage(text);
        benchmark::DoNotOptimize(player.histories.size());
        if (player.histories.size() != epCareerRows || player.capHit != 1250000)
            state.SkipWithError("the player page was not read whole");
    }
    reportPage(state, page);
}
BENCHMARK(BM_EpPlayerPage);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
