#include "common/event/eventfiles.h"

#include "common/event/eventlock.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString pathOf(const Session &session, RecordFile file, int race, const QString &twinSuffix)
{
    const QString suffix = file == RecordFile::Bettors ? QString() : raceName(race);
    return session.paths.toHost(session.settings.eventDirectory + recordFileName(file) + twinSuffix
                                + suffix);
}

// A full twin whose main file is missing may be the only whole copy: out of the way with it.
QString moveFullTwinToSaved(Session &session, const QString &twin)
{
    const QString copy = keepInSaved(session, twin);
    if (copy.isEmpty())
        return {};
    return QFileInfo(twin).fileName() + " was moved to Saved as "_L1 + copy;
}

// What a new record file holds.
QByteArray newRecords(RecordFile file)
{
    switch (file) {
    case RecordFile::Horses:
        return horseRecords(HorseTable());
    case RecordFile::Bettors:
        return newBettorRecords();
    case RecordFile::Bets:
    case RecordFile::Multibets:
        break;
    }
    return {};
}

// Creates a missing record file and its twin for GO TO MENU. The lock is taken when the first one
// is missing: an event that is whole is never written to.
QString createIfMissing(Session &session, std::optional<EventLock> &lock, RecordFile file, int race)
{
    const QString name = recordFileName(file);
    return labelled(session, name + " input-Setup"_L1, [&] {
        if (readIfThere(mainFile(session, file, race)))
            return QString();
        if (!lock)
            lock.emplace(session);
        return createMissingTwins(session, file, race, name + " output-Setup"_L1,
                                  name + "backup output-Setup"_L1);
    });
}

QString endNote(const QString &name, const QString &twinName, EndFate fate)
{
    switch (fate) {
    case EndFate::Completed:
        return name + " ended within a record, which was completed from "_L1 + twinName
               + ". A copy is in Saved."_L1;
    case EndFate::Taken:
        return name + " ends without a line end: check its last record."_L1;
    case EndFate::Torn:
        return name + " ends within a record, which does not count. Fix Files shows it."_L1;
    case EndFate::Whole:
        break;
    }
    return {};
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

void tell(Session &session, const QString &note)
{
    if (!note.isEmpty() && session.files.tell)
        session.files.tell(note);
}

FileEnd endOf(Session &session, RecordFile file, int race, const QByteArray &bytes)
{
    if (bytes.isEmpty() || bytes.endsWith('\n'))
        return {};
    const QString twin = twinFile(session, file, race);
    const FileEnd end = fileEnd(bytes, readIfThere(twin));
    tell(session, endNote(QFileInfo(mainFile(session, file, race)).fileName(),
                          QFileInfo(twin).fileName(), end.fate));
    return end;
}

QByteArray withSettledEnd(Session &session, RecordFile file, int race, const QByteArray &bytes)
{
    return bytes + endOf(session, file, race, bytes).missing;
}

namespace {

// A file whose last line is not ended is looked at again under the lock: somebody may just be
// writing it.
QByteArray readTornFile(Session &session, RecordFile file, int race)
{
    const QString path = mainFile(session, file, race);
    try {
        const EventLock lock(session);
        QByteArray bytes = readRecordFile(path);
        const FileEnd end = endOf(session, file, race, bytes);
        bytes += end.missing;
        if (end.fate == EndFate::Completed) {
            keepInSaved(session, path);
            lock.demandHeld();
            replaceRecordFile(path, bytes);
        }
        return bytes;
    } catch (const FileError &) {
        // It can be read all the same where it cannot be written.
        return withSettledEnd(session, file, race, readRecordFile(path));
    }
}

} // namespace

QByteArray readMainFile(Session &session, RecordFile file, int race, const QString &label)
{
    return labelled(session, label, [&] {
        const QByteArray bytes = readRecordFile(mainFile(session, file, race));
        return bytes.isEmpty() || bytes.endsWith('\n') ? bytes : readTornFile(session, file, race);
    });
}

std::optional<QByteArray> readMainFileIfThere(Session &session, RecordFile file, int race,
                                              const QString &label)
{
    try {
        return readMainFile(session, file, race, label);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return {};
}

QByteArray readMainOrNothing(Session &session, RecordFile file, int race, const QString &label)
{
    return readMainFileIfThere(session, file, race, label).value_or(QByteArray());
}

QString eventFolder(const Session &session)
{
    return session.paths.toHost(session.settings.eventDirectory);
}

QString savedFolder(const Session &session)
{
    return session.paths.toHost(session.settings.eventDirectory + u"Saved"_s);
}

namespace {

constexpr qsizetype copiesKept = 100; // of each file, beside those of today

// Deletes the oldest copies of a file. One that cannot be deleted is no fault: it stays.
void thinCopies(const QString &folder, const QString &file, const QDate &today)
{
    static const QRegularExpression time(
        u"^\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d{3}"_s);
    QStringList copies;
    for (const QString &name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
        if (name.startsWith(file + u' ') && time.match(name.mid(file.size() + 1)).hasMatch())
            copies.append(name);
    }
    copies.resize(std::max<qsizetype>(copies.size() - copiesKept, 0));
    for (const QString &name : std::as_const(copies)) {
        if (!name.mid(file.size() + 1).startsWith(today.toString(Qt::ISODate)))
            QFile::remove(folder + u'/' + name);
    }
}

} // namespace

QString keepInSaved(Session &session, const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists() || (info.isFile() && info.size() == 0))
        return {};
    const QByteArray bytes = readRecordFile(path);
    const QString folder = savedFolder(session);
    makeFolder(folder);
    const QString file = info.fileName();
    const QDateTime now = QDateTime::currentDateTime();
    const QString stem = file + u' ' + now.toString(u"yyyy-MM-dd HH.mm.ss.zzz"_s);
    QString name = stem;
    for (int n = 2; !createRecordFile(folder + u'/' + name, bytes); ++n)
        name = stem + u'-' + QString::number(n);
    thinCopies(folder, file, now.date());
    return name;
}

QString CreateEventFiles(Session &session, const Progress &progress)
{
    saveInit(session, InitWriter::Setup, u"Init open-Setup"_s, u"Init output-Setup"_s);
    return createMissingEventFiles(session, progress);
}

QString createMissingEventFiles(Session &session, const Progress &progress)
{
    makeEventFolder(session);
    std::optional<EventLock> lock;
    QStringList notes;
    for (int race = 1; race <= raceCount; ++race) {
        notes += createIfMissing(session, lock, RecordFile::Bets, race);
        notes += createIfMissing(session, lock, RecordFile::Multibets, race);
        progress(race, 2 * raceCount);
    }
    labelled(session, u"Horses directory-Setup"_s, [&] {
        for (int race = 1; race <= raceCount; ++race) {
            notes += createIfMissing(session, lock, RecordFile::Horses, race);
            progress(raceCount + race, 2 * raceCount);
        }
    });
    notes += createIfMissing(session, lock, RecordFile::Bettors, 0);
    notes.removeAll(QString());
    return notes.join(u'\n');
}

QString createMissingTwins(Session &session, RecordFile file, int race, const QString &label,
                           const QString &twinLabel)
{
    const auto lock = labelled(session, label, [&] { return EventLock(session); });
    const QString main = mainFile(session, file, race);
    const QString twin = twinFile(session, file, race);
    QString note;
    if (QFileInfo::exists(main))
        return note; // by now
    const QByteArray records = newRecords(file);
    labelled(session, twinLabel, [&] { note = moveFullTwinToSaved(session, twin); });
    lock.demandHeld();
    if (!labelled(session, label, [&] { return createRecordFile(main, records); }))
        return {};
    labelled(session, twinLabel, [&] {
        if (!createRecordFile(twin, records))
            replaceRecordFile(twin, records);
    });
    return note;
}

void createMissingTwin(Session &session, RecordFile file, int race, const QString &label)
{
    labelled(session, label, [&] {
        const QString twin = twinFile(session, file, race);
        if (QFileInfo(twin).isFile())
            return;
        const EventLock lock(session);
        createRecordFile(twin, readIfThere(mainFile(session, file, race)).value_or(QByteArray()));
    });
}
