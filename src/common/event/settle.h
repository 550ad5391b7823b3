#pragma once

#include "common/event/betrecords.h"
#include "common/event/pools.h"
#include "common/event/racepayoffs.h"

#include <array>
#include <optional>
#include <vector>

// Settling one race: from its bets to pools, payoffs and what every bettor is owed. Standard
// library alone. Amounts, pools, stakes and payoffs are single precision at every step.

// What the operator says about the race.
struct RaceResult
{
    std::array<int, finishCount> finishers{};  // 1-based posts of the win, place and show horse
    std::array<int, postCount + 1> coupling{}; // pool number by post (row 0 is not used), 0 = alone
    int bettorCount = 0;                       // bets of bettor numbers above it are bad records
    double housePercent = 0;
    bool is532 = false;                             // the win pool alone, split 50/30/20
    std::optional<CombinationAmounts> trackPayoffs; // per $1; replace the calculated payoffs
};

// A bettor who is owed something.
struct WinningBettor
{
    int number = 0;
    CombinationAmounts stakes; // the bettor's money on each winning combination
    float owed = 0;            // dollars, not rounded
};

struct Settlement
{
    PoolTable pools;
    int badRecords = 0;

    // The pools as they stand before money without a winning combination moves on.
    float winPool = 0;
    float placePool = 0;
    float showPool = 0;
    float allPools = 0;
    float houseCut = 0;

    CombinationAmounts winningStakes;   // of all bettors
    bool hasWinners = false;            // false: no winning combination in any pool, no payoffs
    CombinationAmounts beforeHouse;     // payoffs per $1, stake included
    CombinationAmounts payoffs;         // the same after the house percentage
    std::vector<WinningBettor> winners; // by bettor number
};

// True for a record that settling takes into account; any other is a bad one.
bool isAcceptedBet(const BetRow &row, int bettorCount);

Settlement settle(const BetTable &bets, const RaceResult &race);
