#pragma once

#include "common/event/cashanswers.h"
#include "common/event/eventrecords.h"
#include "common/event/settle.h"

// A race by the settlement that the cash journal holds, and by its bets on file.

// Settles the race's bets once more as \a settled says. Bets of bettor numbers above
// \a bettorCount are bad records.
Settlement settleAsWritten(const RaceRecords &race, int bettorCount, const RaceSettled &settled);

// How many bettors the race still owes money to by its last settlement; 0 when there is none.
int unpaidWinners(const RaceRecords &race, int bettorCount, const CashJournal &journal);
