#include "setup/clearevent.h"

#include "common/event/filebatch.h"

using namespace Qt::StringLiterals;

namespace {

// All races or none: nothing changes until every copy is kept and every new file is on the disk.
int rewriteAllRaces(Session &session, RecordFile file, const QByteArray &records)
{
    const QString name = recordFileName(file);
    FileBatch batch(session, name + " output-Setup"_L1);
    for (int race = 1; race <= raceCount; ++race) {
        batch.replaceTwins(file, race, records, name + " output-Setup"_L1,
                           name + "backup output-Setup"_L1);
    }
    return batch.commit();
}

} // namespace

int clearAllBets(Session &session)
{
    makeEventFolder(session);
    const int kept = rewriteAllRaces(session, RecordFile::Bets, {});
    session.bets = BetTable();
    session.pools = PoolTable();
    session.settings.betsCleared = u"yes"_s;
    return kept;
}

int clearAllHorses(Session &session)
{
    const int kept = rewriteAllRaces(session, RecordFile::Horses, horseRecords(HorseTable()));
    session.horses = HorseTable();
    return kept;
}

bool betsWereCleared(const Settings &settings)
{
    return settings.betsCleared == "yes"_L1;
}

QString clearRefusal(const Settings &settings)
{
    if (settings.networkMode == 0)
        return {};
    return u"Nothing was cleared: network mode is on, and the files are those of every computer. "
           "End Networked Betting on the menu first."_s;
}
