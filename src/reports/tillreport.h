#pragma once

#include "common/print/till.h"
#include "reports/reporttable.h"

// The till report: the tills of all computers side by side, and the races with what they owe and
// paid. "So far" at any time, "Close Till" at the end of the night.

// "so far at 21:14", or "DESK2 closed at 23:05" for those that are closed.
QString tillState(const std::vector<Till> &tills);

// The tables of the report: tills, races, and who is still to be paid.
QList<ReportTable> tillTables(const std::vector<Till> &tills, const std::vector<RaceTill> &races);

// Where journals and record files disagree, and what else should be known of them; nothing when all
// is well. Only so many lines are given.
QStringList tillRemarks(const CashJournal &journal, const std::vector<Till> &tills,
                        const std::vector<RaceTill> &races);

// What the operator types for this computer's till; empty where nothing is known.
struct TillEntries
{
    QString floated; // dollars
    QString counted;
};

// The entries that the journal holds for this computer.
TillEntries tillEntries(const CashJournal &journal, const QString &computer);

// Writes what was typed into the journal, where it is new, and with \a close that the till is
// closed with what is expected in it. Returns why that cannot be done, or an empty text.
QString enterTill(Session &session, const TillEntries &typed, bool close);

// "Expected $512.25, counted $512.00: $0.25 missing"; what the journals say of this computer's
// till.
QString tillText(const CashJournal &journal, const QString &computer);
