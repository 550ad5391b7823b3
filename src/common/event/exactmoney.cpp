#include "common/event/exactmoney.h"

#include "common/files/recordlines.h"

#include <cmath>
#include <string>

namespace {

constexpr int decimals = 4;
constexpr double unitsOfMoney = 10000;

} // namespace

ExactMoney exactMoney(double dollars)
{
    constexpr double most = 9e18; // units; what is beyond is no amount
    const double counted = dollars * unitsOfMoney;
    return std::abs(counted) < most ? std::llround(counted) : 0;
}

ExactMoney exactMoney(float dollars)
{
    // Up to here a single's error stays below half a unit; beyond, its seven digits count.
    constexpr float surelyExact = 512;
    if (std::abs(dollars) < surelyExact)
        return exactMoney(double(dollars));
    return exactMoney(std::stod(recordNumber(dollars)));
}

ExactMoney wholeCents(ExactMoney money)
{
    constexpr ExactMoney cent = 100;
    const ExactMoney half = money < 0 ? -cent / 2 : cent / 2;
    return (money + half) / cent * cent;
}

double dollarsOf(ExactMoney money)
{
    return double(money) / unitsOfMoney;
}

QByteArray recordDollars(ExactMoney money)
{
    QByteArray text = QByteArray::number(dollarsOf(money), 'f', decimals);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text;
}
