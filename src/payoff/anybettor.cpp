#include "payoff/anybettor.h"

#include "payoff/rounding.h"

SlipPayoff slipPayoff(const SlipAmounts &amounts, const TicketAmounts &perDollar)
{
    const auto paid = [&](Ticket ticket) {
        return amounts[std::size_t(ticket)] * double(perDollar[ticket]);
    };
    SlipPayoff payoff;
    payoff.rows[0] = paid(Ticket::WinWin) + paid(Ticket::WinPlace) + paid(Ticket::WinShow);
    payoff.rows[1] = paid(Ticket::PlacePlace) + paid(Ticket::PlaceShow);
    payoff.rows[2] = paid(Ticket::ShowShow);
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
