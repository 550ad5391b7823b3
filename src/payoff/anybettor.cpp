#include "payoff/anybettor.h"

#include "common/event/cashjournal.h"
#include "common/event/rounding.h"

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

void paySlips(Session &session, AnyBettorTotals &totals)
{
    const int race =
        session.payoffs.isCalculated() ? session.payoffs.race : session.settings.currentRace;
    CashEntry line{CashKind::Slip, race, anyBettorNumber, anyBettorName(),
                   wholeCents(exactMoney(totals.bettorRounded))};
    line.owed = exactMoney(totals.bettor);
    if (line.owed != 0)
        recordCash(session, {line});
    totals.payBettor();
}
