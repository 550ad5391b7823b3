#include "setup/clearevent.h"

#include "common/event/oldjournals.h"

using namespace Qt::StringLiterals;

namespace {

// All races or none: nothing changes until every copy is kept and every new file is on the disk.
int rewriteAllRaces(Session &session, RecordFile file, const QByteArray &records,
                    const Progress &progress)
{
    const QString name = recordFileName(file);
    FileBatch batch(session, name + " output-Setup"_L1);
    for (int race = 1; race <= raceCount; ++race) {
        batch.replaceTwins(file, race, records, name + " output-Setup"_L1,
                           name + "backup output-Setup"_L1);
    }
    return batch.commit(progress);
}

} // namespace

int clearAllBets(Session &session, const Progress &progress)
{
    makeEventFolder(session);
    OldJournals journals(session);
    int kept = journals.keep();
    kept += rewriteAllRaces(session, RecordFile::Bets, {}, progress);
    session.settings.betsCleared = true;
    journals.remove(u"Cash output-Setup"_s, u"All bet files were cleared"_s);
    return kept;
}

int clearAllHorses(Session &session, const Progress &progress)
{
    return rewriteAllRaces(session, RecordFile::Horses, horseRecords(HorseTable()), progress);
}

QString clearRefusal(const Settings &settings)
{
    if (!settings.isNetworked())
        return {};
    return u"Nothing was cleared: network mode is on, and the files are those of every computer. "
           "End Networked Betting on the menu first."_s;
}
