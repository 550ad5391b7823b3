#pragma once

#include "common/event/eventfiles.h"
#include "common/print/slip.h"
#include "repair/recordrows.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// A record file as the repair screen lists it: a row for each record, with what is wrong with it.

enum class Listing {
    None,
    Bets,
    BackupBets,
    Multibets,
    Bettors,
    BackupBettors,
    Horses,
    BackupHorses,
    SavedCopies,
};

struct RecordList
{
    Listing listing = Listing::None;
    int race = 0; // 0 for a file of the whole event
    QString heading;
    QStringList columns;
    QList<RecordRow> rows;
    // The cells of a row that does not hold them all, because they take time or a file to read.
    std::function<QStringList(const RecordRow &row)> lateCells;
    QString missingFile;       // the file whose absence ended the list, or empty
    QStringList missingHorses; // of later races: their horses stand in the rows as posts
    QString damage;            // what the file lacks as a whole, as a sentence, or empty

    int damagedRows() const;
    QStringList cells(const RecordRow &row) const; // all of them
};

// True for the files that each race has of its own.
bool isRaceListing(Listing listing);

// Reads and checks the records of a listing. A missing file ends the list with the rows read so
// far; any other failure throws FileError. Sets the operation label. \a race is 1 to 12.
RecordList listRecords(Session &session, Listing listing, int race);

// Rewrites the listing's file and its twin without the record that a row of the list stands for,
// after a copy of both went to Saved. False, and nothing changed, when the file no longer holds
// that record in its place. Only the main files of bets, multibets and bettors can be changed.
bool removeRecord(Session &session, const RecordList &list, const RecordRow &row);

// The list on paper: fixed pitch, a line a row in the order given, columns padded with blanks.
Slip recordListSlip(const RecordList &list, const QList<QStringList> &rows);
