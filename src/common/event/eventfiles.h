#pragma once

#include "common/event/session.h"
#include "common/event/tornend.h"
#include "common/files/progress.h"
#include "common/files/recordfile.h"

// Every file name of an event is built here: event directory, base name and race name, with no
// separator. All functions throw FileError; those that are given labels throw it with its label.

// The record files of a race and those of the whole event.
enum class RecordFile { Horses, Bets, Multibets, Bettors };

// "Horses", "Bets", "Multibets" or "Bettors": what file names and operation labels begin with.
QString recordFileName(RecordFile file);

// This computer's path of a record file and of its twin; Bettors has no race.
QString mainFile(const Session &session, RecordFile file, int race);
QString twinFile(const Session &session, RecordFile file, int race);

// The bytes of a record file, read as the operation \a label; the last line is ended. One that was
// not is weighed against the twin: the file is mended from it (a copy goes to Saved), or the record
// is taken as it stands, or it is made one that every reader takes for damaged; the operator is
// told.
QByteArray readMainFile(Session &session, RecordFile file, int race, const QString &label);

// The same, or nothing when the file is missing.
std::optional<QByteArray> readMainFileIfThere(Session &session, RecordFile file, int race,
                                              const QString &label);

// The same; a file that is missing holds nothing.
QByteArray readMainOrNothing(Session &session, RecordFile file, int race, const QString &label);

// The same weighing for bytes that were just read, without mending.
FileEnd endOf(Session &session, RecordFile file, int race, const QByteArray &bytes);
QByteArray withSettledEnd(Session &session, RecordFile file, int race, const QByteArray &bytes);

// Shows a note about a file on the screen in use, unless it is empty.
void tell(Session &session, const QString &note);

// The event directory and its folder of kept copies, as this computer's paths.
QString eventFolder(const Session &session);
QString savedFolder(const Session &session);

// Puts a copy of a file into the Saved folder, with the time in its name. A missing or empty file
// needs none. Of each file the newest hundred copies stay, and all of today. Returns the copy's
// file name, or an empty text.
QString keepInSaved(Session &session, const QString &path);

// Makes the event directory (label "Bets drivedir-Setup"); one that is there already is no error.
// The shared folder of another computer is never made here: without it the error is 76.
void makeEventFolder(Session &session);

// What GO TO MENU does: Init, the event directory and every missing record file of the 12 races.
// Existing files are never touched; a full twin of a missing file is moved to Saved first. Returns
// a note that names what was moved, or an empty text.
QString CreateEventFiles(Session &session, const Progress &progress = {});

// The same without Init, for a directory whose record files may be missing.
QString createMissingEventFiles(Session &session, const Progress &progress = {});

// Creates a record file that is missing, and its twin, with the records of a new one; a full twin
// is copied to Saved first. A file that is there by now, because another program just began it,
// stays as it is. Returns a note as above.
QString createMissingTwins(Session &session, RecordFile file, int race, const QString &label,
                           const QString &twinLabel);

// Creates a twin that is missing as a copy of its main file.
void createMissingTwin(Session &session, RecordFile file, int race, const QString &label);
