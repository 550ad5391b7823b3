#pragma once

#include "common/event/multibetrecords.h"
#include "common/event/session.h"

#include <vector>

// What the record files of the event hold: the readers that every screen, report and transfer uses.
// They return it; nothing is created or written. All throw FileError with the label of the
// operation.

// A race's horses, and what is wrong with the file.
HorseFile readHorses(Session &session, int race,
                     const QString &label = QStringLiteral("Horses input"));

// The same, but a missing file holds no horses.
HorseFile readHorsesIfThere(Session &session, int race,
                            const QString &label = QStringLiteral("Horses input"));

// A race's bets; 53 when the file is missing.
BetTable readBets(Session &session, int race, const QString &label = QStringLiteral("Bets input"));

// A race's multibets; 53 when the file is missing.
MultibetTable readMultibets(Session &session, int race,
                            const QString &label = QStringLiteral("Multibets input"));

// The list of bettors.
BettorTable readBettors(Session &session, const QString &label = QStringLiteral("Bettors input"));

struct RaceRecords
{
    int race = 0; // 1 to 12
    HorseTable horses;
    QString horseDamage; // what is wrong with the file of the horses, or empty
    BetTable bets;
    MultibetTable multibets;
};

// One race's horses, bets and multibets (labels "Horses input", "Bets input", "Multibets input"). A
// file of bets or multibets that is missing has none.
RaceRecords readRace(Session &session, int race);

// All races, or the single race \a race when it is not 0.
std::vector<RaceRecords> readRaces(Session &session, int race);
