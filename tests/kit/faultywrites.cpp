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
bool isLocked = false;

bool isLockFile(std::string_view path)
{
    return path.ends_with("Trelawn.lock");
}

enum class Verdict { Works, Fails, HalfOnly };

Verdict nextCall(bool isWrite)
{
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

enum class Kind { Looks, Changes, Writes };

Verdict judge(bool isCounted, Kind kind)
{
    FileCalls::all += isCounted ? 1 : 0;
    FileCalls::underLock += isCounted && isLocked ? 1 : 0;
    return armed && kind != Kind::Looks ? nextCall(kind == Kind::Writes) : Verdict::Works;
}

// Sockets, pipes and terminals stay out of it.
Verdict judge(int handle, Kind kind)
{
    struct stat status = {};
    const bool onDisk = (armed || counting) && syscall(SYS_fstat, handle, &status) == 0
                        && (S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
    return onDisk ? judge(counting && countedHandles.contains(handle), kind) : Verdict::Works;
}

bool isCounted(const char *path)
{
    return counting && std::string_view(path).starts_with(countedFolder);
}

Verdict judge(const char *path, Kind kind)
{
    return judge(isCounted(path), kind);
}

int unlessFaulty(auto file, Kind kind, const auto &call)
{
    return judge(file, kind) == Verdict::Fails ? -1 : int(call());
}

} // namespace

// These stand in front of the system library's functions for everything in the test program.
extern "C" {

ssize_t write(int handle, const void *bytes, size_t size)
{
    const Verdict verdict = judge(handle, Kind::Writes);
    if (verdict == Verdict::Fails)
        return -1;
    const size_t part = verdict == Verdict::HalfOnly ? size / 2 : size;
    const long written = syscall(SYS_write, handle, bytes, part);
    if (verdict == Verdict::HalfOnly && currentFault == Fault::Exit)
        _exit(diedStatus);
    return written;
}

// Flushes are counted but never reach the disk: no test outlives a power cut, and waiting for the
// disk hundreds of times would be most of a test's time.
int fsync(int handle)
{
    return unlessFaulty(handle, Kind::Changes, [] { return 0; });
}

int ftruncate(int handle, off_t size) noexcept
{
    return unlessFaulty(handle, Kind::Changes,
                        [=] { return syscall(SYS_ftruncate, handle, size); });
}

// Giving the lock back never fails: its file would keep every later round waiting.
int unlink(const char *path) noexcept
{
    const Kind kind = isLockFile(path) ? Kind::Looks : Kind::Changes;
    const int result = unlessFaulty(path, kind, [=] { return syscall(SYS_unlink, path); });
    isLocked &= !isLockFile(path);
    return result;
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    return unlessFaulty(to, Kind::Changes, [=] {
        return syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags);
    });
}

int rename(const char *from, const char *to) noexcept
{
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return unlessFaulty(to, Kind::Changes,
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
    judge(path, Kind::Looks);
    const int handle = int(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
    if (handle >= 0 && isCounted(path)) {
        countedHandles.insert(handle);
        isLocked |= (flags & O_EXCL) && isLockFile(path);
    }
    return handle;
}

int close(int handle)
{
    judge(handle, Kind::Looks);
    if (counting)
        countedHandles.erase(handle);
    return int(syscall(SYS_close, handle));
}

ssize_t read(int handle, void *bytes, size_t size)
{
    judge(handle, Kind::Looks);
    return syscall(SYS_read, handle, bytes, size);
}

ssize_t pread(int handle, void *bytes, size_t size, off_t offset)
{
    judge(handle, Kind::Looks);
    return syscall(SYS_pread64, handle, bytes, size, offset);
}

int fstat(int handle, struct stat *status) noexcept
{
    return unlessFaulty(handle, Kind::Looks, [=] { return syscall(SYS_fstat, handle, status); });
}

int stat(const char *path, struct stat *status) noexcept
{
    return unlessFaulty(path, Kind::Looks, [=] { return syscall(SYS_stat, path, status); });
}

int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) noexcept
{
    *path ? judge(path, Kind::Looks) : judge(folder, Kind::Looks);
    return int(syscall(SYS_statx, folder, path, flags, mask, status));
}

int access(const char *path, int mode) noexcept
{
    return unlessFaulty(path, Kind::Looks,
                        [=] { return syscall(SYS_faccessat, AT_FDCWD, path, mode); });
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return unlessFaulty(path, Kind::Looks,
                        [=] { return syscall(SYS_mkdirat, AT_FDCWD, path, mode); });
}

int fdatasync(int handle) __attribute__((alias("fsync")));
int ftruncate64(int handle, off64_t size) noexcept __attribute__((alias("ftruncate")));
int open64(const char *path, int flags, ...) __attribute__((alias("open")));

} // extern "C"

void skipRealFlushes() {}

FileCalls::FileCalls(const QString &folder)
{
    all = 0;
    underLock = 0;
    isLocked = false;
    countedHandles.clear();
    countedFolder = folder.toStdString();
    counting = true;
}

FileCalls::~FileCalls()
{
    counting = false;
}

int failEachWrite(Fault fault, const std::function<void()> &prepare,
                  const std::function<void()> &operation,
                  const std::function<void(const FaultyRound &)> &check)
{
    for (int nth = 1;; ++nth) {
        prepare();
        FaultyRound round;
        round.nth = nth;
        const auto run = [&] {
            callsLeft = nth;
            currentFault = fault;
            reached = false;
            armed = true;
            try {
                operation();
            } catch (const FileError &error) {
                round.error = error.number();
                round.aftermath = error.aftermath();
                round.remark = error.remark();
            }
            armed = false;
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
