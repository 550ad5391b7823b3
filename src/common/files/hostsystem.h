#pragma once

#include "common/files/fileerror.h"

#include <QFileDevice>
#include <QList>
#include <QString>

// Everything that differs between operating systems stands behind these functions and HostFile.

// The error number for the operating system's own error code (errno).
ErrorNumber errorFromSystem(int systemError);

// The error code of the system call that failed last in this thread.
int lastSystemError();

// Hands what was written to \a file to the disk itself; throws FileError when that fails.
void flushToDisk(QFileDevice &file);

// Makes a rename or a new name in \a folder survive a power loss, where the system offers it.
void flushFolder(const QString &folder);

// Gives a file the name \a to in the same folder, unless there is one by that name. Returns 0, or
// the operating system's error code.
int moveToNewName(const QString &from, const QString &to);

// Gives a file another name, which no other file may have. False when that fails.
bool renameFile(const QString &from, const QString &to);

// What tells this running system from every other, also from one that bears the same name.
QString thisMachine();

// True when no process of this system has the number any more.
bool hasProcessEnded(qint64 process);

// A mounted volume: where it is, which device it is on, what it is called.
struct Volume
{
    QString root;
    QString device;
    QString label;
};

// The removable volumes mounted now, in the order of their root folders.
QList<Volume> removableVolumes();

// The root folder of the mounted network share //computer/share (any case), or empty.
QString mountedShare(const QString &computer, const QString &share);

// True where C:\ and \\NAME\ paths are the system's own and need no mapping.
bool hasNativeDrives();

// Whether the print system accepted the job that this thread handed it last. True where the system
// has no answer to ask for.
bool printSystemTookJob();
