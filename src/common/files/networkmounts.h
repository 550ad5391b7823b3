#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

// A network share that is mounted on this computer, and how its mounting names it.
struct NetworkMount
{
    QString root; // of the mounted folder
    QString computer;
    QString share;
    QString address; // of the computer, where the system tells it
};

// The mount of a share that a line of the system's list stands for: its device, such as
// "//anna@desk.local/Tshare", where it is mounted, and its options.
std::optional<NetworkMount> networkMount(const QString &device, const QString &root,
                                         const QString &options = {});

// The share that a file manager shows as the folder \a root, named
// "smb-share:server=desk,share=tshare,user=anna".
std::optional<NetworkMount> fileManagerMount(const QString &root);

// The mount of //computer/share, any case, or none. The computer may be named by its short or full
// name or by its address on either side; \a addressesOf is asked for a name's addresses where only
// that can tell.
std::optional<NetworkMount>
mountOfShare(const QList<NetworkMount> &mounts, const QString &computer, const QString &share,
             const std::function<QStringList(const QString &computer)> &addressesOf);
