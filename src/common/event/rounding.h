#pragma once

// An amount owed in dollars, rounded to the event's rounding step: index 1 = 0.01 to 5 = 1.00.
// Index 1, like any index outside these, leaves the amount as it is. The others first bring it to
// four decimals; the quarter steps change at .13, .38, .63 and .88, not halfway.
double rounding(double amount, int index);

// The amount brought to four decimals, half away from zero.
double toFourDecimals(double amount);

// The sum of two amounts, brought to four decimals: added up this way, any number of amounts of
// four decimals stays exact.
double exactSum(double sum, double amount);
