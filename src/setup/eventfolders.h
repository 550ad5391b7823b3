#pragma once

#include "common/session.h"

#include <QStringList>

// Choosing the drive and folder of an event. Folders are paths in backslash form that end in one
// backslash. File work throws FileError and sets the operation label; on failure the event
// directory is as before.

// "C:\" and "C:\Trelawn\" for C:\Trelawn\: the folder and those it lies in, from the root on.
QStringList foldersAbove(const QString &folder);

// The names of the folders inside \a folder, in plain order.
QStringList foldersInside(const Session &session, const QString &folder);

// Makes the root of \a drive ("D:") the event directory.
void chooseDrive(Session &session, const QString &drive);

// Makes the folder the event directory and writes it to Init.
void chooseFolder(Session &session, const QString &folder);

// Makes a new folder inside \a parent and rewrites Init; the event directory stays.
void createFolder(Session &session, const QString &parent, const QString &name);
