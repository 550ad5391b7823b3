#include "setup/clearevent.h"

#include "common/event/eventfiles.h"
#include "common/event/labelled.h"

using namespace Qt::StringLiterals;

namespace {

// Every race's copies come before the first rewrite: a disk that is full for the copies clears
// nothing.
int rewriteAllRaces(Session &session, RecordFile file, const QByteArray &records,
                    const QString &baseName)
{
    const QString label = baseName + " output-Setup"_L1;
    int kept = 0;
    labelled(session, label, [&] {
        for (int race = 1; race <= raceCount; ++race)
            kept += keepTwinsInSaved(session, file, race);
    });
    for (int race = 1; race <= raceCount; ++race)
        rewriteTwins(session, file, race, records, label, baseName + "backup output-Setup"_L1);
    return kept;
}

} // namespace

int clearAllBets(Session &session)
{
    makeEventFolder(session);
    const int kept = rewriteAllRaces(session, RecordFile::Bets, {}, u"Bets"_s);
    session.bets = BetTable();
    session.pools = PoolTable();
    session.settings.betsCleared = u"yes"_s;
    return kept;
}

int clearAllHorses(Session &session)
{
    const int kept =
        rewriteAllRaces(session, RecordFile::Horses, horseRecords(HorseTable()), u"Horses"_s);
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
