#pragma once

#include "common/event/multibetrecords.h"
#include "common/event/session.h"

#include <vector>

// What the record files hold, read for a summary or a report. Nothing is created or written, and
// the tables of the session stay as they are. All functions throw FileError and set the operation
// label.

struct RaceRecords
{
    int race = 0; // 1 to 12
    HorseTable horses;
    QString horseDamage; // what is wrong with the file of the horses, or empty
    BetTable bets;
    MultibetTable multibets;
};

// One race's horses (label "Horses input").
RaceRecords readRaceHorses(Session &session, int race);

// One race's horses, bets and multibets (labels "Horses input", "Bets input", "Multibets input"). A
// file of bets or multibets that is missing has none.
RaceRecords readRace(Session &session, int race);

// All races, or the single race \a race when it is not 0.
std::vector<RaceRecords> readRaces(Session &session, int race);

// The list of bettors (label "Bettors input").
BettorTable readBettors(Session &session);
