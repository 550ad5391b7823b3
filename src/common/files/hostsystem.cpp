#include "common/files/hostsystem.h"

#include "common/files/networkmounts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QHostAddress>
#include <QHostInfo>
#include <QLibrary>
#include <QMutex>
#include <QStorageInfo>
#include <QThread>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <mntent.h>
#endif

using namespace Qt::StringLiterals;

namespace {

// What a share says whose computer went away.
bool isDeadShare(int code)
{
#ifdef Q_OS_WIN
    Q_UNUSED(code);
    return false;
#else
    constexpr int dead[] = {EHOSTDOWN, EHOSTUNREACH, ENETDOWN,     ENETUNREACH,  ETIMEDOUT,
                            ESTALE,    ENOTCONN,     ECONNREFUSED, ECONNABORTED, ECONNRESET};
    return std::ranges::find(dead, code) != std::end(dead);
#endif
}

bool isHeldByAnother(Held held)
{
#ifdef Q_OS_WIN
    const DWORD code = GetLastError();
    return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION
           || (code == ERROR_ACCESS_DENIED && held == Held::InUseOrDenied);
#else
    Q_UNUSED(held);
    return errno == EBUSY || errno == ETXTBSY;
#endif
}

#ifdef Q_OS_WIN
const wchar_t *nativeName(const QString &path)
{
    return reinterpret_cast<const wchar_t *>(path.utf16());
}
#endif

// The shares mounted now. Where the system has a list of its mounts it is read alone: QStorageInfo
// asks every volume about itself, and a share may take its time.
QList<NetworkMount> networkMounts()
{
    QList<NetworkMount> mounts;
    const auto add = [&mounts](const std::optional<NetworkMount> &mount) {
        if (mount)
            mounts.append(*mount);
    };
#ifdef Q_OS_LINUX
    FILE *list = setmntent("/proc/self/mounts", "re");
    mntent mount = {};
    std::array<char, 16384> texts; // of one line: the odds board looks from a thread of its own
    while (list && getmntent_r(list, &mount, texts.data(), int(texts.size())))
        add(networkMount(QString::fromLocal8Bit(mount.mnt_fsname),
                         QString::fromLocal8Bit(mount.mnt_dir),
                         QString::fromLocal8Bit(mount.mnt_opts)));
    if (list)
        endmntent(list);
    const QDir shown("/run/user/"_L1 + QString::number(getuid()) + "/gvfs"_L1);
    for (const QString &name : shown.entryList({u"smb-share:*"_s}, QDir::Dirs))
        add(fileManagerMount(shown.filePath(name)));
#else
    for (const QStorageInfo &info : QStorageInfo::mountedVolumes())
        add(networkMount(QString::fromLocal8Bit(info.device()), info.rootPath()));
#endif
    return mounts;
}

// Asked once for each name: the answer may take its time.
QStringList addressesOf(const QString &computer)
{
    static QMutex mutex; // any thread may ask
    static QHash<QString, QStringList> known;
    {
        const QMutexLocker lock(&mutex);
        if (const auto found = known.constFind(computer); found != known.constEnd())
            return *found;
    }
    QStringList addresses;
    for (const QHostAddress &address : QHostInfo::fromName(computer).addresses())
        addresses.append(address.toString());
    const QMutexLocker lock(&mutex);
    return *known.insert(computer, addresses);
}

} // namespace

ErrorNumber errorFromErrno(int code)
{
    switch (code) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case EACCES:
    case EPERM:
    case EBUSY: // another computer holds it
    case ETXTBSY:
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
        return isDeadShare(code) ? ErrorNumber::DeviceUnavailable : ErrorNumber::DeviceIoError;
    }
}

ErrorNumber errorFromWindows(unsigned long code)
{
    switch (code) {
    case 2: // file not found
        return ErrorNumber::FileNotFound;
    case 3:  // path not found
    case 53: // network path not found
    case 64: // network name no longer available
    case 67: // network name not found
        return ErrorNumber::PathNotFound;
    case 5:  // access denied
    case 32: // sharing violation
    case 33: // lock violation
        return ErrorNumber::PermissionDenied;
    case 15: // no such drive
        return ErrorNumber::DeviceUnavailable;
    case 19:  // write protected
    case 80:  // file exists
    case 183: // already exists
        return ErrorNumber::PathFileAccess;
    case 21: // not ready
        return ErrorNumber::DiskNotReady;
    case 39: // disk full
    case 112:
        return ErrorNumber::DiskFull;
    case 123: // bad name
    case 206: // name too long
        return ErrorNumber::BadFileName;
    default:
        return ErrorNumber::DeviceIoError;
    }
}

void forgetSystemError()
{
    errno = 0;
#ifdef Q_OS_WIN
    SetLastError(0);
#endif
}

ErrorNumber systemError(ErrorNumber unsaid)
{
#ifdef Q_OS_WIN
    const DWORD code = GetLastError();
    return code == 0 ? unsaid : errorFromWindows(code);
#else
    return errno == 0 ? unsaid : errorFromErrno(errno);
#endif
}

bool patiently(const std::function<bool()> &work, Held held)
{
    constexpr qint64 patience = 2000; // milliseconds
    constexpr unsigned long pause = 50;
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        forgetSystemError();
        if (work())
            return true;
        if (!isHeldByAnother(held) || waiting.hasExpired(patience))
            return false;
        QThread::msleep(pause);
    }
}

void flushFolder(const QString &folder)
{
#ifdef Q_OS_WIN
    Q_UNUSED(folder); // renaming writes through
#else
    const int handle = open(folder.toLocal8Bit().constData(), O_RDONLY | O_CLOEXEC);
    if (handle >= 0) {
        fsync(handle);
        close(handle);
    }
#endif
}

std::optional<ErrorNumber> moveToNewName(const QString &from, const QString &to)
{
    forgetSystemError();
#ifdef Q_OS_WIN
    if (MoveFileExW(nativeName(from), nativeName(to), MOVEFILE_WRITE_THROUGH)) // never replaces
        return {};
    return systemError();
#else
    const QByteArray old = QFile::encodeName(from);
    const QByteArray wanted = QFile::encodeName(to);
    if (link(old.constData(), wanted.constData()) == 0) {
        unlink(old.constData());
        return {};
    }
    // A volume without second names for a file; there the event's lock keeps others away.
    if (errno == EEXIST || access(wanted.constData(), F_OK) == 0)
        return ErrorNumber::PathFileAccess;
    forgetSystemError();
    if (rename(old.constData(), wanted.constData()) == 0)
        return {};
    return systemError();
#endif
}

bool renameFile(const QString &from, const QString &to)
{
#ifdef Q_OS_WIN
    return MoveFileExW(nativeName(from), nativeName(to),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
#else
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
#endif
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
    const auto mount = mountOfShare(networkMounts(), computer, share, addressesOf);
    return mount ? mount->root : QString();
}

bool hasNativeDrives()
{
#ifdef Q_OS_WIN
    return true;
#else
    return false;
#endif
}

void keepDisplayOn(bool on)
{
#ifdef Q_OS_WIN
    constexpr EXECUTION_STATE wanted = ES_DISPLAY_REQUIRED | ES_SYSTEM_REQUIRED;
    SetThreadExecutionState(on ? ES_CONTINUOUS | wanted : ES_CONTINUOUS);
#else
    Q_UNUSED(on);
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
