#pragma once

#include <QString>

#include <cstddef>

// Money and column formats of screens and slips. Exact half cents round away from zero on the
// value's decimal text: 7 digits of a single-precision value, 15 of a double.

// \a pattern is "$#,##0.00" ($1,234.50), "$#,#00.00" ($05.00), "$###0.00" ($1234.50), "$##.00"
// ($.50) or "Currency" ($1,234.50, and ($1,234.50) below zero).
QString formatMoney(float value, const char *pattern = "$#,##0.00");
QString formatMoney(double value, const char *pattern = "$#,##0.00");

// "1 bet", "63 bets".
QString counted(std::size_t number, const QString &noun);

// "!@@@": the text on the left of a column of \a width characters; longer text is not cut.
QString leftColumn(const QString &text, int width);

// "@@@": the text on the right of the column; longer text is not cut.
QString rightColumn(const QString &text, int width);

// The number at the start of a text, as a field typed by the operator is read: "12 %" is 12, text
// without a number is 0.
double numericValue(const QString &text);

// True when the whole text is a number, with an optional dollar sign, thousands separators and
// blanks round it.
bool isNumeric(const QString &text);

// The value of a text that isNumeric.
double numericAmount(const QString &text);

// The number as it stands in a record or a bare cell: 12, 0.25.
QString plainNumber(float value);
