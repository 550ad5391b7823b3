#pragma once

#include "common/event/bettypes.h"
#include "common/event/horses.h"
#include "common/event/session.h"

#include <QString>

#include <array>
#include <set>

// The posts that can be selected on each line, and where they run.
struct MultibetLegs
{
    std::array<std::set<int>, 3> posts; // 1-based; empty for a line the bet type does not use
    std::array<HorseTable, 3> horses;   // of each line's race
    std::array<int, 3> races{};         // each line's race; 0 where there is none
    std::array<QString, 3> labels;      // "Line 2", with the race where the line has its own
    QString note;                       // says which legs are missing or damaged, or is empty
};

// The lines of a bet type for the current race (label "Horses input"), or lines 1 and 2 while no
// type is chosen. Where each line is a race of its own, the posts of the current race stay on the
// further lines and those of the race that the line names are added.
MultibetLegs loadLegs(Session &session, const MultibetType *type);
