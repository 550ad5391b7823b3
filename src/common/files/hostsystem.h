#pragma once

#include "common/files/fileerror.h"

#include <QFileDevice>
#include <QList>
#include <QString>

// Everything that differs between operating systems stands behind these functions.

// The error number for the operating system's own error code (errno).
ErrorNumber errorFromSystem(int systemError);

// The error code of the system call that failed last in this thread.
int lastSystemError();

// Hands what was written to \a file to the disk itself; throws FileError when that fails.
void flushToDisk(QFileDevice &file);

// Makes a rename or a new name in \a folder survive a power loss, where the system offers it.
void flushFolder(const QString &folder);

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
