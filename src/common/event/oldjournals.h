#pragma once

#include "common/event/session.h"

// The cash journals of an event whose bets are put away: a new event begins without any.
class OldJournals
{
public:
    // Those that are there now.
    explicit OldJournals(Session &session);

    // Copies them to Saved, before anything changes (label "Cash Saved"). Returns how many there
    // are copies of. Throws FileError.
    int keep();

    // Deletes them once the bets are away. Throws FileError with this label, whose remark says what
    // is done, such as "All bet files were cleared", and what is not.
    void remove(const QString &label, const QString &done);

private:
    Session &m_session;
    const QStringList m_paths;
};
