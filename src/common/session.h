#pragma once

#include "common/addedbets.h"
#include "common/betrecords.h"
#include "common/bettors.h"
#include "common/horses.h"
#include "common/hostpath.h"
#include "common/pools.h"
#include "common/racepayoffs.h"
#include "common/settings.h"

// What one run of the program shares between its screens: made once in main, handed to every screen
// by reference. The tables hold what was last loaded for the current race.
struct Session
{
    Settings settings;
    HostPaths paths;
    BettorTable bettors;
    HorseTable horses;
    BetTable bets;
    PoolTable pools;
    RacePayoffs payoffs;          // while the pay-winners screen is open
    int multibetHousePercent = 0; // of every multibet pool, for this run
    QList<AddedBets> addedBets;   // by the last transfer from a satellite; a row for each race
};
