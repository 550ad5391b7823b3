#pragma once

#include "common/event/addedbets.h"
#include "common/event/bettors.h"
#include "common/event/fileaccess.h"
#include "common/event/horses.h"
#include "common/event/racepayoffs.h"
#include "common/event/settings.h"
#include "common/files/hostpath.h"

#include <memory>

// What one run of the program shares between its screens: made once in main, handed to every screen
// by reference. What a screen reads for itself it keeps itself.
struct Session
{
    Settings settings;
    HostPaths paths;
    FileAccess files;
    BettorTable bettors;          // the list as last read, or as its screen is changing it
    HorseTable horses;            // of the race being paid
    RacePayoffs payoffs;          // while the pay-winners screen is open
    int multibetHousePercent = 0; // of every multibet pool, for this run
    QList<AddedBets> addedBets;   // by the last transfer from a satellite; a row for each race
    std::shared_ptr<const Session> realEvent =
        {}; // as it was left, while the event is for practice

    bool isPractice() const { return realEvent != nullptr; }
};
