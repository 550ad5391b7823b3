#pragma once

#include "common/event/eventfiles.h"
#include "common/event/eventlock.h"

#include <functional>
#include <optional>

// The ways to change one record file and its twin; several at once change in a FileBatch. Whoever
// changes a record file comes through here: the lock is taken, the file is read afresh, what would
// be lost goes to Saved, and main file and twin are written in this order. All functions throw
// FileError, with the label of the step that failed.

// The new records of a file, and of its twin where that holds others or stays as it is.
struct TwinRecords
{
    TwinRecords(const QByteArray &both) // NOLINT(google-explicit-constructor)
        : main(both)
        , twin(both)
    {
    }
    TwinRecords(QByteArray mainRecords, std::optional<QByteArray> twinRecords)
        : main(std::move(mainRecords))
        , twin(std::move(twinRecords))
    {
    }

    QByteArray main;
    std::optional<QByteArray> twin;
};

// Makes the new records from those that the main file holds (none when it is missing), or nothing
// to leave both files alone.
using RecordChange = std::function<std::optional<TwinRecords>(const QByteArray &)>;

// Rewrites a record file and its twin with what \a change makes of the main file. The file is read
// again just before it is replaced, and when another program wrote to it meanwhile, \a change is
// called again. A file that loses a record goes to Saved first. False when the files were left
// alone. When the main file was replaced and the twin could not be, the error's aftermath says so.
bool changeTwins(Session &session, RecordFile file, int race, const RecordChange &change,
                 const QString &inputLabel, const QString &label, const QString &twinLabel);

// Makes whole lines from what the main file holds; without lines nothing is appended.
using NewLines = std::function<QByteArray(const QByteArray &)>;

// Appends lines to a record file and then to its twin, one write and flush per file; missing files
// are created. When the twin fails, the lines are taken off the main file again, so that both are
// as before; when that fails too, the error's aftermath is Unsure, and appending the same lines
// again looks first which of them are on file. Returns what the main file holds now.
QByteArray appendTwins(Session &session, RecordFile file, int race, const NewLines &newLines,
                       const QString &inputLabel, const QString &label, const QString &twinLabel);

// Deletes a record file and its twin, unless the main file holds something else than \a expected by
// now: then the result is false. Copies of both go to Saved first; \a beforeDeletion comes between,
// without the lock, and what others write meanwhile keeps the files as well.
bool deleteTwins(Session &session, RecordFile file, int race, const QByteArray &expected,
                 const std::function<void()> &beforeDeletion, const QString &label,
                 const QString &twinLabel);
