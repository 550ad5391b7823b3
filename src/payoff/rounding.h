#pragma once

// An amount owed in dollars, rounded to the event's rounding step: index 1 = 0.01 (unchanged) to
// 5 = 1.00. The amount is first brought to four decimals. The quarter steps change at .13, .38, .63
// and .88, not halfway. Any other index leaves the amount unchanged.
double rounding(double amount, int index);

// The amount brought to four decimals, half away from zero.
double toFourDecimals(double amount);
