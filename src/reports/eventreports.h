#pragma once

#include "common/event/session.h"
#include "reports/reporttable.h"

#include <optional>

enum class ReportKind { Horses, Bettors, Bets, Multibets, Cash };

struct ReportRequest
{
    ReportKind kind = ReportKind::Horses;
    int race = 0; // 1 to 12, 0 for all; the cash report is always of all
    bool byName = false;
    bool descending = false;
    std::optional<double> housePercent = {}; // of the cash report; unset, as each race was paid
};

// Reads the record files and makes the report. By name is by the horse's or the bettor's name; by
// number is by race and post, or by the bettor's number. Rows that compare equal keep the order of
// the files in both directions. Damaged records are in no row; a remark counts them. Throws
// FileError.
Report makeReport(Session &session, const ReportRequest &request);
