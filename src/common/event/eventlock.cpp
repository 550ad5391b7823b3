#include "common/event/eventlock.h"

#include "common/event/eventfiles.h"
#include "common/event/networkmode.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

EventLock::EventLock(Session &session)
    : EventLock(session, eventFolder(session))
{
}

EventLock::EventLock(Session &session, const QString &folder)
{
    FileAccess &files = session.files;
    const QString path = folder + "/Trelawn.lock"_L1;
    m_lock = files.held.lock();
    if (m_lock && m_lock->path() == path)
        return;
    m_lock = std::make_shared<FolderLock>(path, networkNameOf(QSysInfo::machineHostName()),
                                          files.times, files.notices);
    files.held = m_lock;
}
