#include "betting/placement.h"

#include "common/event/racefiles.h"

#include <QStringList>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {
constexpr BetType betTypes[] = {BetType::Win, BetType::Place, BetType::Show};
}

EntryFate fateOf(float dollars)
{
    if (dollars < 0)
        return EntryFate::StopsPlacing;
    if (dollars < smallestPlacedBet)
        return EntryFate::Dropped;
    return dollars > largestPaidBet ? EntryFate::PlacedButNotPaid : EntryFate::Placed;
}

bool BetEntries::isEmpty() const
{
    return std::ranges::none_of(m_entered, [](bool entered) { return entered; });
}

void BetEntries::add(int post, BetType type, float dollars)
{
    m_amounts[cell(post, type)] += dollars;
    m_entered[cell(post, type)] = true;
}

void BetEntries::removeUnused(const HorseTable &horses)
{
    for (const Horse &horse : horses) {
        for (const BetType type : betTypes) {
            if (isUnused(horse)) {
                m_amounts[cell(horse.post, type)] = 0;
                m_entered[cell(horse.post, type)] = false;
            }
        }
    }
}

float BetEntries::rowTotal(int post) const
{
    float sum = 0;
    for (const BetType type : betTypes)
        sum += amount(post, type);
    return sum;
}

float BetEntries::columnTotal(BetType type) const
{
    float sum = 0;
    for (int post = 1; post <= postCount; ++post)
        sum += amount(post, type);
    return sum;
}

float BetEntries::total() const
{
    float sum = 0;
    for (const float amount : m_amounts)
        sum += amount;
    return sum;
}

float PlacementPlan::total() const
{
    float sum = 0;
    for (const Bet &bet : bets)
        sum += bet.amount;
    return sum;
}

PlacementPlan planPlacement(const BetEntries &entries, int bettor, int betsOfBettor, int betLimit)
{
    PlacementPlan plan;
    for (const BetType type : betTypes) {
        for (int post = 1; post <= postCount; ++post) {
            if (type == BetType::Win && betsOfBettor > betLimit) {
                plan.overBettorLimit = true;
                return plan;
            }
            const float amount = entries.amount(post, type);
            const EntryFate fate = fateOf(amount);
            if (fate == EntryFate::StopsPlacing) {
                plan.stopsAtNegative = true;
                return plan;
            }
            if (fate != EntryFate::Dropped)
                plan.bets.push_back({float(bettor), float(post), float(type), amount});
        }
    }
    return plan;
}

Placement placeBets(Session &session, const BetEntries &entries, int bettor)
{
    // No operation ever raises a bettor's own count of bets, so that limit stays a safeguard.
    constexpr int betsOfBettor = 0;
    Placement placement;
    placement.note = LoadRaceBets(session);
    const int betLimit = session.settings.betLimit;
    placement.plan = planPlacement(entries, bettor, betsOfBettor, betLimit);
    placement.firstRow = session.bets.rows.size();
    const std::size_t placed = placement.plan.bets.size();
    placement.raceIsFull = placed > 0 && placement.firstRow + placed > std::size_t(betLimit);
    if (!placement.raceIsFull)
        AppendBet(session, placement.plan.bets);
    return placement;
}

QString entriesNote(const BetEntries &entries)
{
    std::set<EntryFate> fates;
    for (const BetType type : betTypes) {
        for (int post = 1; post <= postCount; ++post) {
            if (const float amount = entries.amount(post, type); amount != 0)
                fates.insert(fateOf(amount));
        }
    }
    QStringList notes;
    if (fates.contains(EntryFate::StopsPlacing))
        notes << u"A negative amount stops the placing."_s;
    if (fates.contains(EntryFate::Dropped))
        notes << u"Amounts below $1.00 are not placed."_s;
    if (fates.contains(EntryFate::PlacedButNotPaid))
        notes << u"Pay Winners will not accept a bet above $1,000.00."_s;
    return notes.join(u' ');
}
