#include "common/event/racefiles.h"

#include "common/event/cashstakes.h"
#include "common/event/filebatch.h"
#include "common/event/twinfiles.h"

using namespace Qt::StringLiterals;

namespace {

// Missing Bets are created empty, and \a note tells what that moved to Saved.
QByteArray readOrCreateBets(Session &session, QString &note)
{
    const int race = session.settings.currentRace;
    if (const auto bytes = readMainFileIfThere(session, RecordFile::Bets, race, u"Bets input"_s))
        return *bytes;
    note = CreateMissingRaceBets(session);
    return readMainFile(session, RecordFile::Bets, race, u"Bets input"_s);
}

} // namespace

void saveHorses(Session &session, const HorseTable &horses)
{
    const auto card = [&](const QByteArray &) { return horseRecords(horses); };
    changeTwins(session, RecordFile::Horses, session.settings.currentRace, card, u"Horses input"_s,
                u"Horses output"_s, u"Horsesbackup output"_s);
}

int clearBettors(Session &session, const QString &labelEnd)
{
    const QString label = "Bettors output"_L1 + labelEnd;
    FileBatch batch(session, label);
    batch.replaceTwins(RecordFile::Bettors, 0, newBettorRecords(), label,
                       "Bettorsbackup output"_L1 + labelEnd);
    return batch.commit();
}

RaceBets LoadRaceBets(Session &session)
{
    RaceBets race;
    race.bets = parseBets(readOrCreateBets(session, race.note).toStdString());
    race.pools = poolsOf(race.bets);
    createMissingBetsBackup(session);
    return race;
}

QString CreateMissingRaceBets(Session &session)
{
    return createMissingTwins(session, RecordFile::Bets, session.settings.currentRace,
                              u"Bets input"_s, u"Bets input"_s);
}

void createMissingBetsBackup(Session &session)
{
    createMissingTwin(session, RecordFile::Bets, session.settings.currentRace,
                      u"Betsbackup Append"_s);
}

void AppendBet(Session &session, std::span<const Bet> bets)
{
    QByteArray lines;
    for (const Bet &bet : bets)
        lines += betLine(bet);
    appendTwins(
        session, RecordFile::Bets, session.settings.currentRace,
        [&](const QByteArray &) { return lines; }, u"Bets input"_s, u"Bets Append"_s,
        u"Betsbackup Append"_s);
}

bool removeBets(Session &session, const BetChoice &choose, const QString &reason,
                const QString &label, const QString &twinLabel)
{
    const int race = session.settings.currentRace;
    StakesByBettor refunded;
    const auto withoutChosen = [&](const QByteArray &bytes) -> std::optional<QByteArray> {
        const BetTable bets = parseBets(bytes.toStdString());
        const auto chosen = choose(bets);
        if (!chosen)
            return {};
        refunded = stakesOf(bets, *chosen);
        return QByteArray::fromStdString(recordsWithout(bets.bytes, *chosen));
    };
    return changeWithCash(
        session,
        [&] {
            return changeTwins(session, RecordFile::Bets, race, withoutChosen, u"Bets input"_s,
                               label, twinLabel);
        },
        [&] { return stakeLines(session, CashKind::Refund, race, refunded, reason); });
}
