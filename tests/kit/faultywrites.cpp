#include "kit/faultywrites.h"

#include <QRandomGenerator>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <set>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int diedStatus = 99;

std::atomic<bool> armed = false;
std::atomic<int> callsLeft = 0; // until the one that fails
std::atomic<Fault> currentFault = Fault::DiskFull;
std::atomic<bool> reached = false;

std::atomic<bool> counting = false;
std::string countedFolder;
std::set<int> countedHandles;
int allCalls = 0;
int lockedCalls = 0;
bool isLocked = false;

bool isLockFile(std::string_view path)
{
    return path.ends_with("Trelawn.lock");
}

void countCall()
{
    ++allCalls;
    lockedCalls += isLocked ? 1 : 0;
}

bool isCounted(const char *path)
{
    return counting && path && std::string_view(path).starts_with(countedFolder);
}

void countPath(const char *path)
{
    if (isCounted(path))
        countCall();
}

void countHandle(int handle)
{
    if (counting && countedHandles.contains(handle))
        countCall();
}

int openCounted(int folder, const char *path, int flags, mode_t mode)
{
    const int handle = int(syscall(SYS_openat, folder, path, flags, mode));
    if (isCounted(path)) {
        countCall();
        if (handle >= 0)
            countedHandles.insert(handle);
        if (handle >= 0 && (flags & O_EXCL) && isLockFile(path))
            isLocked = true;
    }
    return handle;
}

enum class Verdict { Works, Fails, HalfOnly };

// Sockets, pipes and terminals stay out of it.
bool isOnDisk(int handle)
{
    struct stat status = {};
    return fstat(handle, &status) == 0 && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

Verdict nextCall(bool isWrite)
{
    if (!armed)
        return Verdict::Works;
    const int left = --callsLeft;
    if (left > 0)
        return Verdict::Works;
    const bool first = left == 0;
    if (first)
        reached = true;
    switch (currentFault) {
    case Fault::DiskFull:
    case Fault::IoError:
        if (!first)
            return Verdict::Works;
        break;
    case Fault::PartialWrite:
        if (left < -1)
            return Verdict::Works;
        if (first && isWrite)
            return Verdict::HalfOnly;
        break;
    case Fault::DiskGone:
        break;
    case Fault::Exit:
        if (isWrite)
            return Verdict::HalfOnly;
        _exit(diedStatus);
    }
    const bool full = currentFault == Fault::DiskFull || currentFault == Fault::PartialWrite;
    errno = full ? ENOSPC : EIO;
    return Verdict::Fails;
}

int unlessFaulty(bool counted, const auto &call)
{
    return counted && nextCall(false) == Verdict::Fails ? -1 : int(call());
}

ssize_t writeUnlessFaulty(int handle, size_t size, const auto &call)
{
    countHandle(handle);
    switch (armed && isOnDisk(handle) ? nextCall(true) : Verdict::Works) {
    case Verdict::Fails:
        return -1;
    case Verdict::HalfOnly: {
        const long written = call(size / 2);
        if (currentFault == Fault::Exit)
            _exit(diedStatus);
        return written;
    }
    case Verdict::Works:
        break;
    }
    return call(size);
}

} // namespace

// These stand in front of the system library's functions for everything in the test program.
extern "C" {

ssize_t write(int handle, const void *bytes, size_t size)
{
    return writeUnlessFaulty(handle, size,
                             [=](size_t n) { return syscall(SYS_write, handle, bytes, n); });
}

// Flushes are counted but never reach the disk: no test outlives a power cut, and waiting for the
// disk hundreds of times would be most of a test's time.
int fsync(int handle)
{
    countHandle(handle);
    return unlessFaulty(armed && isOnDisk(handle), [] { return 0; });
}

int ftruncate(int handle, off_t size) noexcept
{
    countHandle(handle);
    return unlessFaulty(armed && isOnDisk(handle),
                        [=] { return syscall(SYS_ftruncate, handle, size); });
}

// Giving the lock back never fails: its file would keep every later round waiting.
int unlink(const char *path) noexcept
{
    countPath(path);
    isLocked &= !isLockFile(path);
    return unlessFaulty(armed && !isLockFile(path), [=] { return syscall(SYS_unlink, path); });
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    countPath(to);
    return unlessFaulty(
        true, [=] { return syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags); });
}

int rename(const char *from, const char *to) noexcept
{
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    countPath(to);
    return unlessFaulty(true,
                        [=] { return syscall(SYS_linkat, fromFolder, from, toFolder, to, flags); });
}

int link(const char *from, const char *to) noexcept
{
    return linkat(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int open(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return openCounted(AT_FDCWD, path, flags, mode);
}

int close(int handle)
{
    countHandle(handle);
    if (counting)
        countedHandles.erase(handle);
    return int(syscall(SYS_close, handle));
}

ssize_t read(int handle, void *bytes, size_t size)
{
    countHandle(handle);
    return syscall(SYS_read, handle, bytes, size);
}

ssize_t pread(int handle, void *bytes, size_t size, off_t offset)
{
    countHandle(handle);
    return syscall(SYS_pread64, handle, bytes, size, offset);
}

int fstat(int handle, struct stat *status) noexcept
{
    countHandle(handle);
    return int(syscall(SYS_fstat, handle, status));
}

int stat(const char *path, struct stat *status) noexcept
{
    countPath(path);
    return int(syscall(SYS_newfstatat, AT_FDCWD, path, status, 0));
}

int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept
{
    countPath(path);
    if (*path == '\0')
        countHandle(folder);
    return int(syscall(SYS_statx, folder, path, flags, mask, status));
}

int access(const char *path, int mode) noexcept
{
    countPath(path);
    return int(syscall(SYS_faccessat, AT_FDCWD, path, mode));
}

int mkdir(const char *path, mode_t mode) noexcept
{
    countPath(path);
    return int(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

int fdatasync(int handle) __attribute__((alias("fsync")));
int ftruncate64(int handle, off64_t size) noexcept __attribute__((alias("ftruncate")));
int open64(const char *path, int flags, ...) __attribute__((alias("open")));

} // extern "C"

void skipRealFlushes() {}

FaultyWrites::FaultyWrites(int nth, Fault fault)
{
    callsLeft = nth;
    currentFault = fault;
    reached = false;
    armed = true;
}

FaultyWrites::~FaultyWrites()
{
    armed = false;
}

bool FaultyWrites::wasReached() const
{
    return reached;
}

FileCalls::FileCalls(const QString &folder)
{
    allCalls = 0;
    lockedCalls = 0;
    isLocked = false;
    countedHandles.clear();
    countedFolder = folder.toStdString();
    counting = true;
}

FileCalls::~FileCalls()
{
    counting = false;
}

int FileCalls::all() const
{
    return allCalls;
}

int FileCalls::underLock() const
{
    return lockedCalls;
}

int failEachWrite(Fault fault, const std::function<void()> &prepare,
                  const std::function<void()> &operation,
                  const std::function<void(const FaultyRound &)> &check)
{
    for (int nth = 1;; ++nth) {
        prepare();
        FaultyRound round;
        round.nth = nth;
        bool reached = false;
        const auto run = [&] {
            const FaultyWrites faulty(nth, fault);
            try {
                operation();
            } catch (const FileError &error) {
                round.error = error.number();
                round.aftermath = error.aftermath();
                round.remark = error.remark();
            }
            reached = faulty.wasReached();
        };
        if (fault == Fault::Exit) {
            // Each child goes on with other random names than those of the files left behind.
            QRandomGenerator::global()->discard(1000);
            const pid_t child = fork();
            if (child == 0) {
                // Else every child names its temporary files like the one that died before it.
                QRandomGenerator::global()->discard(1000ULL * unsigned(nth));
                run();
                _exit(round.error ? 1 : 0);
            }
            int status = 0;
            waitpid(child, &status, 0);
            round.died = reached = WIFEXITED(status) && WEXITSTATUS(status) == diedStatus;
            if (!round.died && status != 0)
                return 0;
        } else {
            run();
        }
        if (!reached)
            return round.error ? 0 : nth - 1;
        check(round);
    }
}
