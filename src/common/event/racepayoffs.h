#pragma once

#include <array>

// The payoffs of the race being paid. Standard library alone, like pools.h.

// The winning combinations: the kind of bet comes last.
enum class Combination { WinWin, WinPlace, WinShow, PlacePlace, PlaceShow, ShowShow };
inline constexpr int combinationCount = 6;
inline constexpr Combination allCombinations[] = {Combination::WinWin,    Combination::WinPlace,
                                                  Combination::WinShow,   Combination::PlacePlace,
                                                  Combination::PlaceShow, Combination::ShowShow};

// One amount for each winning combination: stakes in dollars, or payoffs per $1 with the stake
// included.
class CombinationAmounts
{
public:
    float &operator[](Combination combination) { return m_amounts[std::size_t(combination)]; }
    float operator[](Combination combination) const { return m_amounts[std::size_t(combination)]; }

    auto begin() { return m_amounts.begin(); }
    auto end() { return m_amounts.end(); }
    auto begin() const { return m_amounts.begin(); }
    auto end() const { return m_amounts.end(); }

    bool operator==(const CombinationAmounts &) const = default;

private:
    std::array<float, combinationCount> m_amounts{};
};

// The finishing horses, in this order wherever there are three of something.
enum class Finish { Win, Place, Show };
inline constexpr int finishCount = 3;
inline constexpr Finish allFinishes[] = {Finish::Win, Finish::Place, Finish::Show};

// What the pay-winners screen last calculated; all zero while nothing is calculated.
struct RacePayoffs
{
    int race = 0;                             // 1 to 12; 0 while nothing is calculated
    std::array<int, finishCount> finishers{}; // 1-based posts of the win, place and show horse
    CombinationAmounts perDollar;             // what is paid for $1
    CombinationAmounts beforeHouse;           // the same before the house percentage was taken
    bool is532 = false;                       // the win pool was split 50/30/20
    bool usesTrack = false;                   // the payoffs are the track's

    bool isCalculated() const { return race != 0; }
};
