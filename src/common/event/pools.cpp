#include "common/event/pools.h"

#include <cmath>

void PoolTable::add(const Bet &bet)
{
    const int post = int(bet.post);
    const int type = int(bet.type);
    for (const int row : {post, totalsRow}) {
        m_amounts[cell(row, type)] += bet.amount;
        m_amounts[cell(row, totalColumn)] += bet.amount;
    }
}

bool isCountable(const Bet &bet)
{
    return bet.post >= 1 && bet.post <= float(postCount) && bet.post == std::floor(bet.post)
           && (bet.type == 1 || bet.type == 2 || bet.type == 3);
}

PoolTable poolsOf(const BetTable &bets)
{
    PoolTable pools;
    for (const BetRow &row : bets.rows) {
        if (!row.damaged && isCountable(row.bet))
            pools.add(row.bet);
    }
    return pools;
}
