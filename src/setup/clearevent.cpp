#include "setup/clearevent.h"

#include "common/event/cashjournal.h"
#include "common/event/labelled.h"

#include <QFileInfo>

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

// A new event begins without a journal.
void deleteJournals(Session &session, const QStringList &journals)
{
    for (const QString &journal : journals) {
        try {
            labelled(session, u"Cash output-Setup"_s, [&] { deleteRecordFile(journal); });
        } catch (FileError &error) {
            error.setRemark(u"All bet files were cleared, but the old "_s
                            + QFileInfo(journal).fileName()
                            + u" is still there. Clear again to move it to Saved."_s);
            throw;
        }
    }
}

} // namespace

int clearAllBets(Session &session, const Progress &progress)
{
    makeEventFolder(session);
    const QStringList journals = cashFiles(eventFolder(session));
    int kept = 0;
    labelled(session, u"Cash Saved"_s, [&] {
        for (const QString &journal : journals)
            kept += keepInSaved(session, journal).isEmpty() ? 0 : 1;
    });
    kept += rewriteAllRaces(session, RecordFile::Bets, {}, progress);
    session.settings.betsCleared = true;
    deleteJournals(session, journals);
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
