#pragma once

#include "common/event/session.h"

// Adding to, deleting from and saving the one list of bettors. The list lives in the session while
// its screen is open and reaches the files when the screen is left. What touches files throws
// FileError and sets the operation label.

// A typed name as the list holds it: upper case, without what a record cannot hold.
QString bettorNameFor(const QString &typed);

// Why the next new bettor has no place: its number is beyond the limit, or its slot or its number
// belongs to another bettor. Empty when there is a place.
QString noPlaceReason(const BettorTable &bettors, int bettorLimit);

// Marks the slot of the name as deleted: number 999, no name.
void markBettorDeleted(BettorTable &bettors, const QString &name);

// The dollars that the bettor has on this race, all posts and types together.
float betTotal(const BetTable &bets, int number);

// Takes the bettor's bets out of the current race's files. Returns a note of what was moved to
// Saved, or an empty text; \a refund is set before a file is changed.
QString takeOutBets(Session &session, int number, float &refund);

// The races in which the bettor number has bets, "Race5 $12.00, Race8 $4.00"; empty when it has
// none. A race whose bets cannot be read is named too.
QString racesWithBets(const Session &session, int number, bool withCurrentRace);

// Writes Bettors and Bettorsbackup from the list (labels "Bettors output", "Bettorsbackup output").
// A file that loses a record is copied to Saved first. The file is read again: what other programs
// wrote since the list was \a asRead stays, and names that are new here take the next free numbers
// after them. Returns a note of new numbers, or an empty text.
QString saveBettors(Session &session, const BettorTable &asRead);

// Starts Bettors and Bettorsbackup anew with AnyBettor alone and reads them back. What they held
// is copied to Saved first.
void clearBettorList(Session &session);

// What the operator should know about the list that was read: a missing AnyBettor, damaged lines.
QString bettorListNote(const BettorTable &bettors);
