#include "common/event/racefiles.h"

#include "common/event/eventfiles.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString raceFile(const Session &session, RecordFile file)
{
    return mainFile(session, file, session.settings.currentRace);
}

void readBets(Session &session)
{
    session.bets = parseBets(readRecordFile(raceFile(session, RecordFile::Bets)).toStdString());
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
    rewriteTwins(session, RecordFile::Horses, session.settings.currentRace,
                 horseRecords(session.horses), u"Horses output"_s, u"Horsesbackup output"_s);
}

void loadBettors(Session &session, const QString &label)
{
    const QByteArray bytes = readMainFile(session, RecordFile::Bettors, 0, label);
    session.bettors = BettorTable::parse(bytes, session.settings.bettorLimit);
}

int clearBettors(Session &session, const QString &labelEnd)
{
    const QString label = "Bettors output"_L1 + labelEnd;
    const int kept =
        labelled(session, label, [&] { return keepTwinsInSaved(session, RecordFile::Bettors, 0); });
    rewriteTwins(session, RecordFile::Bettors, 0, newBettorRecords(), label,
                 "Bettorsbackup output"_L1 + labelEnd);
    session.bettors = BettorTable::parse(newBettorRecords(), session.settings.bettorLimit);
    return kept;
}

QString LoadRaceBets(Session &session)
{
    QString note = labelled(session, u"Bets input"_s, [&] {
        try {
            readBets(session);
        } catch (const FileError &error) {
            if (error.number() != ErrorNumber::FileNotFound)
                throw;
            const QString moved = CreateMissingRaceBets(session);
            readBets(session);
            return moved;
        }
        return QString();
    });
    labelled(session, u"Bets Append"_s,
             [&] { createRecordFile(raceFile(session, RecordFile::Bets)); });
    createMissingBetsBackup(session);
    return note;
}

void createMissingBetsBackup(Session &session)
{
    labelled(session, u"Betsbackup Append"_s, [&] {
        const QString twin = twinFile(session, RecordFile::Bets, session.settings.currentRace);
        const QString main = raceFile(session, RecordFile::Bets);
        if (!QFileInfo::exists(twin) && QFileInfo(main).size() > 0)
            replaceRecordFile(twin, readRecordFile(main));
        else
            createRecordFile(twin);
    });
}

void AppendBet(Session &session, std::span<const Bet> bets)
{
    std::string lines;
    for (const Bet &bet : bets)
        lines += betLine(bet);
    appendTwins(session, RecordFile::Bets, session.settings.currentRace,
                QByteArray::fromStdString(lines), u"Bets Append"_s, u"Betsbackup Append"_s);
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
    const bool removed = changeTwins(session, RecordFile::Bets, session.settings.currentRace,
                                     withoutDropped, u"Bets input"_s, label, twinLabel);
    LoadRaceBets(session);
    return removed;
}
