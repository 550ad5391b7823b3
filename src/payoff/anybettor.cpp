#include "payoff/anybettor.h"

#include "payoff/rounding.h"

SlipPayoff slipPayoff(const SlipAmounts &amounts, const CombinationAmounts &perDollar)
{
    const auto paid = [&](Combination combination) {
        return amounts[std::size_t(combination)] * double(perDollar[combination]);
    };
    SlipPayoff payoff;
    payoff.rows[0] =
        paid(Combination::WinWin) + paid(Combination::WinPlace) + paid(Combination::WinShow);
    payoff.rows[1] = paid(Combination::PlacePlace) + paid(Combination::PlaceShow);
    payoff.rows[2] = paid(Combination::ShowShow);
    payoff.total = payoff.rows[0] + payoff.rows[1] + payoff.rows[2];
    return payoff;
}

void AnyBettorTotals::addSlip(int roundingIndex)
{
    bettor += slip;
    bettorRounded = rounding(bettor, roundingIndex);
    slip = 0;
}

void AnyBettorTotals::payBettor()
{
    grand += bettor;
    grandRounded += bettorRounded;
    slip = 0;
    bettor = 0;
    bettorRounded = 0;
}
