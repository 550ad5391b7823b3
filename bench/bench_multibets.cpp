// What the exotic bets of a race cost: a full preview, and 20,000 single bets settled.

#include "multibets/expansion.h"
#include "multibets/multisettle.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int bettorCount = 2000;

BettorTable bettors()
{
    BettorTable table(bettorCount);
    for (int n = 1; n <= bettorCount; ++n)
        table.setSlot(n, {n, "BETTOR "_L1 + QString::number(n)});
    return table;
}

// Trifectas whose posts and bettors follow no pattern.
MultibetTable trifectas(int count)
{
    std::string bytes;
    for (int n = 0; n < count; ++n) {
        const auto mixed = unsigned(n) * 2654435761U >> 7;
        const Multibet bet{{int(mixed % 21) + 1, int(mixed / 3 % 21) + 1, int(mixed / 7 % 21) + 1},
                           u"T"_s,
                           double(mixed / 11 % 40 + 1) / 2,
                           int(mixed % bettorCount) + 1};
        bytes += multibetLine(bet).toStdString();
    }
    return parseMultibets(std::move(bytes));
}

void previewFullBox(benchmark::State &state)
{
    MultibetEntry entry;
    entry.type = u"T"_s;
    entry.boxed = {true, true, true};
    entry.stake = 1;
    entry.bettor = 7;
    for (QList<int> &line : entry.posts)
        line = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    for (auto _ : state)
        benchmark::DoNotOptimize(expandEntry(entry));
}
BENCHMARK(previewFullBox)->Unit(benchmark::kMillisecond);

void settleTrifectas(benchmark::State &state)
{
    const MultibetTable bets = trifectas(int(state.range(0)));
    const BettorTable table = bettors();
    const std::array<int, 3> winners = bets.rows.front().bet.posts;
    for (auto _ : state)
        benchmark::DoNotOptimize(settleMultibets(bets, table, u"T"_s, winners, 10));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(settleTrifectas)
    ->RangeMultiplier(10)
    ->Range(2000, 200000)
    ->Arg(20000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

// Nobody wins: every combination is given back.
void refundTrifectas(benchmark::State &state)
{
    const MultibetTable bets = trifectas(20000);
    const BettorTable table = bettors();
    for (auto _ : state)
        benchmark::DoNotOptimize(settleMultibets(bets, table, u"T"_s, {1, 1, 1}, 10));
}
BENCHMARK(refundTrifectas)->Unit(benchmark::kMillisecond);

} // namespace
