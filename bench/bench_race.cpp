// What a full race costs: 20,000 bets of 2,000 bettors on 21 horses.

#include "common/event/placement.h"
#include "common/event/settle.h"
#include "fullevent.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

RaceResult raceResult()
{
    RaceResult race;
    race.finishers = {3, 7, 12};
    race.bettorCount = bettorCount;
    race.housePercent = 10;
    return race;
}

BetEntries fullSheet()
{
    BetEntries entries;
    for (int post = 1; post <= postCount; ++post) {
        for (const BetType type : {BetType::Win, BetType::Place, BetType::Show})
            entries.add(post, type, 2);
    }
    return entries;
}

void loadBets(benchmark::State &state)
{
    const std::string bytes = raceOf(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(poolsOf(parseBets(bytes)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(loadBets)
    ->RangeMultiplier(10)
    ->Range(2000, 200000)
    ->Arg(fullRace)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void settleRace(benchmark::State &state)
{
    const BetTable bets = parseBets(raceOf(int(state.range(0))));
    const RaceResult race = raceResult();
    for (auto _ : state)
        benchmark::DoNotOptimize(settle(bets, race));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(settleRace)
    ->RangeMultiplier(10)
    ->Range(2000, 200000)
    ->Arg(fullRace)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void loadRaceFile(benchmark::State &state)
{
    FullEvent event;
    for (auto _ : state)
        LoadRaceBets(event.session);
}
BENCHMARK(loadRaceFile)->Unit(benchmark::kMillisecond);

void planSheetOf63Cells(benchmark::State &state)
{
    const BetEntries entries = fullSheet();
    for (auto _ : state)
        benchmark::DoNotOptimize(planPlacement(entries, 7, 0, fullRace));
}
BENCHMARK(planSheetOf63Cells)->Unit(benchmark::kMicrosecond);

// To file and twin, flushed to the disk.
void appendSheetOf63Cells(benchmark::State &state)
{
    FullEvent event;
    const PlacementPlan plan = planPlacement(fullSheet(), 7, 0, fullRace);
    for (auto _ : state)
        AppendBet(event.session, plan.bets);
}
BENCHMARK(appendSheetOf63Cells)->Unit(benchmark::kMillisecond);

} // namespace
