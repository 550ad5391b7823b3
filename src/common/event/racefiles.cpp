#include "common/event/racefiles.h"

#include "common/event/filebatch.h"
#include "common/event/twinfiles.h"

using namespace Qt::StringLiterals;

namespace {

void readBets(Session &session)
{
    const QByteArray bytes =
        readMainFile(session, RecordFile::Bets, session.settings.currentRace, u"Bets input"_s);
    session.bets = parseBets(bytes.toStdString());
    session.pools = poolsOf(session.bets);
}

} // namespace

QString loadHorses(Session &session, const QString &label)
{
    const HorseFile file =
        parseHorses(readMainFile(session, RecordFile::Horses, session.settings.currentRace, label));
    session.horses = file.horses;
    return file.damage();
}

HorseFile readHorsesIfThere(Session &session, const QString &label)
{
    try {
        return parseHorses(
            readMainFile(session, RecordFile::Horses, session.settings.currentRace, label));
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
}

void saveHorses(Session &session)
{
    const auto card = [&](const QByteArray &) { return horseRecords(session.horses); };
    changeTwins(session, RecordFile::Horses, session.settings.currentRace, card, u"Horses input"_s,
                u"Horses output"_s, u"Horsesbackup output"_s);
}

void loadBettors(Session &session, const QString &label)
{
    const QByteArray bytes = readMainFile(session, RecordFile::Bettors, 0, label);
    session.bettors = BettorTable::parse(bytes, session.settings.bettorLimit);
}

int clearBettors(Session &session, const QString &labelEnd)
{
    const QString label = "Bettors output"_L1 + labelEnd;
    FileBatch batch(session, label);
    batch.replaceTwins(RecordFile::Bettors, 0, newBettorRecords(), label,
                       "Bettorsbackup output"_L1 + labelEnd);
    const int kept = batch.commit();
    session.bettors = BettorTable::parse(newBettorRecords(), session.settings.bettorLimit);
    return kept;
}

QString LoadRaceBets(Session &session)
{
    QString note;
    try {
        readBets(session);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        note = CreateMissingRaceBets(session);
        readBets(session);
    }
    createMissingBetsBackup(session);
    return note;
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

bool removeBets(Session &session, const std::function<bool(const BetRow &)> &dropped,
                const std::function<bool()> &confirmed, const QString &label,
                const QString &twinLabel)
{
    const auto withoutDropped = [&](const QByteArray &bytes) -> std::optional<QByteArray> {
        session.bets = parseBets(bytes.toStdString());
        if (confirmed && !confirmed())
            return {};
        return QByteArray::fromStdString(betFileWithout(session.bets, dropped));
    };
    bool removed = true;
    const auto twinFailed = errorOfTwin([&] {
        removed = changeTwins(session, RecordFile::Bets, session.settings.currentRace,
                              withoutDropped, u"Bets input"_s, label, twinLabel);
    });
    if (twinFailed)
        throw FileError(*twinFailed);
    LoadRaceBets(session);
    return removed;
}
