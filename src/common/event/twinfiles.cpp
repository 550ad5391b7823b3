#include "common/event/twinfiles.h"

#include "common/event/labelled.h"
#include "common/event/tornend.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The lines with their ends, in file order.
QByteArrayList linesOf(const QByteArray &bytes)
{
    QByteArrayList lines;
    for (qsizetype start = 0; start < bytes.size();) {
        const qsizetype end = bytes.indexOf('\n', start);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        lines.append(bytes.mid(start, next - start));
        start = next;
    }
    return lines;
}

bool losesLines(const QByteArray &old, const QByteArray &records)
{
    if (records.startsWith(old))
        return false;
    QHash<QByteArray, int> counts;
    for (const QByteArray &line : linesOf(records))
        ++counts[line.trimmed()];
    return std::ranges::any_of(
        linesOf(old), [&](const QByteArray &line) { return --counts[line.trimmed()] < 0; });
}

void keepIfLosing(Session &session, const QString &path, const QByteArray &records)
{
    if (losesLines(readIfThere(path).value_or(QByteArray()), records))
        keepInSaved(session, path);
}

// Replaces both files, unless the main file holds something else than \a found by now.
bool rewriteTwins(Session &session, const EventLock &lock, RecordFile file, int race,
                  const std::optional<QByteArray> &found, const TwinRecords &records,
                  const QString &label, const QString &twinLabel)
{
    const QString main = mainFile(session, file, race);
    const QString twin = twinFile(session, file, race);
    labelled(session, label, [&] { keepIfLosing(session, main, records.main); });
    if (records.twin)
        labelled(session, twinLabel, [&] { keepIfLosing(session, twin, *records.twin); });
    const bool isStill = labelled(session, label, [&] {
        lock.demandHeld();
        if (!found)
            return createRecordFile(main, records.main);
        Replacement replacement(main, records.main);
        if (readIfThere(main) != found)
            return false;
        lock.demandHeld();
        replacement.commit();
        return true;
    });
    if (!isStill || !records.twin)
        return isStill;
    try {
        labelled(session, twinLabel, [&] {
            lock.demandHeld();
            replaceRecordFile(twin, *records.twin);
        });
    } catch (FileError &error) {
        error.setAftermath(Aftermath::MainChanged);
        throw;
    }
    return true;
}

// The file, open for appending, or none when it is missing.
std::unique_ptr<HostFile> openIfThere(const QString &path)
{
    try {
        return std::make_unique<HostFile>(path, HostFile::Mode::Append);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return {};
}

// The main file; a missing one is created, and its twin with it.
std::unique_ptr<HostFile> openMain(Session &session, RecordFile file, int race,
                                   const QString &label)
{
    const QString path = mainFile(session, file, race);
    if (auto main = openIfThere(path))
        return main;
    tell(session, createMissingTwins(session, file, race, label, label));
    return std::make_unique<HostFile>(path, HostFile::Mode::Append);
}

// Takes out of the lines those that an append of unknown end left on file.
QByteArray withoutPlaced(const UnsureAppend &unsure, const QByteArray &now, const QByteArray &lines)
{
    QHash<QByteArray, int> placed;
    for (const QByteArray &line : linesOf(now))
        ++placed[line];
    for (const QByteArray &line : linesOf(unsure.before))
        --placed[line];
    QByteArray missing;
    for (const QByteArray &line : linesOf(lines)) {
        if (placed.value(line) > 0 && unsure.lines.contains(line))
            --placed[line];
        else
            missing += line;
    }
    return missing;
}

// Cuts off what an append of unknown end left of a line: nobody else wrote it.
void cutTornPart(const UnsureAppend &unsure, HostFile &file, QByteArray &found)
{
    if (!found.startsWith(unsure.before))
        return;
    const QByteArray left = found.mid(unsure.before.size());
    const qsizetype whole = left.lastIndexOf('\n') + 1;
    if (whole < left.size() && unsure.lines.startsWith(left)
        && file.cutTo(unsure.before.size() + whole))
        found.truncate(unsure.before.size() + whole);
}

// Brings the twin from what it holds to the main file's new bytes: \a found and what was appended.
void appendToTwin(HostFile &twin, const QByteArray &found, const QByteArray &now,
                  const QByteArray &lines)
{
    // One look tells a twin that is as long as the main file was and ends like it.
    const bool sameEnd = found.isEmpty()
                             ? twin.read(0, 1).isEmpty()
                             : found.endsWith('\n') && twin.read(found.size() - 1, 2) == "\n";
    if (sameEnd)
        return appendSafely(twin, found.size(), now.mid(found.size()));
    const QByteArray held = twin.readAll();
    const QByteArray rest =
        now.startsWith(held) ? now.mid(held.size()) : fileEnd(held, now).missing + lines;
    appendSafely(twin, held.size(), rest);
}

// One append to a record file and its twin. The files are members before the lock: they are closed
// after it was given back, because on a slow share nobody should wait for that.
class TwinAppend
{
public:
    TwinAppend(Session &session, RecordFile file, int race)
        : m_session(session)
        , m_file(file)
        , m_race(race)
    {
    }

    QByteArray run(const NewLines &newLines, const QString &inputLabel, const QString &label,
                   const QString &twinLabel)
    {
        labelled(m_session, inputLabel, [&] { open(inputLabel); });
        const QByteArray before = m_found + m_end.missing;
        const QByteArray wanted = newLines(before);
        if (wanted.isEmpty())
            return before;
        const bool again = isUnsure();
        const QByteArray lines =
            again ? withoutPlaced(*m_session.files.unsure, before, wanted) : wanted;
        try {
            labelled(m_session, label, [&] { writeMain(before + lines); });
            labelled(m_session, twinLabel, [&] { writeTwin(before + lines, lines); });
        } catch (FileError &error) {
            // Of several attempts, what the file held before the first one counts.
            if (error.aftermath() == Aftermath::Unsure)
                m_session.files.unsure = {m_path, again ? m_session.files.unsure->before : before,
                                          wanted};
            else if (again)
                error.setAftermath(Aftermath::Unsure);
            throw;
        }
        if (again)
            m_session.files.unsure.reset();
        return before + lines;
    }

private:
    bool isUnsure() const
    {
        return m_session.files.unsure && m_session.files.unsure->path == m_path;
    }

    void open(const QString &label)
    {
        m_path = mainFile(m_session, m_file, m_race);
        m_lock.emplace(m_session);
        m_main = openMain(m_session, m_file, m_race, label);
        m_found = m_main->readAll();
        if (isUnsure())
            cutTornPart(*m_session.files.unsure, *m_main, m_found);
        m_end = endOf(m_session, m_file, m_race, m_found);
    }

    void writeMain(const QByteArray &now)
    {
        if (m_end.fate == EndFate::Completed)
            keepInSaved(m_session, m_path);
        m_lock->demandHeld();
        appendSafely(*m_main, m_found.size(), now.mid(m_found.size()));
    }

    void writeTwin(const QByteArray &now, const QByteArray &lines)
    {
        const QString path = twinFile(m_session, m_file, m_race);
        try {
            m_lock->demandHeld();
            m_twin = openIfThere(path);
            if (m_twin)
                appendToTwin(*m_twin, m_found, now, lines);
            else
                createRecordFile(path, now);
        } catch (FileError &error) {
            // The records are on file in both, or in none.
            const bool twinIsUnsure = error.aftermath() == Aftermath::Unsure;
            const bool isCut = m_main->cutTo(m_found.size());
            error.setAftermath(isCut ? Aftermath::AsBefore : Aftermath::Unsure);
            if (isCut && twinIsUnsure)
                error.setRemark(u"The backup may hold records that were not placed."_s);
            throw;
        }
    }

    Session &m_session;
    const RecordFile m_file;
    const int m_race;
    QString m_path;
    std::unique_ptr<HostFile> m_main;
    std::unique_ptr<HostFile> m_twin;
    std::optional<EventLock> m_lock;
    QByteArray m_found; // in the main file
    FileEnd m_end;
};

} // namespace

bool changeTwins(Session &session, RecordFile file, int race, const RecordChange &change,
                 const QString &inputLabel, const QString &label, const QString &twinLabel)
{
    const auto lock = labelled(session, inputLabel, [&] { return EventLock(session); });
    for (;;) {
        QByteArray settled;
        const auto found = labelled(session, inputLabel, [&] {
            auto bytes = readIfThere(mainFile(session, file, race));
            settled = bytes ? withSettledEnd(session, file, race, *bytes) : QByteArray();
            return bytes;
        });
        const std::optional<TwinRecords> changed = change(settled);
        if (!changed)
            return false;
        if (!found && changed->main.isEmpty())
            return true; // neither there nor wanted
        if (rewriteTwins(session, lock, file, race, found, *changed, label, twinLabel))
            return true;
    }
}

bool deleteTwins(Session &session, RecordFile file, int race, const QByteArray &expected,
                 const std::function<void()> &beforeDeletion, const QString &label,
                 const QString &twinLabel)
{
    const QString main = mainFile(session, file, race);
    const QString twin = twinFile(session, file, race);
    const auto isExpected = [&] {
        const QByteArray found = readIfThere(main).value_or(QByteArray());
        return withSettledEnd(session, file, race, found) == expected;
    };
    const auto keepBoth = [&] {
        for (const QString &path : {main, twin})
            keepInSaved(session, path);
    };
    const bool kept = labelled(session, label, [&] {
        const EventLock lock(session);
        if (!isExpected())
            return false;
        labelled(session, recordFileName(file) + " Saved"_L1, keepBoth);
        return true;
    });
    if (!kept)
        return false;
    if (beforeDeletion)
        beforeDeletion();

    const auto lock = labelled(session, label, [&] { return EventLock(session); });
    const bool deleted = labelled(session, label, [&] {
        if (!isExpected())
            return false;
        lock.demandHeld();
        deleteRecordFile(main);
        return true;
    });
    if (!deleted)
        return false;
    try {
        labelled(session, twinLabel, [&] { deleteRecordFile(twin); });
    } catch (FileError &error) {
        error.setAftermath(Aftermath::MainChanged);
        throw;
    }
    return true;
}

QByteArray appendTwins(Session &session, RecordFile file, int race, const NewLines &newLines,
                       const QString &inputLabel, const QString &label, const QString &twinLabel)
{
    return TwinAppend(session, file, race).run(newLines, inputLabel, label, twinLabel);
}
