#pragma once

#include "common/event/eventfiles.h"
#include "common/print/refundlist.h"

#include <functional>

// Clearing the current race's bets with refunds. File work throws FileError and sets the operation
// label.

// What is at stake in one bet file of a race; a missing file holds nothing.
struct RaceStakes
{
    float total = 0;         // dollars
    BettorTotals byBettor;   // dollars by bettor number
    std::size_t damaged = 0; // lines that hold no readable bet
    QByteArray records;      // of the file as it was read
};

// The stakes of the current race's Bets.
RaceStakes straightStakes(Session &session);

// The stakes of the current race's Multibets.
RaceStakes multibetStakes(Session &session);

// The list of what every bettor gets back for \a stakes of Bets or Multibets.
Slip raceRefunds(const Session &session, RecordFile file, const RaceStakes &stakes);

// Deletes the current race's Bets or Multibets and the twin after copies of both went to Saved and
// \a listRefunds has put out what is paid back. The cash journal then holds every refund.
// False, and nothing deleted, when another program has changed the file since the stakes were read.
// When only the twin could not be deleted, the bets are gone all the same: the error's aftermath
// says so.
bool clearRaceFile(Session &session, RecordFile file, const RaceStakes &stakes,
                   const std::function<void()> &listRefunds = {});
