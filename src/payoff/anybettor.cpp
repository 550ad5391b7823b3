#include "payoff/anybettor.h"

#include "payoff/rounding.h"

void AnyBettorTotals::addSlip(int roundingIndex)
{
    bettor = exactSum(bettor, slip);
    bettorRounded = rounding(bettor, roundingIndex);
    slip = 0;
}

void AnyBettorTotals::payBettor()
{
    grand = exactSum(grand, bettor);
    grandRounded = exactSum(grandRounded, bettorRounded);
    slip = 0;
    bettor = 0;
    bettorRounded = 0;
}
