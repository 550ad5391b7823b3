#include "betting/bettorlist.h"

#include "common/event/cashjournal.h"
#include "common/event/labelled.h"
#include "common/event/racefiles.h"
#include "common/event/twinfiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

// Puts what changed in the list since it was read into the list that another program wrote
// meanwhile: names that are new get the next free numbers, deleted ones go.
QString mergeChanges(BettorTable &own, const BettorTable &asRead, const QByteArray &foreign,
                     int bettorLimit)
{
    BettorTable merged = BettorTable::parse(foreign, bettorLimit);
    if (foreign.isEmpty() || merged.records() == asRead.records())
        return {};
    for (int slot = 1; slot <= asRead.slotCount(); ++slot) {
        const Bettor &bettor = asRead.slot(slot);
        if (bettor.isBettor() && own.nameOf(bettor.number).isNull()
            && merged.nameOf(bettor.number) == bettor.name)
            markBettorDeleted(merged, bettor.name);
    }
    QStringList moved;
    for (int slot = 1; slot <= own.slotCount(); ++slot) {
        const Bettor &bettor = own.slot(slot);
        if (!bettor.isBettor() || asRead.slotOf(bettor.name) != 0
            || merged.slotOf(bettor.name) != 0)
            continue;
        if (!noPlaceReason(merged, bettorLimit).isEmpty())
            merged.nextNumber = merged.highestNumber() + 1;
        if (!noPlaceReason(merged, bettorLimit).isEmpty())
            throw FileError(ErrorNumber::SubscriptOutOfRange);
        const int number = addBettor(merged, bettor.name);
        if (number != bettor.number)
            moved.append(bettor.name + " is now number "_L1 + QString::number(number));
    }
    own = merged;
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
    const QString note = LoadRaceBets(session).note;
    const auto choose = [&](const BetTable &bets) {
        refund = betTotal(bets, number);
        // A bet without a bettor does not outlive the rewrite.
        return placesWhere(bets, [&](const BetRow &row) {
            return bets.isBetOf(row, number) || bets.isBetOf(row, 0);
        });
    };
    removeBets(session, choose, refundBettor);
    return note;
}

QString racesWithBets(const Session &session, int number, bool withCurrentRace)
{
    QStringList races;
    for (int race = 1; race <= raceCount; ++race) {
        if (race == session.settings.currentRace && !withCurrentRace)
            continue;
        const QString name = raceName(race).trimmed();
        try {
            const QByteArray bytes =
                readIfThere(mainFile(session, RecordFile::Bets, race)).value_or(QByteArray());
            if (const float total = betTotal(parseBets(bytes.toStdString()), number); total != 0)
                races.append(name + u' ' + formatMoney(total));
        } catch (const FileError &error) {
            races.append(name + " ("_L1 + error.description() + u')');
        }
    }
    return races.join(u", "_s);
}

QString saveBettors(Session &session, const BettorTable &asRead)
{
    QString note;
    BettorTable saved = session.bettors;
    const auto merged = [&](const QByteArray &found) {
        saved = session.bettors;
        note = mergeChanges(saved, asRead, found, session.settings.bettorLimit);
        TwinRecords records(saved.records(), saved.backupRecords());
        // An empty list must not take the last full copy with it.
        if (records.twin->isEmpty())
            records.twin.reset();
        return records;
    };
    changeTwins(session, RecordFile::Bettors, 0, merged, u"Bettors output"_s, u"Bettors output"_s,
                u"Bettorsbackup output"_s);
    session.bettors = saved;
    return note;
}

void clearBettorList(Session &session)
{
    labelled(session, u"Bettors output"_s, [&] { makeFolder(eventFolder(session)); });
    clearBettors(session, {});
    session.bettors = BettorTable::parse(newBettorRecords(), session.settings.bettorLimit);
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
