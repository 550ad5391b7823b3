#pragma once

#include "common/event/session.h"
#include "common/event/settle.h"

// Settling the current race from its files.

// The first post that no horse runs from, or 0 when all 21 have one. It stands in for a place or
// show horse that a small field does not have.
int firstUnusedPost(const HorseTable &horses);

// A race settled, and the bets that it was settled from.
struct SettledRace
{
    BetTable bets;
    Settlement settlement;
};

// Reads Bettors and the current race's Bets (label "Bets input", and "Bet file empty" when there is
// no such file) and settles the race with the session's horses. \a result gives the finishers, the
// house percentage and the mode. On success the session holds the bettors and, when anybody won,
// the payoffs, which the cash journal holds too. Throws FileError and then leaves the session's
// payoffs alone.
SettledRace settleCurrentRace(Session &session, RaceResult result);

// What happened to the current race's bets since \a settled was read from them, as a sentence for
// the operator; empty when nothing did. Reads Bets again (label "Bets input"); \a found receives
// what it holds. Throws FileError.
QString betsSinceSettled(Session &session, const BetTable &settled, BetTable &found);
