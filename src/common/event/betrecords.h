#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// The Bets record and the table of a race's bets. Standard library alone, like recordlines.h.

enum class BetType { Win = 1, Place = 2, Show = 3 };
inline constexpr BetType allBetTypes[] = {BetType::Win, BetType::Place, BetType::Show};

// One bet, as its record holds it: four single-precision numbers.
struct Bet
{
    float bettor = 0; // number in Bettors
    float post = 0;   // 1-based post position, the horse's row in Horses
    float type = 0;   // 1 win, 2 place, 3 show
    float amount = 0; // dollars

    bool operator==(const Bet &) const = default;
};

// One line of a Bets file. A damaged line keeps its place and its bytes but has no values.
struct BetRow
{
    Bet bet;
    std::size_t start = 0; // of the line within the file's bytes
    std::size_t length = 0;
    bool damaged = false;
};

// A race's bets in file order; bet number n of the file is rows[n - 1].
struct BetTable
{
    std::string bytes; // the file as it was read
    std::vector<BetRow> rows;

    std::string_view line(const BetRow &row) const
    {
        return std::string_view(bytes).substr(row.start, row.length);
    }
    bool isBetOf(const BetRow &row, int bettor) const
    {
        return !row.damaged && row.bet.bettor == float(bettor);
    }
    std::size_t damagedRows() const;
};

// Reads one record line; false when it does not hold four numbers.
bool parseBet(std::string_view line, Bet &bet);

// Reads a whole Bets file.
BetTable parseBets(std::string bytes);

// The record line of a bet, with its line end.
std::string betLine(const Bet &bet);

// The places of the rows for which \a wanted is true, from 0.
template<typename Wanted>
std::set<std::size_t> placesWhere(const BetTable &bets, const Wanted &wanted)
{
    std::set<std::size_t> places;
    for (std::size_t place = 0; place < bets.rows.size(); ++place) {
        if (wanted(bets.rows[place]))
            places.insert(place);
    }
    return places;
}
