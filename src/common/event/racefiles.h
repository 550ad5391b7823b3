#pragma once

#include "common/event/session.h"

#include <span>

// Loading and saving the record files of the current race, and the list of bettors. All functions
// throw FileError and set the operation label.

// Reads the current race's Horses into the session. Returns what is wrong with the file, or an
// empty text.
QString loadHorses(Session &session, const QString &label);

// The current race's Horses as they are on file now; a missing file holds none.
HorseFile readHorsesIfThere(Session &session, const QString &label);

// Rewrites the current race's Horses and Horsesbackup from the session's horses (labels "Horses
// output", "Horsesbackup output").
void saveHorses(Session &session);

// Reads Bettors into the session.
void loadBettors(Session &session, const QString &label);

// Rewrites Bettors and Bettorsbackup with AnyBettor alone; what they held goes to Saved first. The
// labels are "Bettors output" and "Bettorsbackup output", each with \a labelEnd. Returns the number
// of copies.
int clearBettors(Session &session, const QString &labelEnd);

// Reads the current race's Bets into the session's bet table and totals its pools (label "Bets
// input"). Missing Bets are created empty; a missing Betsbackup is created as a copy of Bets.
// Returns a note of what was moved to Saved, or an empty text.
QString LoadRaceBets(Session &session);

// Creates the current race's Bets and Betsbackup empty where Bets are missing; a full Betsbackup is
// copied to Saved first (label "Bets input"). Returns a note as above.
QString CreateMissingRaceBets(Session &session);

// Creates the current race's Betsbackup as a copy of Bets when it is missing (label "Betsbackup
// Append").
void createMissingBetsBackup(Session &session);

// Appends the bets' records to the current race's Bets and then to Betsbackup (labels "Bets
// Append", "Betsbackup Append"), one write and flush per file. When the twin fails, the bets are
// taken off Bets again, so that nothing counts as placed.
void AppendBet(Session &session, std::span<const Bet> bets);

// Re-reads the current race's bets, and rewrites Bets and Betsbackup without the rows for which
// \a dropped is true, after a copy of both went to Saved. Then reloads the bets. All other lines
// stay byte for byte. \a confirmed sees the bets just read in the session before any is dropped;
// when it is false, nothing is changed and the result is false.
bool removeBets(Session &session, const std::function<bool(const BetRow &)> &dropped,
                const std::function<bool()> &confirmed = {},
                const QString &label = QStringLiteral("Bets Output"),
                const QString &twinLabel = QStringLiteral("Betsbackup Output"));
