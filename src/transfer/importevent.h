#pragma once

#include "common/event/session.h"
#include "transfer/thumbdrive.h"

#include <QStringList>

// Taking in the record files that another computer made, from any folder: horses replace those
// here, bettors and bets are added. A bettor of the same name is the same person and keeps the
// number here; the others get new numbers, and their bets with them.

struct ImportChoice
{
    bool horses = false;
    bool bettors = false;
    bool bets = false;
};

// What an import takes in for one race.
struct ImportedRace
{
    int race = 0;
    int horses = 0;           // on the card that replaces the one here; 0 leaves that alone
    bool cardHadBets = false; // the card replaced was another one, and bets were on file for it
    QString cardDamage;       // what is wrong with the card there, or empty
    int bets = 0;             // records that are added
    double dollars = 0;       // of the bets added
    int leftOut = 0;          // damaged records, and bets of numbers that no name there explains
    int onFile = 0;           // of the bets there: on file here already, one for one
    double onFileDollars = 0;
    bool onFileAdded = true; // those are among the bets added
    int betsHere = 0;        // records on file before the import
};

// An import that was read and checked but not written.
struct ImportPlan
{
    QString refusal;        // why it cannot be done; empty when it can
    QString note;           // of files that were missing here and had to be made first
    QStringList duplicates; // names that are here already
    QStringList added;      // names that are new here
    QList<ImportedRace> races;

    // What is written. The bettors are numbered on top of the list as it was read.
    QByteArray bettorsHere;
    QByteArray bettorLines;
    std::array<QByteArray, raceCount> cards;
    std::array<QByteArray, raceCount> betLines;
    std::array<QByteArray, raceCount> newBetLines; // without those that are on file here

    // "Race1: 2 of 5 bets are new", a line for each race with bets that are on file here already.
    QStringList racesOnFile() const;

    // Takes the bets that are on file here out.
    void leaveOutBetsOnFile();
};

// The record files of an event that a folder (backslash form, ends in a backslash) holds, in the
// order of the races. Throws FileError, 76 when the folder is gone.
QStringList importableFiles(const Session &session, const QString &folder);

// Reads and checks what \a choice names from the folder; record files that are missing here are
// made. Throws FileError.
ImportPlan planImport(Session &session, const QString &folder, const ImportChoice &choice,
                      const Progress &progress = {});

// Writes what was planned: everything to temporary files first, so that a full disk changes
// nothing; what is replaced or added to goes to Saved before. Returns a refusal when the bettor
// list here changed since it was read or a race has no room, else an empty text. Throws FileError.
QString carryOutImport(Session &session, const ImportPlan &plan, const Progress &progress = {});

// The result as the table of the screen shows it: a row for each race that gained something or left
// something out, and one for all; each begins with its heading.
struct ImportTable
{
    QStringList columns;
    QList<QStringList> rows;
};
ImportTable importTable(const QList<ImportedRace> &races);

// One line that sums an import up.
QString importSummary(const ImportPlan &plan);
