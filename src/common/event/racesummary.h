#pragma once

#include "common/event/eventrecords.h"

#include <QList>
#include <QString>

// The pools of a race as a table: a row a horse, and what they add up to.

struct SummaryRow
{
    int post = 0;   // 1 to 21; 0 in the totals row
    QString number; // of the horse
    QString name;   // "(no horse)" for money on a post without one
    int entry = 0;  // pool number shared with another horse of the race; 0 runs alone
    std::array<float, 4> amounts{}; // dollars: win, place, show, total
    QString odds;

    // The name with the mark of a coupled entry: "SEABISCUIT (entry 1)".
    QString markedName() const;
};

struct RaceSummary
{
    QList<SummaryRow> rows; // in post order
    SummaryRow totals;
    int badRecords = 0; // that Pay Winners will not accept; their money is in no row

    // What the operator should know, or an empty text.
    QString note() const;
};

// The bets of the race as Pay Winners will count them.
RaceSummary summarizeRace(const RaceRecords &race, const BettorTable &bettors);
