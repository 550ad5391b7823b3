#pragma once

#include "common/event/session.h"
#include "common/files/folders.h"

// Choosing the drive and folder of an event. Folders are paths in backslash form that end in one
// backslash. File work throws FileError and sets the operation label; on failure the event
// directory is as before.

// What the screens say about the directory of the run before: "Last event directory: D:\Party\"
// until a directory was chosen or used, then an empty text.
QString lastDirectoryNote(const Settings &settings);

// Makes the root of \a drive ("D:") the event directory.
void chooseDrive(Session &session, const QString &drive);

// Makes the folder the event directory and writes it to Init.
void chooseFolder(Session &session, const QString &folder);

// Makes a new folder inside \a parent and rewrites Init; the event directory stays.
void createFolder(Session &session, const QString &parent, const QString &name);
