#include "common/event/rounding.h"

#include <cmath>

namespace {

// Amounts are counted in units of 0.0001 dollars, which a double holds exactly.
constexpr double unitsPerDollar = 10000;

double units(double amount)
{
    const double counted = amount * unitsPerDollar;
    return std::isfinite(counted) ? std::round(counted) : 0;
}

} // namespace

double toFourDecimals(double amount)
{
    return units(amount) / unitsPerDollar;
}

double exactSum(double sum, double amount)
{
    return toFourDecimals(sum + amount);
}

double rounding(double amount, int index)
{
    const double whole = units(amount);
    const double dollars = std::floor(whole / unitsPerDollar);
    const double fraction = whole - dollars * unitsPerDollar;
    switch (index) {
    case 2:
        return std::floor((whole + 500) / 1000) / 10;
    case 3:
        if (fraction < 1300)
            return dollars;
        if (fraction < 3800)
            return dollars + 0.25;
        if (fraction < 6300)
            return dollars + 0.5;
        return dollars + (fraction < 8800 ? 0.75 : 1);
    case 4:
        if (fraction < 2500)
            return dollars;
        return dollars + (fraction < 7500 ? 0.5 : 1);
    case 5:
        return std::floor((whole + 5000) / unitsPerDollar);
    default:
        return amount;
    }
}
