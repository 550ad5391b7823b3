#include "common/event/settledrace.h"

#include "common/event/slippayoff.h"

#include <algorithm>

Settlement settleAsWritten(const RaceRecords &race, int bettorCount, const RaceSettled &settled)
{
    RaceResult result;
    result.finishers = settled.payoffs.finishers;
    result.housePercent = settled.housePercent;
    result.is532 = settled.payoffs.is532;
    result.trackPayoffs = settled.payoffs.perDollar;
    result.bettorCount = bettorCount;
    for (int post = 1; post <= postCount; ++post)
        result.coupling[std::size_t(post)] = race.horses.couplingOf(post);
    return settle(race.bets, result);
}

int unpaidWinners(const RaceRecords &race, int bettorCount, const CashJournal &journal)
{
    const CashEntry *last = lastSettlement(journal, race.race);
    if (!last)
        return 0;
    const RaceSettled &settled = *last->settled;
    const QMap<int, PaidBefore> paid = paidInRace(journal, race.race);
    ExactMoney slips = 0; // what those of AnyBettor who were paid by slip were owed
    for (const CashEntry *slip : paymentsOf(journal, race.race, CashKind::Slip))
        slips += slip->owed;
    const auto isUnpaid = [&](const WinningBettor &winner) {
        const Payment payment =
            paymentFor(winner.stakes, settled.payoffs.perDollar, settled.roundingIndex);
        if (winner.number == anyBettorNumber && slips != 0)
            return wholeCents(exactMoney(payment.total) - slips) > 0;
        return paid.value(winner.number).dollars < payment.cash();
    };
    const auto winners = settleAsWritten(race, bettorCount, settled).winners;
    return int(std::ranges::count_if(winners, isUnpaid));
}
