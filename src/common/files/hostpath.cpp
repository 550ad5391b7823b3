#include "common/files/hostpath.h"

#include "common/files/fileerror.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QMap>
#include <QStandardPaths>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isDriveLetter(QChar letter)
{
    return letter >= u'A' && letter <= u'Z';
}

// Letter -> root folder and label of every drive of this computer.
struct MappedDrive
{
    QString root;
    QString label;
};

QMap<QChar, MappedDrive> mappedDrives(const QString &dataFolder, bool withVolumes)
{
    QMap<QChar, MappedDrive> drives;
    const QDir folder(dataFolder + "/drives"_L1);
    for (QChar letter : {u'C', u'D', u'E'})
        drives.insert(letter, {folder.filePath(letter), {}});
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (name.size() == 1 && isDriveLetter(name.front()))
            drives.insert(name.front(), {folder.filePath(name), {}});
    }
    char16_t next = u'F';
    for (const Volume &volume : withVolumes ? removableVolumes() : QList<Volume>()) {
        while (drives.contains(next))
            ++next;
        if (next > u'Z')
            break;
        drives.insert(next, {volume.root, volume.label});
    }
    return drives;
}

// The path of \a name in the folder; where only other letters' case is there, of that. Names of
// computers and shares have no case.
QString anyCase(const QString &folder, const QString &name)
{
    const QDir dir(folder);
    if (!dir.exists(name)) {
        for (const QString &entry : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            if (entry.compare(name, Qt::CaseInsensitive) == 0)
                return dir.filePath(entry);
        }
    }
    return dir.filePath(name);
}

// A path below the root of a drive. The folder above a root is the root itself, so that no path
// leads out of its drive. Throws 52 for a second colon.
QString below(const QString &root, const QString &rest)
{
    if (rest.contains(u':'))
        throw FileError(ErrorNumber::BadFileName);
    QStringList names;
    for (const QString &name : QString(rest).replace(u'\\', u'/').split(u'/')) {
        if (name == ".."_L1)
            names.resize(std::max<qsizetype>(0, names.size() - 1));
        else if (!name.isEmpty() && name != "."_L1)
            names.append(name);
    }
    return QDir::cleanPath(root + u'/' + names.join(u'/'));
}

} // namespace

HostPaths::HostPaths(const QString &dataFolder)
    : m_dataFolder(!dataFolder.isEmpty()
                       ? dataFolder
                       : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                             + "/trelawn"_L1)
{
}

HostPaths HostPaths::sealed(const QString &dataFolder)
{
    HostPaths paths(dataFolder);
    paths.m_sealed = true;
    return paths;
}

bool HostPaths::haveNativeDrives() const
{
    return hasNativeDrives() && !m_sealed;
}

QString HostPaths::toHost(const QString &path) const
{
    if (path.isEmpty())
        throw FileError(ErrorNumber::PathNotFound);
    if (haveNativeDrives())
        return QDir::fromNativeSeparators(path);
    if (path.startsWith("\\\\"_L1)) {
        const QStringList names = path.mid(2).replace(u'/', u'\\').split(u'\\', Qt::SkipEmptyParts);
        if (names.size() < 2 || names.contains(u".."_s))
            throw FileError(ErrorNumber::BadFileName);
        QString root = m_sealed ? QString() : mountedShare(names[0], names[1]);
        if (root.isEmpty())
            root = anyCase(anyCase(m_dataFolder + "/network"_L1, names[0]), names[1]);
        return below(root, names.mid(2).join(u'\\'));
    }
    if (path.size() < 2 || path[1] != u':' || !isDriveLetter(path[0].toUpper()))
        throw FileError(ErrorNumber::BadFileName);
    return below(driveRoot(path[0].toUpper()), path.mid(2));
}

QString HostPaths::driveRoot(QChar letter) const
{
    // C:, D: and E: always exist: they are made on first use.
    if (letter >= u'C' && letter <= u'E') {
        const QString root = m_dataFolder + "/drives/"_L1 + letter;
        QDir().mkpath(root);
        return root;
    }
    const auto drives = mappedDrives(m_dataFolder, !m_sealed);
    const auto drive = drives.constFind(letter);
    if (drive == drives.constEnd())
        throw FileError(ErrorNumber::DeviceUnavailable);
    return drive->root;
}

QList<Drive> HostPaths::drives() const
{
    QList<Drive> list;
    if (haveNativeDrives()) {
        for (const QFileInfo &info : QDir::drives())
            list.append({info.absolutePath().left(2), {}});
        return list;
    }
    const auto drives = mappedDrives(m_dataFolder, !m_sealed);
    for (auto drive = drives.cbegin(); drive != drives.cend(); ++drive)
        list.append({QString(drive.key()) + u':', drive->label});
    return list;
}
