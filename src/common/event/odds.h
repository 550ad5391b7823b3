#pragma once

#include "common/event/pools.h"

#include <array>
#include <string>

// Win odds as the tote board shows them. Standard library alone, like pools.h.

// The customary fraction not above (winPool - entryMoney) / entryMoney, from "1/9" to "99/1";
// anything lower is "1/9", anything higher "99/1". Empty when there is no money on the entry.
std::string oddsFraction(float winPool, float entryMoney);

// The odds of the posts 1 to 21, post p at [p - 1]. Posts with the same non-zero coupling number
// are one entry and show the same odds; couplings are at [p - 1] too.
std::array<std::string, postCount> winOdds(const PoolTable &pools,
                                           const std::array<int, postCount> &couplings);
