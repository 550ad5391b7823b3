#include "common/event/eventfiles.h"

#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

QString pathOf(const Session &session, RecordFile file, int race, const QString &twinSuffix)
{
    const QString suffix = file == RecordFile::Bettors ? QString() : raceName(race);
    return session.paths.toHost(session.settings.eventDirectory + recordFileName(file) + twinSuffix
                                + suffix);
}

// True when the file is not there; anything else that keeps it from being read is thrown.
bool isMissing(const QString &path)
{
    try {
        readRecordFile(path);
    } catch (const FileError &error) {
        if (error.number() == ErrorNumber::FileNotFound)
            return true;
        throw;
    }
    return false;
}

// A full twin whose main file is missing may be the only whole copy: out of the way with it.
QString moveFullTwinToSaved(Session &session, const QString &twin)
{
    const QString copy = keepInSaved(session, twin);
    if (copy.isEmpty())
        return {};
    return QFileInfo(twin).fileName() + " was moved to Saved as "_L1 + copy;
}

// An empty file that was not there loses nothing to a power failure: it needs no flush.
void writeNewFile(const QString &path, const QByteArray &records)
{
    if (records.isEmpty() && !QFileInfo::exists(path))
        createRecordFile(path);
    else
        replaceRecordFile(path, records);
}

// Creates a missing record file and its twin with the records that a new one holds.
QString createIfMissing(Session &session, RecordFile file, int race, const QByteArray &records,
                        const QString &labelBase)
{
    const QString twinLabel = labelBase + "backup output-Setup"_L1;
    if (!labelled(session, labelBase + " input-Setup"_L1,
                  [&] { return isMissing(mainFile(session, file, race)); }))
        return {};
    QString note = labelled(session, twinLabel, [&] {
        return moveFullTwinToSaved(session, twinFile(session, file, race));
    });
    labelled(session, labelBase + " output-Setup"_L1,
             [&] { writeNewFile(mainFile(session, file, race), records); });
    labelled(session, twinLabel, [&] { writeNewFile(twinFile(session, file, race), records); });
    return note;
}

// The bytes with whole lines after them.
QByteArray withLines(const QByteArray &bytes, const QByteArray &lines)
{
    const bool lacksEnd = !bytes.isEmpty() && !bytes.endsWith('\n');
    return bytes + (lacksEnd ? recordEnd : "") + lines;
}

} // namespace

void makeEventFolder(Session &session)
{
    labelled(session, u"Bets drivedir-Setup"_s, [&] {
        const QString folder = eventFolder(session);
        if (session.settings.eventDirectory.startsWith("\\\\"_L1) && !QFileInfo(folder).isDir())
            throw FileError(ErrorNumber::PathNotFound);
        makeFolder(folder);
    });
}

QString recordFileName(RecordFile file)
{
    switch (file) {
    case RecordFile::Horses:
        return u"Horses"_s;
    case RecordFile::Bets:
        return u"Bets"_s;
    case RecordFile::Multibets:
        return u"Multibets"_s;
    case RecordFile::Bettors:
        break;
    }
    return u"Bettors"_s;
}

QString mainFile(const Session &session, RecordFile file, int race)
{
    return pathOf(session, file, race, {});
}

QString twinFile(const Session &session, RecordFile file, int race)
{
    return pathOf(session, file, race, u"backup"_s);
}

QByteArray readMainFile(Session &session, RecordFile file, int race, const QString &label)
{
    return labelled(session, label, [&] { return readRecordFile(mainFile(session, file, race)); });
}

QString eventFolder(const Session &session)
{
    return session.paths.toHost(session.settings.eventDirectory);
}

QString savedFolder(const Session &session)
{
    return session.paths.toHost(session.settings.eventDirectory + u"Saved"_s);
}

EventLock::EventLock(const Session &session)
{
    using namespace std::chrono_literals;
    if (session.settings.networkMode == 0)
        return;
    m_lock.emplace(eventFolder(session) + "/Trelawn.lock"_L1);
    m_lock->setStaleLockTime(10s);
    const QDeadlineTimer patience(2s);
    while (!m_lock->tryLock(0ms) && m_lock->error() == QLockFile::LockFailedError
           && !patience.hasExpired())
        QThread::msleep(QRandomGenerator::global()->bounded(2U, 12U));
}

bool changeTwins(Session &session, RecordFile file, int race, const RecordChange &change,
                 const QString &inputLabel, const QString &label, const QString &twinLabel)
{
    const auto lock = labelled(session, inputLabel, [&] { return EventLock(session); });
    QByteArray found = readMainFile(session, file, race, inputLabel);
    for (;;) {
        const std::optional<QByteArray> changed = change(found);
        if (!changed)
            return false;
        const QByteArray now = labelled(session, label, [&] {
            if (*changed != found)
                keepTwinsInSaved(session, file, race);
            return readRecordFile(mainFile(session, file, race));
        });
        if (now == found) {
            rewriteTwins(session, file, race, *changed, label, twinLabel);
            return true;
        }
        found = now;
    }
}

void rewriteTwins(Session &session, RecordFile file, int race, const QByteArray &records,
                  const QString &label, const QString &twinLabel)
{
    labelled(session, label, [&] { replaceRecordFile(mainFile(session, file, race), records); });
    labelled(session, twinLabel,
             [&] { replaceRecordFile(twinFile(session, file, race), records); });
}

void appendTwins(Session &session, RecordFile file, int race, const QByteArray &lines,
                 const QString &label, const QString &twinLabel)
{
    labelled(session, label, [&] {
        const EventLock lock(session);
        const QString main = mainFile(session, file, race);
        appendRecords(main, lines);
        try {
            labelled(session, twinLabel,
                     [&] { appendRecords(twinFile(session, file, race), lines); });
        } catch (const FileError &) {
            cutRecords(main, lines);
            throw;
        }
    });
}

void addTwinsWithLines(QList<NamedBytes> &files, const Session &session, RecordFile file, int race,
                       const QByteArray &lines)
{
    const QString main = mainFile(session, file, race);
    const QString twin = twinFile(session, file, race);
    const QByteArray bytes = readRecordFile(main);
    files.append({main, withLines(bytes, lines)});
    files.append({twin, withLines(QFileInfo::exists(twin) ? readRecordFile(twin) : bytes, lines)});
}

QString keepInSaved(Session &session, const QString &path)
{
    if (QFileInfo(path).size() == 0)
        return {};
    const QByteArray bytes = readRecordFile(path);
    makeFolder(savedFolder(session));
    const QString stem = QFileInfo(path).fileName() + u' '
                         + QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss.zzz"_s);
    QString name = stem;
    for (int n = 2; QFileInfo::exists(savedFolder(session) + u'/' + name); ++n)
        name = stem + u'-' + QString::number(n);
    replaceRecordFile(savedFolder(session) + u'/' + name, bytes);
    return name;
}

int keepTwinsInSaved(Session &session, RecordFile file, int race)
{
    int kept = 0;
    for (const QString &path : {mainFile(session, file, race), twinFile(session, file, race)})
        kept += keepInSaved(session, path).isEmpty() ? 0 : 1;
    return kept;
}

QString CreateEventFiles(Session &session)
{
    saveInit(session, InitWriter::Setup, u"Init open-Setup"_s, u"Init output-Setup"_s);
    return createMissingEventFiles(session);
}

QString createMissingEventFiles(Session &session)
{
    makeEventFolder(session);
    QStringList notes;
    for (int race = 1; race <= raceCount; ++race) {
        notes += createIfMissing(session, RecordFile::Bets, race, {}, u"Bets"_s);
        notes += createIfMissing(session, RecordFile::Multibets, race, {}, u"Multibets"_s);
    }
    labelled(session, u"Horses directory-Setup"_s, [&] {
        for (int race = 1; race <= raceCount; ++race) {
            notes += createIfMissing(session, RecordFile::Horses, race, horseRecords(HorseTable()),
                                     u"Horses"_s);
        }
    });
    notes += createIfMissing(session, RecordFile::Bettors, 0, newBettorRecords(), u"Bettors"_s);
    notes.removeAll(QString());
    return notes.join(u'\n');
}

QString CreateMissingRaceBets(Session &session)
{
    const int race = session.settings.currentRace;
    const QString twin = twinFile(session, RecordFile::Bets, race);
    const QString note = moveFullTwinToSaved(session, twin);
    createRecordFile(mainFile(session, RecordFile::Bets, race));
    replaceRecordFile(twin, {});
    return note;
}
