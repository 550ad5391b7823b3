#include "common/files/hostpath.h"

#include "common/files/fileerror.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
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

// The names on a path below a root. The folder above a root is the root itself, so that no path
// leads out of its drive. Throws 52 for a name that is not portable.
QStringList namesOn(const QString &path)
{
    QStringList names;
    for (const QString &name : QString(path).replace(u'\\', u'/').split(u'/')) {
        if (name == ".."_L1)
            names.resize(std::max<qsizetype>(0, names.size() - 1));
        else if (!name.isEmpty() && name != "."_L1)
            names.append(name);
    }
    if (!std::ranges::all_of(names, isPortableName))
        throw FileError(ErrorNumber::BadFileName);
    return names;
}

} // namespace

bool isPortableName(const QString &name)
{
    const auto isForbidden = [](QChar character) {
        return character < u' ' || u"\\/:*?\"<>|"_s.contains(character);
    };
    static const QRegularExpression device(
        u"^(CON|PRN|AUX|NUL|CONIN\\$|CONOUT\\$|(COM|LPT)[0-9\u00b9\u00b2\u00b3])(\\.|$)"_s,
        QRegularExpression::CaseInsensitiveOption);
    return !name.isEmpty() && std::ranges::none_of(name, isForbidden) && !name.endsWith(u'.')
           && !name.endsWith(u' ') && !device.match(name).hasMatch();
}

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
    const auto below = [](const QString &root, const QStringList &names) {
        return QDir::cleanPath(root + u'/' + names.join(u'/'));
    };
    const QString slashed = QString(path).replace(u'/', u'\\');
    if (slashed.startsWith("\\\\"_L1)) {
        const QStringList names = slashed.mid(2).split(u'\\', Qt::SkipEmptyParts);
        if (names.size() < 2 || names.contains(u".."_s))
            throw FileError(ErrorNumber::BadFileName);
        return below(shareRoot(names[0], names[1]), namesOn(names.mid(2).join(u'\\')));
    }
    const bool hasRoot = slashed.size() >= 2 && isDriveLetter(slashed[0].toUpper())
                         && slashed[1] == u':' && (slashed.size() == 2 || slashed[2] == u'\\');
    if (!hasRoot)
        throw FileError(ErrorNumber::BadFileName);
    return below(driveRoot(slashed[0].toUpper()), namesOn(slashed.mid(2)));
}

QString HostPaths::shareRoot(const QString &computer, const QString &share) const
{
    if (haveNativeDrives())
        return "//"_L1 + computer + u'/' + share;
    const QString root = m_sealed ? QString() : mountedShare(computer, share);
    return root.isEmpty() ? anyCase(anyCase(m_dataFolder + "/network"_L1, computer), share) : root;
}

QString HostPaths::driveRoot(QChar letter) const
{
    if (haveNativeDrives()) {
        const QString root = QString(letter) + ":/"_L1;
        const auto isDrive = [&](const QFileInfo &drive) {
            return drive.absolutePath().compare(root, Qt::CaseInsensitive) == 0;
        };
        if (!std::ranges::any_of(QDir::drives(), isDrive))
            throw FileError(ErrorNumber::DeviceUnavailable);
        return root;
    }
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
