#include "kit/faultywrites.h"

#include <QRandomGenerator>

#include <atomic>
#include <cerrno>

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

ssize_t pwrite(int handle, const void *bytes, size_t size, off_t offset)
{
    return writeUnlessFaulty(
        handle, size, [=](size_t n) { return syscall(SYS_pwrite64, handle, bytes, n, offset); });
}

ssize_t pwrite64(int handle, const void *bytes, size_t size, off64_t offset)
{
    return pwrite(handle, bytes, size, offset);
}

// Flushes are counted but never reach the disk: no test outlives a power cut, and waiting for the
// disk hundreds of times would be most of a test's time.
int fsync(int handle)
{
    return unlessFaulty(armed && isOnDisk(handle), [] { return 0; });
}

int fdatasync(int handle)
{
    return fsync(handle);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to,
              unsigned flags) noexcept
{
    return unlessFaulty(
        true, [=] { return syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags); });
}

int rename(const char *from, const char *to) noexcept
{
    return renameat2(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags) noexcept
{
    return unlessFaulty(true,
                        [=] { return syscall(SYS_linkat, fromFolder, from, toFolder, to, flags); });
}

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

int failEachWrite(Fault fault, const std::function<void()> &prepare,
                  const std::function<void()> &operation,
                  const std::function<void(const FaultyRound &)> &check)
{
    for (int nth = 1;; ++nth) {
        prepare();
        FaultyRound round{nth, {}, false};
        bool reached = false;
        const auto run = [&] {
            const FaultyWrites faulty(nth, fault);
            try {
                operation();
            } catch (const FileError &error) {
                round.error = error.number();
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
