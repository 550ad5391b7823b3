#pragma once

#include <QList>
#include <QString>

// A drive that a screen can offer.
struct Drive
{
    QString name;  // "C:"
    QString label; // the volume's name, empty when it has none
};

// Whether a folder or file may have the name on every system. Events travel: one whose name some
// computer of the room cannot open would be stranded.
bool isPortableName(const QString &name);

// Where the paths of settings, Init and screens (C:\Trelawn\, \\NAME\Tshare\) are on this computer.
//
// Without native drives, C:, D: and E: are folders below <data folder>/drives; further single
// capital letters there are further drives, and removable volumes take the next free letters from
// F: on. \\NAME\Share is a mounted volume of that device, else <data folder>/network/NAME/Share.
class HostPaths
{
public:
    // \a dataFolder is the folder that holds drives/ and network/; empty means the user's own.
    explicit HostPaths(const QString &dataFolder = {});

    // Paths of which none leads out of \a dataFolder: neither removable volumes nor mounted shares
    // can be reached, and drives are folders even where the computer has native ones.
    static HostPaths sealed(const QString &dataFolder);
    bool areSealed() const { return m_sealed; }

    bool operator==(const HostPaths &) const = default;

    // The host's path for a path in backslash form. Throws FileError: 76 for an empty path, 68 for
    // a drive that does not exist, 52 for a path that begins with neither a drive's root nor a
    // computer, or holds a name that is not portable.
    QString toHost(const QString &path) const;

    // The folder that holds drives/ and network/.
    QString dataFolder() const { return m_dataFolder; }

    // The drives there are now, in order of their letters.
    QList<Drive> drives() const;

private:
    QString driveRoot(QChar letter) const;
    QString shareRoot(const QString &computer, const QString &share) const;

    bool haveNativeDrives() const;

    QString m_dataFolder;
    bool m_sealed = false;
};
