#include "setup/clearbets.h"

#include "common/fileerror.h"
#include "common/format.h"
#include "common/recordfile.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray fileOrNothing(const Session &session, RecordFile file)
{
    try {
        return readRecordFile(mainFile(session, file, session.settings.currentRace));
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return {};
}

} // namespace

RaceStakes straightStakes(Session &session)
{
    session.settings.operationLabel = u"Bets input"_s;
    const QByteArray bytes = fileOrNothing(session, RecordFile::Bets);
    session.settings.operationLabel = u"Bets Input"_s;
    const BetTable bets = parseBets(bytes.toStdString());
    RaceStakes stakes;
    stakes.byBettor = totalsByBettor(bets, [](const BetRow &) { return true; });
    stakes.damaged = bets.damagedRows();
    for (const BetRow &row : bets.rows)
        stakes.total += row.damaged ? 0 : row.bet.amount;
    return stakes;
}

RaceStakes multibetStakes(Session &session)
{
    session.settings.operationLabel = u"Multibets Input"_s;
    const QByteArray bytes = fileOrNothing(session, RecordFile::Multibets);
    std::string_view rest = view(bytes);
    std::string_view line;
    std::vector<RecordField> fields;
    RaceStakes stakes;
    while (nextRecordLine(rest, line)) {
        if (isBlankLine(line))
            continue;
        const bool whole = splitRecord(line, fields) && fields.size() == 6;
        const auto amount = whole ? fieldNumber(fields[4]) : std::nullopt;
        const auto bettor = whole ? fieldNumber(fields[5]) : std::nullopt;
        if (!amount || !bettor) {
            ++stakes.damaged;
            continue;
        }
        stakes.byBettor[float(*bettor)] += float(*amount);
        stakes.total += float(*amount);
    }
    return stakes;
}

Slip raceRefunds(const Session &session, const RaceStakes &stakes, const QString &closing)
{
    RefundList list;
    list.titles = {u"REFUND BETS "_s + session.settings.raceName()};
    list.spacer = u" "_s;
    list.heading = bettorRefundHeading();
    list.refunds = bettorRefunds(stakes.byBettor, session.bettors);
    list.closing = closing + formatMoney(stakes.total, "Currency");
    return refundSlip(list);
}

void keepTwins(Session &session, RecordFile file)
{
    session.settings.operationLabel =
        file == RecordFile::Multibets ? u"Multibets Saved"_s : u"Bets Saved"_s;
    keepTwinsInSaved(session, file, session.settings.currentRace);
}

void deleteTwins(Session &session, RecordFile file)
{
    QString &label = session.settings.operationLabel;
    const QString base = file == RecordFile::Multibets ? u"Multibets"_s : u"Bets"_s;
    const int race = session.settings.currentRace;
    label = base + u" Output"_s;
    deleteRecordFile(mainFile(session, file, race));
    label = base + u"backup Output"_s;
    deleteRecordFile(twinFile(session, file, race));
    if (file == RecordFile::Bets) {
        session.bets = BetTable();
        session.pools = PoolTable();
    }
}
