#pragma once

#include "common/session.h"

#include <QStringList>

#include <optional>

// Taking in the record files that another computer made, from any folder: horses replace those
// here, bettors and bets are added. A bettor of the same name is the same person and keeps the
// number here; the others get new numbers, and their bets with them.

struct ImportChoice
{
    bool horses = false;
    bool bettors = false;
    bool bets = false;
};

// What an import takes in, or took in, for one race.
struct ImportedRace
{
    int race = 0;
    bool hasHorses = false;     // the card is replaced
    bool hasBets = false;       // the folder holds a Bets file of the race
    int bets = 0;               // records that are added
    double dollars = 0;         // of the bets added
    int leftOut = 0;            // damaged records, and bets of numbers that no name there explains
    bool looksImported = false; // every bet added was on file here before, as often
};

struct ImportResult
{
    QString refusal;        // why nothing was changed; empty after an import
    QStringList duplicates; // names that were here already
    QStringList added;      // names that are new here
    QList<ImportedRace> races;
};

// The record files of an event that a folder (backslash form, ends in a backslash) holds, in plain
// order.
QStringList importableFiles(const Session &session, const QString &folder);

// Imports what \a choice names from the folder. All is read and checked before anything is written;
// what is replaced or added to goes to Saved first. Throws FileError, 53 when the folder holds
// nothing that was chosen.
ImportResult importEvent(Session &session, const QString &folder, const ImportChoice &choice);
