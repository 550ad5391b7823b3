#pragma once

#include "common/event/session.h"
#include "common/files/recordfile.h"

#include <QLockFile>

#include <functional>
#include <optional>

// Every file name of an event is built here: event directory, base name and race name, with no
// separator. All functions throw FileError; those that are given labels throw it with its label.

// The record files of a race and those of the whole event.
enum class RecordFile { Horses, Bets, Multibets, Bettors };

// "Horses", "Bets", "Multibets" or "Bettors": what file names and operation labels begin with.
QString recordFileName(RecordFile file);

// This computer's path of a record file and of its twin; Bettors has no race.
QString mainFile(const Session &session, RecordFile file, int race);
QString twinFile(const Session &session, RecordFile file, int race);

// The bytes of a record file, read as the operation \a label.
QByteArray readMainFile(Session &session, RecordFile file, int race, const QString &label);

// The event directory and its folder of kept copies, as this computer's paths.
QString eventFolder(const Session &session);
QString savedFolder(const Session &session);

// Keeps the other computers of network mode from writing the event's files at the same time. It is
// advisory: waited for at most 2 seconds and then done without, so that a computer that crashed
// stops nobody. On local files it does nothing.
class EventLock
{
public:
    explicit EventLock(const Session &session);

private:
    std::optional<QLockFile> m_lock;
};

// Makes the new bytes of a record file from those it holds, or nothing to leave it alone.
using RecordChange = std::function<std::optional<QByteArray>(const QByteArray &)>;

// Rewrites a record file and its twin with what \a change makes of the main file. The file is read
// afresh, and read again when another computer wrote to it meanwhile, so that nothing written there
// is lost; \a change may therefore be called several times. Both files go to Saved first when the
// content changes. Sets \a inputLabel, then \a label and \a twinLabel. False when the file
// was left alone.
bool changeTwins(Session &session, RecordFile file, int race, const RecordChange &change,
                 const QString &inputLabel, const QString &label, const QString &twinLabel);

// Rewrites a record file and then its twin with the same records.
void rewriteTwins(Session &session, RecordFile file, int race, const QByteArray &records,
                  const QString &label, const QString &twinLabel);

// Appends whole lines to a record file and then to its twin, one write and flush per file. When the
// twin fails, the lines are taken off the main file again, so that both are as before.
void appendTwins(Session &session, RecordFile file, int race, const QByteArray &lines,
                 const QString &label, const QString &twinLabel);

// Adds to \a files the main file and the twin as they would be with whole lines appended, for
// replaceRecordFiles: appending to several files at once, or to none.
void addTwinsWithLines(QList<NamedBytes> &files, const Session &session, RecordFile file, int race,
                       const QByteArray &lines);

// Puts a copy of a file into the Saved folder, with the time in its name. A missing or empty file
// needs none. Returns the copy's file name, or an empty text.
QString keepInSaved(Session &session, const QString &path);

// The same for a record file and its twin, before they are shortened, deleted or replaced. Returns
// the number of copies.
int keepTwinsInSaved(Session &session, RecordFile file, int race);

// Makes the event directory (label "Bets drivedir-Setup"); one that is there already is no error.
// The shared folder of another computer is never made here: without it the error is 76.
void makeEventFolder(Session &session);

// What GO TO MENU does: Init, the event directory and every missing record file of the 12 races.
// Existing files are never touched; a full twin of a missing file is moved to Saved first. Returns
// a note that names what was moved, or an empty text.
QString CreateEventFiles(Session &session);

// The same without Init, for a directory whose record files may be missing.
QString createMissingEventFiles(Session &session);

// Creates the current race's Bets and Betsbackup empty; a full Betsbackup is moved to Saved first.
// Returns a note as above.
QString CreateMissingRaceBets(Session &session);
