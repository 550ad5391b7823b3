#include "common/files/hostfile.h"

#include "common/files/hostsystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <optional>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

enum class Opening { Read, Append, Create };

struct FileStatus
{
    qint64 size = 0; // in bytes
    bool isOrdinary = false;
};

constexpr qintptr notOpen = -1;

#ifdef Q_OS_WIN
HANDLE native(qintptr handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

// Others may read, write, replace and delete it meanwhile, as elsewhere.
constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

qintptr openFile(const QString &path, Opening mode, Links links)
{
    const QString name = QDir::toNativeSeparators(path);
    const DWORD access = mode == Opening::Read ? GENERIC_READ : GENERIC_READ | FILE_APPEND_DATA;
    const DWORD creation = mode == Opening::Create ? CREATE_NEW : OPEN_EXISTING;
    if (links == Links::Refused && QFileInfo(path).isSymLink()) {
        SetLastError(ERROR_FILE_EXISTS);
        return notOpen;
    }
    return reinterpret_cast<qintptr>(CreateFileW(reinterpret_cast<const wchar_t *>(name.utf16()),
                                                 access, shared, nullptr, creation,
                                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::optional<FileStatus> statusOf(qintptr handle)
{
    LARGE_INTEGER size = {};
    if (GetFileType(native(handle)) != FILE_TYPE_DISK)
        return FileStatus();
    if (!GetFileSizeEx(native(handle), &size))
        return {};
    return FileStatus{size.QuadPart, true};
}

qint64 readAt(qintptr handle, char *bytes, qint64 count, qint64 offset)
{
    OVERLAPPED place = {};
    place.Offset = DWORD(offset);
    place.OffsetHigh = DWORD(offset >> 32);
    DWORD done = 0;
    if (ReadFile(native(handle), bytes, DWORD(count), &done, &place))
        return done;
    return GetLastError() == ERROR_HANDLE_EOF ? 0 : -1;
}

qint64 writeOn(qintptr handle, const char *bytes, qint64 count)
{
    DWORD done = 0;
    return WriteFile(native(handle), bytes, DWORD(count), &done, nullptr) ? qint64(done) : -1;
}

// Whoever may only append needs another handle for it.
int cutFile(qintptr handle, qint64 size)
{
    const HANDLE writing = ReOpenFile(native(handle), GENERIC_WRITE, shared, 0);
    if (writing == INVALID_HANDLE_VALUE)
        return -1;
    LARGE_INTEGER end = {};
    end.QuadPart = size;
    const bool isCut = SetFilePointerEx(writing, end, nullptr, FILE_BEGIN) && SetEndOfFile(writing);
    CloseHandle(writing);
    return isCut ? 0 : -1;
}

int flushFile(qintptr handle)
{
    return FlushFileBuffers(native(handle)) ? 0 : -1;
}

void closeFile(qintptr handle)
{
    CloseHandle(native(handle));
}

bool isInterrupted()
{
    return false;
}

bool existsAlready()
{
    return GetLastError() == ERROR_FILE_EXISTS || GetLastError() == ERROR_ALREADY_EXISTS;
}

bool hasNoPlaces()
{
    return false;
}

bool cannotFlush()
{
    return GetLastError() == ERROR_INVALID_FUNCTION || GetLastError() == ERROR_NOT_SUPPORTED;
}
#else
qintptr openFile(const QString &path, Opening mode, Links links)
{
    // A pipe that nobody writes to would stop the program here; it is refused once it is open.
    int flags = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    flags |= mode == Opening::Read ? O_RDONLY : O_RDWR | O_APPEND;
    if (mode == Opening::Create)
        flags |= O_CREAT | O_EXCL;
    if (links == Links::Refused)
        flags |= O_NOFOLLOW;
    return open(QFile::encodeName(path).constData(), flags, 0666);
}

std::optional<FileStatus> statusOf(qintptr handle)
{
    struct stat status = {};
    if (fstat(int(handle), &status) != 0)
        return {};
    return FileStatus{status.st_size, S_ISREG(status.st_mode)};
}

qint64 readAt(qintptr handle, char *bytes, qint64 count, qint64 offset)
{
    return pread(int(handle), bytes, size_t(count), offset);
}

qint64 writeOn(qintptr handle, const char *bytes, qint64 count)
{
    return write(int(handle), bytes, size_t(count));
}

int cutFile(qintptr handle, qint64 size)
{
    return ftruncate(int(handle), size);
}

int flushFile(qintptr handle)
{
#ifdef Q_OS_DARWIN
    // There fsync leaves the bytes in the drive's own memory.
    if (fcntl(int(handle), F_FULLFSYNC) == 0)
        return 0;
#endif
    return fsync(int(handle));
}

void closeFile(qintptr handle)
{
    close(int(handle));
}

bool isInterrupted()
{
    return errno == EINTR;
}

bool existsAlready()
{
    return errno == EEXIST;
}

bool hasNoPlaces()
{
    return errno == ESPIPE;
}

bool cannotFlush()
{
    return errno == EINVAL || errno == ENOTSUP;
}
#endif

// Repeats a system call that a signal interrupted.
qint64 uninterrupted(const auto &call)
{
    qint64 result;
    do {
        forgetSystemError();
        result = call();
    } while (result < 0 && isInterrupted());
    return result;
}

// The handle; notOpen when the file that should be made is there already. On Windows a name stays
// taken, and is denied, while somebody still reads what was deleted.
qintptr opened(const QString &path, Opening opening, Links links)
{
    const bool isNew = opening == Opening::Create;
    qintptr handle = notOpen;
    const auto open = [&] {
        handle = qintptr(uninterrupted([&] { return openFile(path, opening, links); }));
        return handle != notOpen || (isNew && existsAlready());
    };
    if (!patiently(open, isNew ? Held::InUseOrDenied : Held::InUse))
        throw openError(path, systemError());
    return handle;
}

// What cannot flush (a pipe, some network shares) says so; nothing is lost by that.
bool isFlushed(qintptr handle)
{
    return uninterrupted([handle] { return flushFile(handle); }) == 0 || cannotFlush();
}

} // namespace

FileError openError(const QString &path, ErrorNumber reason)
{
    const QFileInfo info(path);
    if (!info.dir().exists())
        return FileError(ErrorNumber::PathNotFound);
    if (info.exists() && !info.isFile())
        return FileError(ErrorNumber::PathFileAccess);
    return FileError(reason);
}

HostFile::HostFile(const QString &path, Mode mode, Links links)
    : m_handle(opened(path, mode == Mode::Read ? Opening::Read : Opening::Append, links))
{
}

std::unique_ptr<HostFile> HostFile::createNew(const QString &path)
{
    const qintptr handle = opened(path, Opening::Create, Links::Followed);
    return handle == notOpen ? nullptr : std::unique_ptr<HostFile>(new HostFile(handle));
}

HostFile::~HostFile()
{
    closeFile(m_handle);
}

qint64 HostFile::size() const
{
    forgetSystemError();
    const auto status = statusOf(m_handle);
    if (!status)
        throw FileError(systemError());
    if (!status->isOrdinary)
        throw FileError(ErrorNumber::PathFileAccess);
    return status->size;
}

QByteArray HostFile::read(qint64 offset, qint64 count) const
{
    QByteArray bytes(count, Qt::Uninitialized);
    const qint64 result =
        uninterrupted([&] { return readAt(m_handle, bytes.data(), count, offset); });
    if (result < 0)
        throw FileError(hasNoPlaces() ? ErrorNumber::PathFileAccess : systemError());
    bytes.truncate(result);
    return bytes;
}

QByteArray HostFile::readAll() const
{
    const qint64 all = size();
    if (all > largestFile)
        throw FileError(ErrorNumber::OutOfMemory);
    QByteArray bytes;
    while (bytes.size() < all) {
        const QByteArray part = read(bytes.size(), all - bytes.size());
        if (part.isEmpty())
            break;
        bytes = bytes.isEmpty() ? part : bytes + part;
    }
    return bytes;
}

void HostFile::append(const QByteArray &bytes)
{
    // A full disk may take a part of the bytes; the rest then fails with the reason.
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 written = uninterrupted(
            [&] { return writeOn(m_handle, bytes.constData() + done, bytes.size() - done); });
        if (written <= 0)
            throw FileError(systemError());
        done += written;
    }
}

void HostFile::flush()
{
    if (!isFlushed(m_handle))
        throw FileError(systemError());
}

bool HostFile::cutTo(qint64 size)
{
    return uninterrupted([&] { return cutFile(m_handle, size); }) == 0 && isFlushed(m_handle);
}
