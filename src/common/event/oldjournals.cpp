#include "common/event/oldjournals.h"

#include "common/event/cashjournal.h"
#include "common/event/eventfiles.h"
#include "common/event/labelled.h"
#include "common/files/recordfile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

OldJournals::OldJournals(Session &session)
    : m_session(session)
    , m_paths(cashFiles(eventFolder(session)))
{
}

int OldJournals::keep()
{
    int kept = 0;
    labelled(m_session, u"Cash Saved"_s, [&] {
        for (const QString &path : m_paths)
            kept += keepInSaved(m_session, path).isEmpty() ? 0 : 1;
    });
    return kept;
}

void OldJournals::remove(const QString &label, const QString &done)
{
    for (const QString &path : m_paths) {
        try {
            labelled(m_session, label, [&] { deleteRecordFile(path); });
        } catch (FileError &error) {
            error.setRemark(done + u", but the old "_s + QFileInfo(path).fileName()
                            + u" is still there. Do it again to move it to Saved."_s);
            throw;
        }
    }
}
