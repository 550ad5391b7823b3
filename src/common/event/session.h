#pragma once

#include "common/event/addedbets.h"
#include "common/event/betrecords.h"
#include "common/event/bettors.h"
#include "common/event/fileaccess.h"
#include "common/event/horses.h"
#include "common/event/pools.h"
#include "common/event/racepayoffs.h"
#include "common/event/settings.h"
#include "common/files/hostpath.h"

#include <QMap>

// What one run of the program shares between its screens: made once in main, handed to every screen
// by reference. The tables hold what was last loaded for the current race.
struct Session
{
    Settings settings;
    HostPaths paths;
    FileAccess files;
    BettorTable bettors;
    HorseTable horses;
    BetTable bets;
    PoolTable pools;
    RacePayoffs payoffs;                 // while the pay-winners screen is open
    int multibetHousePercent = 0;        // of every multibet pool, for this run
    QMap<int, double> paidHousePercents; // by race: what Pay Winners paid it with in this run
    QList<AddedBets> addedBets; // by the last transfer from a satellite; a row for each race
};
