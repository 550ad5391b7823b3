#pragma once

#include "common/event/session.h"
#include "common/files/fileerror.h"

// Runs the file or printer work that \a label names, such as "Bets input", and returns its result.
// The label is the operation in progress from here on. A FileError that leaves the work carries it,
// whatever is read in between by somebody else; an operation inside that has its own label wins.
template<typename Work>
auto labelled(Session &session, const QString &label, Work &&work)
{
    session.settings.operationLabel = label;
    if (session.files.working)
        session.files.working();
    try {
        return work();
    } catch (FileError &error) {
        error.takeLabel(label);
        throw;
    }
}
