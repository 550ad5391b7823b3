#pragma once

#include "common/files/fileerror.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

// Everything that differs between operating systems stands behind these functions and HostFile.

// The error number for an error code of the C library (errno), and for one of Windows
// (GetLastError). 57 for a code that says nothing special.
ErrorNumber errorFromErrno(int code);
ErrorNumber errorFromWindows(unsigned long code);

// Before a call, whatever makes it: forgets which calls failed earlier.
void forgetSystemError();

// Why the call after that failed; \a unsaid when the system gave no reason.
ErrorNumber systemError(ErrorNumber unsaid = ErrorNumber::DeviceIoError);

// How a system says that another program holds a file: to who opens it, that it is in use; to who
// makes, replaces or deletes it, Windows may say just that access is denied.
enum class Held { InUse, InUseOrDenied };

// Does what fails as long as another program holds the file: another computer, a virus scanner, a
// sync client. Tries again for about 2 s; false when it failed, for the reason systemError gives.
bool patiently(const std::function<bool()> &work, Held held = Held::InUseOrDenied);

// Makes a rename or a new name in \a folder survive a power loss, where the system offers it.
void flushFolder(const QString &folder);

// Gives a file the name \a to in the same folder, unless there is one by that name. Returns why
// not, if so: 75 when there is one.
std::optional<ErrorNumber> moveToNewName(const QString &from, const QString &to);

// Gives a file another name in its folder; one that has the name is replaced. False when that
// fails.
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

// The root folder of the mounted network share //computer/share (any case), or empty. The share may
// have been mounted for a user, by the computer's full name or address, or in a file manager.
QString mountedShare(const QString &computer, const QString &share);

// True where C:\ and \\NAME\ paths are the system's own and need no mapping.
bool hasNativeDrives();

// Asks the system itself to leave the display on, or not to care any more. Nothing happens where
// only the desktop can be asked.
void keepDisplayOn(bool on);

// Whether the print system accepted the job that this thread handed it last. True where the system
// has no answer to ask for.
bool printSystemTookJob();
