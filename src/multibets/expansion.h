#pragma once

#include "common/event/multibetrecords.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <array>

// The pending table of a preview has this many rows.
inline constexpr int pendingLimit = 400;

// What the operator selected for one bettor.
struct MultibetEntry
{
    QString type;
    std::array<QList<int>, 3> posts; // 1-based posts selected on each line, ascending
    std::array<bool, 3> boxed{};     // the box indicator of each line
    double stake = 0;                // dollars a single bet
    int bettor = 0;
    bool operator==(const MultibetEntry &) const = default;
};

// The single bets that an entry expands to.
struct MultibetPreview
{
    QList<Multibet> pending; // what saving writes
    QStringList lines;       // the pending bets as the preview lists them: "T $2.00 4,7,1"
    double total = 0;        // dollars of the listed bets
    bool full = false;       // the last row was filled: it is pending, but not listed or counted
};

// True for exactly one checked box, which cannot be exchanged with another line.
bool hasSingleBox(const MultibetEntry &entry);

// Crosses the lines of the entry in every order that its boxes give, without repeats.
MultibetPreview expandEntry(const MultibetEntry &entry);
