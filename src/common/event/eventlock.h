#pragma once

#include "common/event/session.h"

// The lock of an event's files, held by whoever writes them, in a local directory as in a shared
// one: two programs on one event lose nothing. A lock inside another of the same program is the
// same one. Taking it throws FileError: 70 when another program kept it for too long or the
// operator did not want to wait; nothing was changed then.
class EventLock
{
public:
    // The lock of the event directory, or of another folder of this computer.
    explicit EventLock(Session &session);
    EventLock(Session &session, const QString &folder);

    // Throws FileError 70 when the lock was lost, because this computer slept. To be called before
    // each step that changes files.
    void demandHeld() const { m_lock->demandHeld(); }

private:
    std::shared_ptr<FolderLock> m_lock;
};
