#include "betting/betlistings.h"

#include "betting/priorbets.h"
#include "common/format.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

struct BettorBets
{
    QString name;
    float number = 0;
    std::vector<Bet> bets; // in file order
    float sum = 0;         // dollars
};

// By name as the bettor list sorts them; equal names by number, so that each keeps its own bets.
std::vector<BettorBets> groupByBettor(const BetTable &bets, const BettorTable &bettors)
{
    std::map<float, BettorBets> byNumber;
    for (const BetRow &row : bets.rows) {
        if (row.damaged)
            continue;
        BettorBets &group = byNumber[row.bet.bettor];
        group.bets.push_back(row.bet);
        group.sum += row.bet.amount;
    }
    const BettorNames names(bettors);
    std::vector<std::pair<QString, BettorBets>> sorted;
    for (auto &[number, group] : byNumber) {
        group.number = number;
        group.name = names.nameOf(number);
        sorted.emplace_back(searchKey(group.name), std::move(group));
    }
    std::ranges::stable_sort(sorted, {}, [](const auto &entry) { return entry.first; });
    std::vector<BettorBets> groups;
    for (auto &entry : sorted)
        groups.push_back(std::move(entry.second));
    return groups;
}

QString money(float dollars)
{
    return formatMoney(dollars, "$#,##0.00");
}

QString grandTotal(const std::vector<BettorBets> &groups)
{
    double total = 0;
    for (const BettorBets &group : groups)
        total += double(group.sum);
    return formatMoney(total, "$#,##0.00");
}

} // namespace

BettorNames::BettorNames(const BettorTable &bettors)
{
    m_names.reserve(bettors.slotCount());
    for (int slot = 1; slot <= bettors.slotCount(); ++slot) {
        const Bettor &bettor = bettors.slot(slot);
        if (bettor.isBettor() && !m_names.contains(bettor.number))
            m_names.insert(bettor.number, bettor.name);
    }
}

QString BettorNames::nameOf(float number) const
{
    const bool whole = number == std::floor(number) && std::abs(number) < 1e6F;
    const auto name = whole ? m_names.constFind(int(number)) : m_names.cend();
    return name == m_names.cend() ? QString(plainNumber(number) + " Bad Bettor Number"_L1) : *name;
}

QStringList betsByBettor(const BetTable &bets, const HorseTable &horses, const BettorTable &bettors,
                         const QString &bannerAndRace)
{
    const std::vector<BettorBets> groups = groupByBettor(bets, bettors);
    QStringList lines{bannerAndRace, u"ALL BETS BY BETTOR"_s, u" "_s};
    for (const BettorBets &group : groups) {
        lines.append(group.name);
        for (const Bet &bet : group.bets)
            lines.append("  "_L1 + savedBetLine(horses, bet));
        lines.append("  TOTAL "_L1 + money(group.sum));
        lines.append(u" "_s);
    }
    lines.append("TOTAL BETS "_L1 + grandTotal(groups));
    return lines;
}

QStringList bettorTotals(const BetTable &bets, const BettorTable &bettors,
                         const QString &bannerAndRace)
{
    const std::vector<BettorBets> groups = groupByBettor(bets, bettors);
    QStringList lines{bannerAndRace, u"BETTOR TOTALS"_s, u" "_s};
    for (const BettorBets &group : groups)
        lines.append(leftColumn(group.name, 30) + rightColumn(money(group.sum), 12));
    lines.append(u" "_s);
    lines.append(leftColumn(u"TOTAL BETS"_s, 30) + rightColumn(grandTotal(groups), 12));
    return lines;
}
