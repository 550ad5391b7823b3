#pragma once

#include "common/event/eventfiles.h"

#include <array>

// Putting a backup twin back over its damaged record file. File work throws FileError and sets the
// operation label.

// One of the files that can be restored, with what the operator is asked and told.
struct RestoreChoice
{
    RecordFile file;
    QString question;
    QString confirmation;
};

// The four choices, in the order in which they are offered.
std::array<RestoreChoice, 4> restoreChoices();

// Copies the twin over the record file of the current race (Bettors has no race), after the file
// went to Saved. Returns a note of how many records the file held before and holds now.
QString restoreFromTwin(Session &session, RecordFile file);
