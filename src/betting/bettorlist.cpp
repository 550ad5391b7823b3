#include "betting/bettorlist.h"

#include "common/event/eventfiles.h"
#include "common/event/labelled.h"
#include "common/event/racefiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// The old bytes of a record file; a missing file held nothing.
QByteArray oldRecords(const QString &path)
{
    try {
        return readRecordFile(path);
    } catch (const FileError &error) {
        if (error.number() == ErrorNumber::FileNotFound)
            return {};
        throw;
    }
}

QSet<QByteArray> linesOf(const QByteArray &bytes)
{
    QSet<QByteArray> lines;
    std::string_view rest = view(bytes);
    std::string_view line;
    while (nextRecordLine(rest, line)) {
        if (!isBlankLine(line))
            lines.insert(QByteArray(line.data(), qsizetype(line.size())));
    }
    return lines;
}

// Replaces a file of bettors; when a record of the old one is missing from the new one, a copy goes
// to Saved, whoever wrote that record.
void replaceBettors(Session &session, const QString &path, const QByteArray &old,
                    const QByteArray &records)
{
    if (!linesOf(records).contains(linesOf(old)))
        keepInSaved(session, path);
    replaceRecordFile(path, records);
}

void saveBackup(Session &session)
{
    const QString twin = twinFile(session, RecordFile::Bettors, 0);
    const QByteArray old = oldRecords(twin);
    const QByteArray records = session.bettors.backupRecords();
    // An empty list must not take the last full copy with it.
    if (!records.isEmpty() || old.isEmpty())
        replaceBettors(session, twin, old, records);
}

// Puts the names that are new in the session's list into the list that another computer wrote.
QString mergeNewNames(Session &session, const BettorTable &asRead, const QByteArray &foreign)
{
    BettorTable merged = BettorTable::parse(foreign, session.settings.bettorLimit);
    if (merged.records() == asRead.records())
        return {};
    QStringList moved;
    const BettorTable &own = session.bettors;
    for (int slot = 1; slot <= own.slotCount(); ++slot) {
        const Bettor &bettor = own.slot(slot);
        if (!bettor.isBettor() || asRead.slotOf(bettor.name) != 0
            || merged.slotOf(bettor.name) != 0)
            continue;
        if (!noPlaceReason(merged, session.settings.bettorLimit).isEmpty())
            merged.nextNumber = merged.highestNumber() + 1;
        if (!noPlaceReason(merged, session.settings.bettorLimit).isEmpty())
            throw FileError(ErrorNumber::SubscriptOutOfRange);
        const int number = addBettor(merged, bettor.name);
        if (number != bettor.number)
            moved.append(bettor.name + " is now number "_L1 + QString::number(number));
    }
    session.bettors = merged;
    return moved.isEmpty()
               ? QString()
               : QString("Other computers added bettors too: "_L1 + moved.join(", "_L1));
}

} // namespace

QString bettorNameFor(const QString &typed)
{
    return storableText(typed).toUpper();
}

QString noPlaceReason(const BettorTable &bettors, int bettorLimit)
{
    const int number = bettors.nextNumber;
    const QString numbered = "Bettor number "_L1 + QString::number(number);
    if (number > bettorLimit || number > bettors.slotCount())
        return numbered + " is beyond the bettor limit of "_L1 + QString::number(bettorLimit);
    const Bettor &slot = bettors.slot(number);
    const QString owner = slot.isBettor() ? slot.name : bettors.nameOf(number);
    return owner.isNull() ? QString()
                          : QString(numbered + " has no place: it is taken by "_L1 + owner);
}

int addBettor(BettorTable &bettors, const QString &name)
{
    const int number = bettors.nextNumber++;
    bettors.setSlot(number, {number, name});
    return number;
}

void markBettorDeleted(BettorTable &bettors, const QString &name)
{
    if (const int slot = bettors.slotOf(name))
        bettors.setSlot(slot, {999, {}});
}

float betTotal(const BetTable &bets, int number)
{
    float total = 0;
    for (const BetRow &row : bets.rows) {
        if (bets.isBetOf(row, number))
            total += row.bet.amount;
    }
    return total;
}

QString takeOutBets(Session &session, int number, float &refund)
{
    const QString note = LoadRaceBets(session);
    // A bet without a bettor does not outlive the rewrite.
    const auto isOut = [&](const BetRow &row) {
        return session.bets.isBetOf(row, number) || session.bets.isBetOf(row, 0);
    };
    removeBets(session, isOut, [&] {
        refund = betTotal(session.bets, number);
        return true;
    });
    return note;
}

bool betsAreOut(const Session &session, int number)
{
    try {
        const QString path = mainFile(session, RecordFile::Bets, session.settings.currentRace);
        return betTotal(parseBets(readRecordFile(path).toStdString()), number) == 0;
    } catch (const FileError &) {
        return false; // what cannot be read cannot be called taken out
    }
}

QString racesWithBets(const Session &session, int number, bool withCurrentRace)
{
    QStringList races;
    for (int race = 1; race <= raceCount; ++race) {
        if (race == session.settings.currentRace && !withCurrentRace)
            continue;
        const QString name = raceName(race).trimmed();
        try {
            const QByteArray bytes = oldRecords(mainFile(session, RecordFile::Bets, race));
            if (const float total = betTotal(parseBets(bytes.toStdString()), number); total != 0)
                races.append(name + u' ' + formatMoney(total, "$#,##0.00"));
        } catch (const FileError &error) {
            races.append(name + " ("_L1 + error.description() + u')');
        }
    }
    return races.join(u", "_s);
}

QString saveBettors(Session &session, const BettorTable &asRead)
{
    return labelled(session, u"Bettors output"_s, [&] {
        const EventLock lock(session);
        const QString main = mainFile(session, RecordFile::Bettors, 0);
        const QByteArray oldMain = oldRecords(main);
        QString note;
        if (session.settings.networkMode == 1)
            note = mergeNewNames(session, asRead, oldMain);
        replaceBettors(session, main, oldMain, session.bettors.records());
        labelled(session, u"Bettorsbackup output"_s, [&] { saveBackup(session); });
        return note;
    });
}

void clearBettorList(Session &session)
{
    labelled(session, u"Bettors output"_s, [&] { makeFolder(eventFolder(session)); });
    clearBettors(session, {});
}

QString bettorListNote(const BettorTable &bettors)
{
    QStringList notes;
    if (bettors.nameOf(anyBettorNumber).isNull()) {
        notes.append(u"AnyBettor is missing: Use Backup Files on the main menu restores the "
                     "bettor list"_s);
    }
    if (const qsizetype damaged = bettors.damagedLines().size(); damaged > 0) {
        notes.append("Damaged lines in the bettor file, kept as they are: "_L1
                     + QString::number(damaged));
    }
    return notes.join(u'\n');
}
