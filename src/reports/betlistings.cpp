#include "reports/betlistings.h"

#include "common/event/bettypes.h"
#include "common/print/format.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

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
    sorted.reserve(byNumber.size());
    for (auto &[number, group] : byNumber) {
        group.number = number;
        group.name = names.listed(number);
        sorted.emplace_back(searchKey(group.name), std::move(group));
    }
    std::ranges::stable_sort(sorted, {}, [](const auto &entry) { return entry.first; });
    std::vector<BettorBets> groups;
    groups.reserve(sorted.size());
    for (auto &entry : sorted)
        groups.push_back(std::move(entry.second));
    return groups;
}

constexpr qsizetype narrowestName = 15;
constexpr int amountWidth = 12;

QString grandTotal(const std::vector<BettorBets> &groups)
{
    double total = 0;
    for (const BettorBets &group : groups)
        total += double(group.sum);
    return formatMoney(total);
}

} // namespace

QString listedBetType(float type)
{
    const QString word = betTypeWord(type);
    return word.isNull() ? plainNumber(type) : word;
}

Horse horseOfBet(const HorseTable &horses, const Bet &bet)
{
    const bool onCard =
        bet.post >= 1 && bet.post <= float(postCount) && bet.post == std::floor(bet.post);
    if (onCard && !isUnused(horses.post(int(bet.post))))
        return horses.post(int(bet.post));
    return {0, 0, plainNumber(bet.post), u"(no horse)"_s};
}

QStringList betsByBettor(const BetTable &bets, const HorseTable &horses, const BettorTable &bettors,
                         const QString &bannerAndRace)
{
    const std::vector<BettorBets> groups = groupByBettor(bets, bettors);
    qsizetype nameWidth = narrowestName;
    for (const Horse &horse : horses)
        nameWidth = std::max(nameWidth, horse.name.size());
    const auto lineOf = [&](const QString &number, const QString &name, const QString &type,
                            float amount) -> QString {
        return "  "_L1 + leftColumn(number, 4) + leftColumn(name, int(nameWidth)) + u' '
               + leftColumn(type, 6) + rightColumn(formatMoney(amount), amountWidth);
    };
    QStringList lines{bannerAndRace, u"ALL BETS BY BETTOR"_s, u" "_s};
    for (const BettorBets &group : groups) {
        lines.append(group.name);
        for (const Bet &bet : group.bets) {
            const Horse horse = horseOfBet(horses, bet);
            lines.append(lineOf(horse.number, horse.name, listedBetType(bet.type), bet.amount));
        }
        lines.append(lineOf({}, u"TOTAL"_s, {}, group.sum));
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
        lines.append(leftColumn(group.name, 30) + rightColumn(formatMoney(group.sum), amountWidth));
    lines.append(u" "_s);
    lines.append(leftColumn(u"TOTAL BETS"_s, 30) + rightColumn(grandTotal(groups), amountWidth));
    return lines;
}
