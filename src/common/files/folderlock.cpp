#include "common/files/folderlock.h"

#include "common/files/hostfile.h"
#include "common/files/hostsystem.h"
#include "common/files/recordfile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto lookInterval = 100ms; // between two looks at another's lock
constexpr auto laterPoll = 50ms;

QByteArray contentOfLock(const QString &name)
{
    const quint64 token = QRandomGenerator::system()->generate64();
    return quotedField(name) + ',' + quotedField(thisMachine()) + ','
           + QByteArray::number(QCoreApplication::applicationPid()) + ','
           + quotedField(QString::number(token, 36)) + recordEnd;
}

std::optional<QByteArray> readLock(const QString &path)
{
    try {
        return readRecordFile(path);
    } catch (const FileError &) {
        return {};
    }
}

// Another's lock as one who waits sees it.
class OthersLock
{
public:
    explicit OthersLock(QString path)
        : m_path(std::move(path))
    {
    }

    // Looks at the lock, unless that was done a moment ago.
    void look()
    {
        if (m_sinceLook.isValid() && !m_sinceLook.hasExpired(lookInterval.count()))
            return;
        m_sinceLook.start();
        const std::optional<QByteArray> now = readLock(m_path);
        if (!now)
            return m_unchanged.invalidate();
        if (!m_unchanged.isValid() || *now != m_content)
            m_unchanged.start();
        m_content = *now;
        m_fields.clear();
        std::string_view rest = view(m_content);
        std::string_view line;
        if (nextRecordLine(rest, line) && !splitRecord(line, m_fields))
            m_fields.clear();
    }

    QString holder() const
    {
        return m_fields.size() == 4 ? fieldText(m_fields[0]) : u"another computer"_s;
    }

    bool isAbandoned(std::chrono::milliseconds stale) const
    {
        if (!m_unchanged.isValid())
            return false;
        const bool endedHere = m_fields.size() == 4 && fieldText(m_fields[1]) == thisMachine()
                               && hasProcessEnded(qint64(fieldNumber(m_fields[2]).value_or(0)));
        return endedHere || m_unchanged.hasExpired(stale.count());
    }

    // Takes the abandoned lock away. Renaming it makes sure that only one of those who wait does,
    // and shows whether it was this lock that went.
    void breakOff()
    {
        const QString aside =
            m_path + u'.' + QString::number(QRandomGenerator::system()->generate(), 36);
        if (renameFile(m_path, aside)) {
            if (readLock(aside) != m_content)
                moveToNewName(aside, m_path); // somebody's new lock: back with it
            QFile::remove(aside);
        }
        m_sinceLook.invalidate();
        m_unchanged.invalidate();
    }

private:
    const QString m_path;
    QByteArray m_content;
    std::vector<RecordField> m_fields;
    QElapsedTimer m_sinceLook;
    QElapsedTimer m_unchanged;
};

} // namespace

FolderLock::FolderLock(const QString &path, const QString &name, const LockTimes &times,
                       const WaitNotices &notices)
    : m_path(path)
    , m_content(contentOfLock(name))
    , m_times(times)
{
    if (!create())
        wait(notices);
    m_lastLife.start();
    m_lastLifeByClock = QDateTime::currentMSecsSinceEpoch();
    m_life = std::thread([this] { showLife(); });
}

FolderLock::~FolderLock()
{
    {
        const std::scoped_lock guard(m_mutex);
        m_ending = true;
    }
    m_ends.notify_all();
    m_life.join();
    if (!m_lost && (!wasQuietFor(m_times.stale / 2) || isOurs()))
        patiently([this] { return QFile::remove(m_path); });
}

// False when somebody else has the lock.
bool FolderLock::create()
{
    const std::unique_ptr<HostFile> file = HostFile::createNew(m_path);
    if (!file)
        return false;
    try {
        file->append(m_content);
    } catch (const FileError &) {
        QFile::remove(m_path);
        throw;
    }
    return true;
}

void FolderLock::wait(const WaitNotices &notices)
{
    QElapsedTimer waited;
    waited.start();
    OthersLock others(m_path);
    std::unique_ptr<WaitNotice> notice;
    for (;;) {
        others.look();
        const bool broken = others.isAbandoned(m_times.stale);
        if (broken)
            others.breakOff();
        if (create()) {
            if (!broken)
                return;
            // Another who broke the same lock may have moved this one aside and put it back.
            std::this_thread::sleep_for(m_times.settle);
            if (isOurs())
                return;
        }
        if (waited.hasExpired(m_times.notice.count()) && !notice && notices)
            notice = notices(others.holder());
        if ((notice && !notice->goesOn()) || waited.hasExpired(m_times.patience.count()))
            throw FileError(ErrorNumber::PermissionDenied);
        const bool early = !waited.hasExpired(m_times.notice.count());
        QThread::msleep(early ? QRandomGenerator::global()->bounded(2U, 12U) : laterPoll.count());
    }
}

// Runs beside the holder's work until the lock is given back.
void FolderLock::showLife()
{
    std::unique_lock guard(m_mutex);
    while (!m_ends.wait_for(guard, m_times.refresh, [this] { return m_ending; })) {
        guard.unlock();
        bool shown = false;
        try {
            if (isOurs()) {
                HostFile file(m_path, HostFile::Mode::Append);
                file.append(".");
                file.flush();
                shown = true;
            }
        } catch (const FileError &) {
            // No sign this time; demandHeld sees that it is missing.
        }
        guard.lock();
        if (shown) {
            m_lastLife.start();
            m_lastLifeByClock = QDateTime::currentMSecsSinceEpoch();
        }
    }
}

bool FolderLock::wasQuietFor(std::chrono::milliseconds time)
{
    const std::scoped_lock guard(m_mutex);
    const qint64 byClock = QDateTime::currentMSecsSinceEpoch() - m_lastLifeByClock;
    return m_lastLife.hasExpired(time.count()) || byClock < 0 || byClock > time.count();
}

bool FolderLock::isOurs() const
{
    const std::optional<QByteArray> content = readLock(m_path);
    return content && content->startsWith(m_content);
}

void FolderLock::demandHeld()
{
    if (!m_lost && wasQuietFor(m_times.stale / 2))
        m_lost = !isOurs();
    if (m_lost)
        throw FileError(ErrorNumber::PermissionDenied);
}
