#include "common/racefiles.h"

#include "common/eventfiles.h"
#include "common/fileerror.h"
#include "common/recordfile.h"

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

int loadHorses(Session &session, const QString &label)
{
    session.settings.operationLabel = label;
    const HorseFile file = parseHorses(readRecordFile(raceFile(session, RecordFile::Horses)));
    session.horses = file.horses;
    return file.damagedLines;
}

void saveHorses(Session &session)
{
    rewriteTwins(session, RecordFile::Horses, session.settings.currentRace,
                 horseRecords(session.horses), u"Horses output"_s, u"Horsesbackup output"_s);
}

void loadBettors(Session &session, const QString &label)
{
    session.settings.operationLabel = label;
    const QByteArray bytes = readRecordFile(mainFile(session, RecordFile::Bettors, 0));
    session.bettors = BettorTable::parse(bytes, session.settings.bettorLimit);
}

QString LoadRaceBets(Session &session)
{
    QString note;
    session.settings.operationLabel = u"Bets input"_s;
    try {
        readBets(session);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        note = CreateMissingRaceBets(session);
        readBets(session);
    }
    session.settings.operationLabel = u"Bets Append"_s;
    createRecordFile(raceFile(session, RecordFile::Bets));
    createMissingBetsBackup(session);
    return note;
}

void createMissingBetsBackup(Session &session)
{
    session.settings.operationLabel = u"Betsbackup Append"_s;
    const QString twin = twinFile(session, RecordFile::Bets, session.settings.currentRace);
    const QString main = raceFile(session, RecordFile::Bets);
    if (!QFileInfo::exists(twin) && QFileInfo(main).size() > 0)
        replaceRecordFile(twin, readRecordFile(main));
    else
        createRecordFile(twin);
}

void AppendBet(Session &session, std::span<const Bet> bets)
{
    std::string lines;
    for (const Bet &bet : bets)
        lines += betLine(bet);
    appendTwins(session, RecordFile::Bets, session.settings.currentRace,
                QByteArray::fromStdString(lines), u"Bets Append"_s, u"Betsbackup Append"_s);
}

void removeBets(Session &session, const std::function<bool(const BetRow &)> &dropped)
{
    const auto withoutDropped = [&](const QByteArray &bytes) {
        session.bets = parseBets(bytes.toStdString());
        return QByteArray::fromStdString(betFileWithout(session.bets, dropped));
    };
    changeTwins(session, RecordFile::Bets, session.settings.currentRace, withoutDropped,
                u"Bets input"_s, u"Bets Output"_s, u"Betsbackup Output"_s);
    LoadRaceBets(session);
}
