#include "common/files/hostfile.h"

#include "common/files/hostsystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

enum class Opening { Read, Append, Create };

#ifdef Q_OS_WIN
int openFile(const QString &path, Opening mode, Links links)
{
    int flags = _O_BINARY | _O_NOINHERIT;
    flags |= mode == Opening::Read ? _O_RDONLY : _O_RDWR | _O_APPEND;
    if (mode == Opening::Create)
        flags |= _O_CREAT | _O_EXCL;
    if (links == Links::Refused && QFileInfo(path).isSymLink()) {
        errno = EEXIST;
        return -1;
    }
    return _wopen(reinterpret_cast<const wchar_t *>(path.utf16()), flags, _S_IREAD | _S_IWRITE);
}

using FileStatus = struct _stat64;

int statusOf(int handle, FileStatus &status)
{
    return _fstat64(handle, &status);
}

qint64 readAt(int handle, char *bytes, qint64 count, qint64 offset)
{
    return _lseeki64(handle, offset, SEEK_SET) < 0 ? -1 : _read(handle, bytes, unsigned(count));
}

qint64 writeOn(int handle, const char *bytes, qint64 count)
{
    return _write(handle, bytes, unsigned(count));
}

int cutFile(int handle, qint64 size)
{
    return _chsize_s(handle, size);
}

int flushFile(int handle)
{
    return _commit(handle);
}

void closeFile(int handle)
{
    _close(handle);
}
#else
int openFile(const QString &path, Opening mode, Links links)
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

using FileStatus = struct stat;

int statusOf(int handle, FileStatus &status)
{
    return fstat(handle, &status);
}

qint64 readAt(int handle, char *bytes, qint64 count, qint64 offset)
{
    return pread(handle, bytes, size_t(count), offset);
}

qint64 writeOn(int handle, const char *bytes, qint64 count)
{
    return write(handle, bytes, size_t(count));
}

int cutFile(int handle, qint64 size)
{
    return ftruncate(handle, size);
}

int flushFile(int handle)
{
    return fsync(handle);
}

void closeFile(int handle)
{
    close(handle);
}
#endif

[[noreturn]] void throwSystemError()
{
    throw FileError(errno != 0 ? errorFromSystem(errno) : ErrorNumber::DeviceIoError);
}

// Repeats a system call that a signal interrupted.
qint64 uninterrupted(const auto &call)
{
    qint64 result;
    do {
        errno = 0;
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

} // namespace

FileError openError(const QString &path, int systemError)
{
    const QFileInfo info(path);
    if (!info.dir().exists())
        return FileError(ErrorNumber::PathNotFound);
    if (info.exists() && !info.isFile())
        return FileError(ErrorNumber::PathFileAccess);
    return FileError(systemError != 0 ? errorFromSystem(systemError) : ErrorNumber::DeviceIoError);
}

HostFile::HostFile(const QString &path, Mode mode, Links links)
{
    const Opening opening = mode == Mode::Read ? Opening::Read : Opening::Append;
    m_handle = int(uninterrupted([&] { return openFile(path, opening, links); }));
    if (m_handle < 0)
        throw openError(path, errno);
}

std::unique_ptr<HostFile> HostFile::createNew(const QString &path)
{
    const int handle =
        int(uninterrupted([&] { return openFile(path, Opening::Create, Links::Followed); }));
    if (handle < 0 && errno == EEXIST)
        return {};
    if (handle < 0)
        throw openError(path, errno);
    return std::unique_ptr<HostFile>(new HostFile(handle));
}

HostFile::~HostFile()
{
    closeFile(m_handle);
}

qint64 HostFile::size() const
{
    FileStatus status = {};
    if (statusOf(m_handle, status) != 0)
        throwSystemError();
    if ((status.st_mode & S_IFMT) != S_IFREG)
        throw FileError(ErrorNumber::PathFileAccess);
    return status.st_size;
}

QByteArray HostFile::read(qint64 offset, qint64 count) const
{
    QByteArray bytes(count, Qt::Uninitialized);
    const qint64 result =
        uninterrupted([&] { return readAt(m_handle, bytes.data(), count, offset); });
    if (result < 0 && errno == ESPIPE)
        throw FileError(ErrorNumber::PathFileAccess);
    if (result < 0)
        throwSystemError();
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
            throwSystemError();
        done += written;
    }
}

void HostFile::flush()
{
    // What cannot flush (some network shares) says EINVAL; nothing is lost by that.
    if (uninterrupted([this] { return flushFile(m_handle); }) != 0 && errno != EINVAL)
        throwSystemError();
}

bool HostFile::cutTo(qint64 size)
{
    return uninterrupted([&] { return cutFile(m_handle, size); }) == 0
           && (uninterrupted([this] { return flushFile(m_handle); }) == 0 || errno == EINVAL);
}
