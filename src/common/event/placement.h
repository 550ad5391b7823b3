#pragma once

#include "common/event/session.h"

#include <algorithm>
#include <array>
#include <vector>

inline constexpr float smallestPlacedBet = 1; // dollars; cells below are dropped
inline constexpr float largestPaidBet = 1000; // dollars; Pay Winners takes a larger bet for bad

// What will become of an entered amount.
enum class EntryFate { Placed, Dropped, StopsPlacing, PlacedButNotPaid };
EntryFate fateOf(float dollars);

// The amounts entered on a bet sheet, in dollars: 21 posts by win, place and show. Nothing is saved
// until they are placed.
class BetEntries
{
public:
    float amount(int post, BetType type) const { return m_amounts[cell(post, type)]; }
    bool isEntered(int post, BetType type) const { return m_entered[cell(post, type)]; }
    bool isEmpty() const;

    void add(int post, BetType type, float dollars);
    void clear() { *this = {}; }

    // Empties one cell.
    void remove(int post, BetType type);

    // Takes the entries off posts that no horse runs from.
    void removeUnused(const HorseTable &horses);

    float rowTotal(int post) const;
    float columnTotal(BetType type) const;
    float total() const;

private:
    static std::size_t cell(int post, BetType type)
    {
        return std::size_t((int(type) - 1) * postCount + post - 1);
    }

    std::array<float, 3 * postCount> m_amounts{};
    std::array<bool, 3 * postCount> m_entered{};
};

// What placing the entries comes to.
struct PlacementPlan
{
    std::vector<Bet> bets;        // the records, in the order they are written
    bool stopsAtNegative = false; // a negative cell ended the placement
    bool overBettorLimit = false; // the bettor's count of bets ended it
    bool undoesDeletion = false;  // these were on file before

    float total() const; // dollars
};

// The win cells from post 1 to 21, then place, then show. Cells below $1 are dropped without a
// word; a negative cell ends the placement, and so does \a betsOfBettor above \a betLimit.
PlacementPlan planPlacement(const BetEntries &entries, int bettor, int betsOfBettor, int betLimit);

// Bets that were deleted, to be placed once more.
PlacementPlan planReturn(std::vector<Bet> bets);

// A placement that reached the files, or was refused.
struct Placement
{
    PlacementPlan plan;
    std::vector<std::size_t> rows; // of the placed bets in the race's bet table
    PoolTable pools;               // of the race, with the placed bets
    bool raceIsFull = false;       // nothing was written: the race's bet limit leaves no room
    std::size_t roomLeft = 0;      // bets that the race had room for before
};

// Appends the planned bets to Bets and Betsbackup, and the sheet to the cash journal. Throws
// FileError; then no bet was placed, unless the error's aftermath is Unsure: bets may be on file,
// and placing the same plan again places those alone that are not.
Placement placeBets(Session &session, const PlacementPlan &plan);

// What the cashier should know about the entries before placing them; empty when they are plain.
QString entriesNote(const BetEntries &entries);
