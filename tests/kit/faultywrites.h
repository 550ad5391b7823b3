#pragma once

#include "common/files/fileerror.h"

#include <functional>
#include <optional>

// How the n-th write, flush or rename of this process fails, to prove what files are like then.
// Counted are write, fsync, fdatasync, ftruncate, unlink, rename and link on regular files and
// folders, whoever calls them.

enum class Fault {
    DiskFull,     // the call fails with ENOSPC; the calls after it work
    IoError,      // the call fails with EIO; the calls after it work
    PartialWrite, // a write puts half of its bytes on disk, the next call fails with ENOSPC
    DiskGone,     // the call and all calls after it fail with EIO
    Exit,         // a write puts half of its bytes on disk and the process ends (forked, see below)
};

// How one round of an operation ended.
struct FaultyRound
{
    int nth = 0;                      // the call that failed
    std::optional<ErrorNumber> error; // what the operation threw
    Aftermath aftermath = Aftermath::AsBefore;
    QString remark;    // of the error
    bool died = false; // the process ended in mid-operation (Fault::Exit)
};

// Lets flushes return at once in this test program. Being called is all it takes: with it the file
// that stands in front of the system's functions is linked in.
void skipRealFlushes();

// Runs \a prepare, \a operation and \a check with the first call failing, then the second, and so
// on, until the operation needs no more calls. With Fault::Exit each operation runs in a forked
// process. Returns the number of calls that could fail; 0 means that nothing was
// written at all, or that the operation failed of its own.
//
//     QVERIFY(failEachWrite(Fault::DiskFull, [&] { event.write(...); },
//                           [&] { AppendBet(event.session, bets); },
//                           [&](const FaultyRound &round) { ... }) > 0);
int failEachWrite(Fault fault, const std::function<void()> &prepare,
                  const std::function<void()> &operation,
                  const std::function<void(const FaultyRound &)> &check);

// Counts the calls to the system on files of one folder while it lives, as each of them is a
// journey over the network where the folder is a share: opening and closing, looking, reading,
// writing, flushing, renaming, deleting.
class FileCalls
{
public:
    explicit FileCalls(const QString &folder);
    ~FileCalls();
    Q_DISABLE_COPY_MOVE(FileCalls)

    static inline int all = 0;

    // Those from the taking of the folder's lock on, to giving it back.
    static inline int underLock = 0;
};
