#include "common/files/hostsystem.h"

#include <QLibrary>
#include <QStorageInfo>

#include <algorithm>
#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
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
    for (const QStorageInfo &info : QStorageInfo::mountedVolumes()) {
        if (QString::fromLocal8Bit(info.device()).compare(wanted, Qt::CaseInsensitive) == 0)
            return info.rootPath();
    }
    return {};
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
