#include "common/files/folderlock.h"
#include "common/files/hostsystem.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"

#include <atomic>
#include <thread>

using namespace std::chrono_literals;

namespace {

constexpr LockTimes quick{20ms, 600ms, 200ms, 20ms, 30ms};

// Gives up when it was asked so often.
struct Impatient : WaitNotice
{
    bool goesOn() override { return left-- > 0; }
    int left = 0;
};

QByteArray lockOf(const QString &machine, qint64 process)
{
    return "\"DESK2\"," + quotedField(machine) + ',' + QByteArray::number(process) + ",\"x\"\r\n";
}

} // namespace

class tst_folderlock : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"Trelawn.lock"_s);

    // The error of taking the lock, 0 when it was taken; the name of the holder that was waited
    // for.
    int take(QString &holder, int patience = 1000) const
    {
        return errorOf([&] {
            const FolderLock lock(m_path, u"DESK1"_s, quick, [&](const QString &name) {
                holder = name;
                auto notice = std::make_unique<Impatient>();
                notice->left = patience;
                return notice;
            });
        });
    }

private slots:
    void cleanup() { QFile::remove(m_path); }

    // Whose lock is waited for, and whose is taken away.
    void others()
    {
        const QByteArray elsewhere = lockOf(u"another machine"_s, 1);
        const QByteArray ended = lockOf(thisMachine(), 0x7ffffff0);
        const QByteArray running = lockOf(thisMachine(), QCoreApplication::applicationPid());
        const QString desk = u"DESK2"_s;
        // The lock file, whether its holder lives, how long one waits; the error and the holder.
        Rows<QByteArray, bool, int, int, QString> rows;
        rows("nobody's", {}, false, 1000, 0, {});
        rows("of a program that crashed here", ended, false, 1000, 0,
             hasNativeDrives() ? desk : QString()); // there it is known by its silence alone
        rows("of one that crashed elsewhere", elsewhere, false, 1000, 0, desk);
        rows("of one that works elsewhere", elsewhere, true, 1000, 70, desk);
        rows("of one that works here", running, true, 1000, 70, desk);
        rows("cancelled", elsewhere, true, 2, 70, desk);
        rows("torn", "\"DES", true, 2, 70, u"another computer"_s);
        for (const auto &[row, content, lives, patience, error, waitedFor] : rows) {
            if (!content.isEmpty())
                replaceRecordFile(m_path, content);
            std::atomic<bool> ends = !lives;
            std::thread life([&ends, written = content, this]() mutable {
                while (!ends) {
                    written += '.';
                    QFile file(m_path);
                    if (!file.open(QIODevice::ReadWrite) || file.write(written) < 0)
                        return;
                    // Computers' clocks differ by hours and more.
                    file.setFileTime(
                        QDateTime::fromSecsSinceEpoch(written.size() % 2 ? 1 : 9'000'000'000),
                        QFileDevice::FileModificationTime);
                    file.close();
                    std::this_thread::sleep_for(quick.refresh);
                }
            });
            QString holder;
            const int found = take(holder, patience);
            ends = true;
            life.join();
            QCOMPARE(found, error);
            QCOMPARE(holder, waitedFor);
            QCOMPARE(QFile::exists(m_path), error != 0);
            QFile::remove(m_path);
        }
    }

    // A holder at work for long is alive to those who wait, and gives the lock back.
    void holderShowsLife()
    {
        QString holder;
        {
            FolderLock lock(m_path, u"DESK1"_s, quick, {});
            QCOMPARE(take(holder), 70);
            lock.demandHeld();
        }
        QCOMPARE(holder, u"DESK1"_s);
        QCOMPARE(take(holder), 0);
    }

    // A computer that slept for too long has lost its lock: it writes nothing, and the new holder
    // keeps his.
    void lostLock()
    {
        const QByteArray others = lockOf(u"another machine"_s, 1);
        {
            FolderLock lock(m_path, u"DESK1"_s, quick, {});
            replaceRecordFile(m_path, others);
            QTRY_COMPARE(errorOf([&] { lock.demandHeld(); }), 70);
        }
        QCOMPARE(readRecordFile(m_path), others);
    }

    // However many find a crashed holder's lock, one at a time has it then.
    void oneAtATime()
    {
        replaceRecordFile(m_path, lockOf(u"another machine"_s, 1));
        std::atomic<int> holders = 0;
        std::atomic<int> most = 0;
        std::atomic<int> taken = 0;
        std::vector<std::thread> programs;
        LockTimes times = quick;
        times.patience = 20s;
        for (int program = 0; program < 6; ++program) {
            programs.emplace_back([&] {
                for (int round = 0; round < 5; ++round) {
                    const FolderLock lock(m_path, u"DESK"_s, times, {});
                    most = std::max(most.load(), ++holders);
                    ++taken;
                    std::this_thread::sleep_for(1ms);
                    --holders;
                }
            });
        }
        for (std::thread &program : programs)
            program.join();
        QCOMPARE(most, 1);
        QCOMPARE(taken, 30);
    }

    void folderThatCannotBeWritten()
    {
        QCOMPARE(errorOf([&] { FolderLock(m_path + u"/none/lock"_s, {}, quick, {}); }), 76);
    }
};

TRELAWN_TEST(tst_folderlock)
#include "tst_folderlock.moc"
