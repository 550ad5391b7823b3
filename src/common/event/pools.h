#pragma once

#include "common/event/betrecords.h"

#include <array>

inline constexpr int postCount = 21;  // post positions of a race
inline constexpr int totalsRow = 22;  // of the race pool table
inline constexpr int totalColumn = 4; // columns 1 to 3 are the bet types win, place and show

// The race pool table, in dollars: rows 1 to 21 are the posts and row 22 the totals; columns 1 win,
// 2 place, 3 show, 4 total. Single precision throughout.
class PoolTable
{
public:
    float amount(int row, int column) const { return m_amounts[cell(row, column)]; }
    float total(BetType type) const { return amount(totalsRow, int(type)); }

    // Adds a bet to its post's row and to the totals row, each in its type's column and in the
    // total column. The bet must satisfy isCountable.
    void add(const Bet &bet);

private:
    static std::size_t cell(int row, int column) { return std::size_t(row * 5 + column); }

    std::array<float, 23 * 5> m_amounts{};
};

// True for a bet whose post is a whole number from 1 to 21 and whose type is 1, 2 or 3.
bool isCountable(const Bet &bet);

// The totals of all countable bets of a race.
PoolTable poolsOf(const BetTable &bets);
