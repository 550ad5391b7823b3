#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

// How patient programs are with each other's locks.
struct LockTimes
{
    std::chrono::milliseconds notice{500};     // of waiting, until the operator is told
    std::chrono::milliseconds patience{10000}; // of waiting, until the operation fails
    std::chrono::milliseconds stale{8000};     // without a sign of life: the holder has crashed
    std::chrono::milliseconds refresh{1000};   // between two signs of life
    std::chrono::milliseconds settle{250};     // before a lock taken from a crashed holder counts
};

// What tells the operator that the program waits for another one; it is gone when the waiting is
// over.
class WaitNotice
{
public:
    WaitNotice() = default;
    virtual ~WaitNotice() = default;
    Q_DISABLE_COPY_MOVE(WaitNotice)

    // Asked every few milliseconds while waiting; false gives up.
    virtual bool goesOn() = 0;
};

// Makes the notice for the computer that holds the lock.
using WaitNotices = std::function<std::unique_ptr<WaitNotice>(const QString &holder)>;

// The one lock of a folder that several programs, on this computer and on others, write in: a file
// that is created exclusively, which every file system and every share does in one step, and
// deleted when the lock is given back.
//
// QLockFile does not serve: it takes the age of its file, by the share's clock, against this
// computer's clock for the age of the lock, so that computers whose clocks differ break each
// other's fresh locks; it tells a live holder from a crashed one by host name alone; and its file
// is unchanged however long the holder works. Here a holder writes a sign of life every second. One
// who waits calls a lock abandoned when he saw no sign for 8 seconds of his own waiting, or when
// its process on this very computer has ended; no time stamp is looked at. A holder that was held
// up for longer than a few signs (a suspended computer) looks whether the lock is still its own
// before it writes.
class FolderLock
{
public:
    // Waits for the lock file \a path and takes it; \a name is this computer's for those who wait.
    // Throws FileError: 70 when others held it all the time or the operator gave up, else what kept
    // the file from being created.
    FolderLock(const QString &path, const QString &name, const LockTimes &times,
               const WaitNotices &notices);
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

    const QString &path() const { return m_path; }

    // Throws FileError 70 when the lock was lost. To be called before each step that changes files.
    void demandHeld();

private:
    bool create();
    void wait(const WaitNotices &notices);
    void showLife();
    bool wasQuietFor(std::chrono::milliseconds time);
    bool isOurs() const;

    const QString m_path;
    const QByteArray m_content; // this computer's name, its identity, the process, a random token
    const LockTimes m_times;
    bool m_lost = false;
    std::mutex m_mutex; // of what follows
    std::condition_variable m_ends;
    bool m_ending = false;
    QElapsedTimer m_lastLife;     // since the last sign of life
    qint64 m_lastLifeByClock = 0; // the same by the clock, which runs on while a computer sleeps
    std::thread m_life;
};
