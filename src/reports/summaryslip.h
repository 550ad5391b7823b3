#pragma once

#include "common/event/racesummary.h"
#include "common/print/slip.h"

// The summary of a race as cells of a grid and as a print job.

// The headings of the table's columns: number, name, Win, Place, Show, Total, Odds.
QStringList summaryHeadings();

// The cells of a row, as the columns show them.
QStringList summaryCells(const SummaryRow &row);

// The table as a print job.
Slip summarySlip(const RaceSummary &summary, const QString &bannerAndRace);
