#pragma once

#include "betting/refundlist.h"
#include "common/eventfiles.h"

// Clearing a race's bets with refunds. File work throws FileError and sets the operation label; a
// missing file holds no stakes.

// What is at stake in one bet file of a race.
struct RaceStakes
{
    float total = 0;         // dollars
    BettorTotals byBettor;   // dollars by bettor number
    std::size_t damaged = 0; // lines that hold no readable bet
};

// The stakes of the current race's Bets.
RaceStakes straightStakes(Session &session);

// The stakes of the current race's Multibets.
RaceStakes multibetStakes(Session &session);

// The list of what every bettor gets back; \a closing is "TOTAL BETS " or "TOTAL MULTIBETS ".
Slip raceRefunds(const Session &session, const RaceStakes &stakes, const QString &closing);

// Deletes the current race's file and its twin. Copies of both must be in Saved before.
void deleteTwins(Session &session, RecordFile file);

// Empties the tables of the current race's straight bets.
void forgetBets(Session &session);
