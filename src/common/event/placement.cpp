#include "common/event/placement.h"

#include "common/event/cashstakes.h"
#include "common/event/twinfiles.h"

#include <QStringList>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

// The rows of the bets, the last ones of several that are equal. As a rule they are the file's last
// rows; after a failure some may stand further up.
std::vector<std::size_t> lastRowsOf(const BetTable &table, const std::vector<Bet> &bets)
{
    std::vector<std::size_t> rows(bets.size());
    std::set<std::size_t> taken;
    for (std::size_t bet = bets.size(); bet-- > 0;) {
        std::size_t row = table.rows.size();
        while (row-- > 0 && (taken.contains(row) || table.rows[row].bet != bets[bet])) {
        }
        taken.insert(row);
        rows[bet] = row;
    }
    return rows;
}

} // namespace

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

void BetEntries::remove(int post, BetType type)
{
    m_amounts[cell(post, type)] = 0;
    m_entered[cell(post, type)] = false;
}

void BetEntries::removeUnused(const HorseTable &horses)
{
    for (const Horse &horse : horses) {
        for (const BetType type : allBetTypes) {
            if (isUnused(horse))
                remove(horse.post, type);
        }
    }
}

float BetEntries::rowTotal(int post) const
{
    float sum = 0;
    for (const BetType type : allBetTypes)
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
    for (const BetType type : allBetTypes) {
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

PlacementPlan planReturn(std::vector<Bet> bets)
{
    PlacementPlan plan;
    plan.bets = std::move(bets);
    plan.undoesDeletion = true;
    return plan;
}

Placement placeBets(Session &session, const PlacementPlan &plan)
{
    const int betLimit = session.settings.betLimit;
    Placement placement;
    placement.plan = plan;
    const auto newLines = [&](const QByteArray &bytes) {
        const std::size_t onFile = parseBets(bytes.toStdString()).rows.size();
        placement.raceIsFull =
            !plan.bets.empty() && onFile + plan.bets.size() > std::size_t(betLimit);
        placement.roomLeft = std::size_t(betLimit) - std::min(onFile, std::size_t(betLimit));
        QByteArray lines;
        for (const Bet &bet : plan.bets)
            lines += betLine(bet);
        return placement.raceIsFull ? QByteArray() : lines;
    };
    const QByteArray now =
        appendTwins(session, RecordFile::Bets, session.settings.currentRace, newLines,
                    u"Bets input"_s, u"Bets Append"_s, u"Betsbackup Append"_s);
    const BetTable bets = parseBets(now.toStdString());
    placement.pools = poolsOf(bets);
    if (placement.raceIsFull)
        return placement;
    placement.rows = lastRowsOf(bets, placement.plan.bets);
    const QString detail =
        plan.undoesDeletion ? QString(deletionUndone) : QString::number(plan.bets.size());
    recordCash(session, stakeLines(session, CashKind::Bets, session.settings.currentRace,
                                   stakesOf(plan.bets), detail));
    return placement;
}

QString entriesNote(const BetEntries &entries)
{
    std::set<EntryFate> fates;
    for (const BetType type : allBetTypes) {
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
