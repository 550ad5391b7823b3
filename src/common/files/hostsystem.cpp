#include "common/files/hostsystem.h"

#include <QFile>
#include <QLibrary>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <mntent.h>
#endif

using namespace Qt::StringLiterals;

ErrorNumber errorFromSystem(int systemError)
{
    switch (systemError) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
        return ErrorNumber::PermissionDenied;
    case EISDIR:
    case EEXIST:
    case EROFS:
    case ELOOP:
        return ErrorNumber::PathFileAccess;
    case ENAMETOOLONG:
    case EINVAL:
    case EBADF:
        return ErrorNumber::BadFileName;
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
        return ErrorNumber::DiskFull;
    case ENODEV:
    case ENXIO:
        return ErrorNumber::DeviceUnavailable;
#ifdef ENOMEDIUM
    case ENOMEDIUM:
        return ErrorNumber::DiskNotReady;
#endif
    default:
        return ErrorNumber::DeviceIoError;
    }
}

int lastSystemError()
{
    return errno;
}

void flushToDisk(QFileDevice &file)
{
#ifdef Q_OS_WIN
    const int result = _commit(file.handle());
#else
    const int result = fsync(file.handle());
#endif
    // Devices that cannot flush (a pipe, some network shares) say EINVAL; nothing is lost by that.
    if (result != 0 && errno != EINVAL)
        throw FileError(errorFromSystem(errno));
}

void flushFolder(const QString &folder)
{
#ifdef Q_OS_WIN
    Q_UNUSED(folder);
#else
    const int handle = open(folder.toLocal8Bit().constData(), O_RDONLY | O_CLOEXEC);
    if (handle >= 0) {
        fsync(handle);
        close(handle);
    }
#endif
}

int moveToNewName(const QString &from, const QString &to)
{
    errno = 0;
#ifdef Q_OS_WIN
    const auto name = [](const QString &path) {
        return reinterpret_cast<const wchar_t *>(path.utf16());
    };
    return _wrename(name(from), name(to)) == 0 ? 0 : errno; // never replaces here
#else
    const QByteArray old = QFile::encodeName(from);
    const QByteArray wanted = QFile::encodeName(to);
    if (link(old.constData(), wanted.constData()) == 0) {
        unlink(old.constData());
        return 0;
    }
    if (errno == EEXIST)
        return errno;
    // A volume without second names for a file; there the event's lock keeps others away.
    if (access(wanted.constData(), F_OK) == 0)
        return EEXIST;
    errno = 0;
    return rename(old.constData(), wanted.constData()) == 0 ? 0 : errno;
#endif
}

bool renameFile(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

QString thisMachine()
{
    // Programs in different containers see different processes under the same numbers.
    return QString::fromLatin1(QSysInfo::bootUniqueId()) + u' '
           + QFile::symLinkTarget(u"/proc/self/ns/pid"_s).section(u'/', -1);
}

bool hasProcessEnded(qint64 process)
{
#ifdef Q_OS_WIN
    Q_UNUSED(process);
    return false; // known only by its silence
#else
    return process > 0 && kill(pid_t(process), 0) != 0 && errno == ESRCH;
#endif
}

QList<Volume> removableVolumes()
{
    QList<Volume> found;
    if (hasNativeDrives())
        return found;
    static const QStringList mountFolders{u"/media/"_s, u"/run/media/"_s, u"/Volumes/"_s};
    for (const QStorageInfo &info : QStorageInfo::mountedVolumes()) {
        const QString root = info.rootPath();
        const bool removable = std::ranges::any_of(
            mountFolders, [&](const QString &folder) { return root.startsWith(folder); });
        const QString device = QString::fromLocal8Bit(info.device());
        if (removable && info.isValid() && info.isReady() && !device.startsWith("//"_L1))
            found.append({root, device, info.displayName()});
    }
    std::ranges::sort(found, {}, &Volume::root);
    return found;
}

QString mountedShare(const QString &computer, const QString &share)
{
    const QString wanted = "//"_L1 + computer + u'/' + share;
#ifdef Q_OS_LINUX
    // The list alone: QStorageInfo asks every volume about itself, and a share may take its time.
    FILE *mounts = setmntent("/proc/self/mounts", "re");
    QString root;
    while (const mntent *mount = mounts ? getmntent(mounts) : nullptr) {
        if (QString::fromLocal8Bit(mount->mnt_fsname).compare(wanted, Qt::CaseInsensitive) == 0)
            root = QString::fromLocal8Bit(mount->mnt_dir);
    }
    if (mounts)
        endmntent(mounts);
    return root;
#else
    for (const QStorageInfo &info : QStorageInfo::mountedVolumes()) {
        if (QString::fromLocal8Bit(info.device()).compare(wanted, Qt::CaseInsensitive) == 0)
            return info.rootPath();
    }
    return {};
#endif
}

bool hasNativeDrives()
{
#ifdef Q_OS_WIN
    return true;
#else
    return false;
#endif
}

bool printSystemTookJob()
{
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    // Qt's print plugin has loaded this library; it keeps the answer for each thread.
    using LastError = int (*)();
    const auto lastError =
        reinterpret_cast<LastError>(QLibrary::resolve(u"cups"_s, 2, "cupsLastError"));
    constexpr int firstFailure = 0x100; // below it stand the kinds of success
    return lastError && lastError() >= 0 && lastError() < firstFailure;
#else
    return true;
#endif
}
