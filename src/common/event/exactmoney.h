#pragma once

#include <QByteArray>

// Money in ten-thousandths of a dollar, so that sums are exact however many there are.
using ExactMoney = qint64;

// Dollars brought to four decimals, half away from zero. A single-precision amount counts as the
// decimal number that its record shows.
ExactMoney exactMoney(double dollars);
ExactMoney exactMoney(float dollars);

// Rounded to cents, half away from zero: what is handed over where nothing else is said.
ExactMoney wholeCents(ExactMoney money);

double dollarsOf(ExactMoney money);

// Dollars as they stand in a record: at most four decimals, without trailing zeros.
QByteArray recordDollars(ExactMoney money);
