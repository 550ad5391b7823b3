#pragma once

#include "common/files/folderlock.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

// Records of which nobody knows whether they are on file: writing them failed, and taking them off
// again failed too.
struct UnsureAppend
{
    QString path;      // of the main file, this computer's
    QByteArray before; // what it held
    QByteArray lines;
};

class KnownJournals;

// How this run of the program works on the files of an event beside other programs.
struct FileAccess
{
    QString computer; // this computer's name in the event, where that is not its network name
    bool othersAreOpen = false; // on this computer, when this one started
    LockTimes times;
    WaitNotices notices; // shown while another program holds the lock; without it waiting is silent
    std::weak_ptr<FolderLock> held; // by this program now

    // Told as each operation on files begins.
    std::function<void()> working;

    // Shows what the operator should know about a file that was read or could not be written, such
    // as a torn record.
    std::function<void(const QString &)> tell;

    // Looked for before records are appended to that file again, so that none is placed twice.
    // Whoever gives the records up, as by clearing the sheet that holds them, resets it.
    std::optional<UnsureAppend> unsure;

    // What was read of the cash journals.
    std::shared_ptr<KnownJournals> journals;
};
