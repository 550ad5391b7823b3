#include "board/boardpicture.h"

#include "common/event/bettypes.h"
#include "common/event/odds.h"
#include "common/print/format.h"

#include <QDateTime>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int ticketStake = 2; // what payoffs are shown for

// Adds the horse, or its name to the entry that it runs in.
void addHorse(QList<BoardRow> &rows, const HorseTable &horses, const Horse &horse)
{
    const auto entry = std::ranges::find_if(rows, [&](const BoardRow &row) {
        return !row.isScratched && horses.runTogether(row.post, horse.post);
    });
    if (entry != rows.end()) {
        entry->number += u", "_s + horse.number;
        entry->names += horse.name;
        return;
    }
    rows.append({.post = horse.post, .number = horse.number, .names = {horse.name}});
}

// The horses that run, those that no longer do, and posts that hold money without a horse.
QList<BoardRow> rowsOf(const HorseTable &horses, const QList<Horse> &scratched,
                       const PoolTable &pools)
{
    QList<BoardRow> rows;
    for (const Horse &horse : horses) {
        const auto before = std::ranges::find(scratched, horse.post, &Horse::post);
        if (!isUnused(horse))
            addHorse(rows, horses, horse);
        else if (before != scratched.end())
            rows.append({.post = horse.post,
                         .number = before->number,
                         .names = {before->name},
                         .isScratched = true});
        else if (pools.amount(horse.post, totalColumn) != 0)
            rows.append({.post = horse.post,
                         .names = {"(no horse, post "_L1 + QString::number(horse.post) + u')'}});
    }
    return rows;
}

void fillMoney(QList<BoardRow> &rows, const HorseTable &horses, const PoolTable &pools)
{
    std::array<int, postCount> couplings{};
    for (int post = 1; post <= postCount; ++post)
        couplings[std::size_t(post - 1)] = horses.couplingOf(post);
    const auto odds = winOdds(pools, couplings);
    for (BoardRow &row : rows) {
        for (int post = 1; post <= postCount; ++post) {
            for (const BetType type : allBetTypes) {
                if (horses.runTogether(row.post, post))
                    row.money[std::size_t(type) - 1] += pools.amount(post, int(type));
            }
        }
        if (!row.isScratched)
            row.odds = QString::fromStdString(odds[std::size_t(row.post - 1)]);
    }
}

int mostBackedOf(const QList<BoardRow> &rows)
{
    const auto most = std::ranges::max_element(
        rows, {}, [](const BoardRow &row) { return row.isScratched ? 0 : row.total(); });
    return most == rows.end() || most->total() == 0 ? -1 : int(most - rows.begin());
}

QList<BoardPool> multibetPools(const MultibetTable &bets)
{
    QHash<QString, double> dollars;
    for (const MultibetRow &row : bets.rows) {
        if (!row.damaged)
            dollars[row.bet.type] += row.bet.amount;
    }
    QList<BoardPool> pools;
    for (const MultibetType &type : multibetTypes()) {
        if (dollars.value(type.code) != 0)
            pools.append({type.name, dollars.value(type.code)});
    }
    return pools;
}

QString paysText(float perDollar)
{
    return perDollar == 0 ? QString() : formatMoney(float(ticketStake) * perDollar, "Currency");
}

// Which horse of the finish is paid for by which kind of bet.
struct PaidCombination
{
    Combination combination;
    Finish horse;
    BetType type;
};
constexpr PaidCombination paidCombinations[] = {
    {Combination::WinWin, Finish::Win, BetType::Win},
    {Combination::WinPlace, Finish::Win, BetType::Place},
    {Combination::WinShow, Finish::Win, BetType::Show},
    {Combination::PlacePlace, Finish::Place, BetType::Place},
    {Combination::PlaceShow, Finish::Place, BetType::Show},
    {Combination::ShowShow, Finish::Show, BetType::Show}};

QList<BoardFinisher> finishOf(const RacePayoffs &payoffs, const HorseTable &horses)
{
    QList<BoardFinisher> finish;
    for (const Finish place : allFinishes) {
        const Horse &horse = horses.post(payoffs.finishers[std::size_t(place)]);
        if (isUnused(horse))
            continue; // it stands in for a horse that a small field does not have
        BoardFinisher finisher{horse.number, horse.name, {}};
        for (const auto &[combination, paid, type] : paidCombinations) {
            if (paid == place)
                finisher.pays[std::size_t(type) - 1] = paysText(payoffs.perDollar[combination]);
        }
        finish.append(finisher);
    }
    return finish;
}

// "Daily Double, races 1-2".
QString payoffName(const MultibetType &type, int race)
{
    return type.races ? QString(type.name + u", races "_s + QString::number(race) + u'-'
                                + QString::number(race + type.lines - 1))
                      : type.name;
}

BoardPayoff payoffOf(const CashEntry &settled, const MultibetType &type,
                     const std::map<int, HorseTable> &cards)
{
    BoardPayoff payoff{payoffName(type, settled.race), u"no winner"_s, u"stakes back"_s};
    const QString found = settled.detail.sliced(type.code.size() + 1);
    if (found == multibetRefund)
        return payoff;
    QStringList numbers;
    int race = settled.race;
    for (const QString &post : found.split(u',')) {
        const auto card = cards.find(type.races ? race++ : race);
        const int place = std::clamp(post.toInt(), 1, postCount);
        const bool isKnown = card != cards.end() && !isUnused(card->second.post(place));
        numbers += isKnown ? card->second.post(place).number : post;
    }
    payoff.horses = numbers.join(u", "_s);
    payoff.pays = formatMoney(ticketStake * dollarsOf(settled.owed));
    return payoff;
}

// The multibets that were settled of the race, and those of races before that end with it.
QList<BoardPayoff> payoffsOf(const CashJournal &journal, int race,
                             const std::map<int, HorseTable> &cards)
{
    QList<BoardPayoff> payoffs;
    for (int first = std::max(1, race - 2); first <= race; ++first) {
        for (const MultibetType &type : multibetTypes()) {
            const bool endsHere = type.races && first + type.lines - 1 == race;
            const CashEntry *settled = lastMultibetSettlement(journal, first, type.code);
            if (settled && (first == race || endsHere))
                payoffs.append(payoffOf(*settled, type, cards));
        }
    }
    return payoffs;
}

} // namespace

BoardPicture boardPicture(const RaceRecords &race, const QList<Horse> &scratched,
                          const CashJournal &journal, const std::map<int, HorseTable> &cards)
{
    BoardPicture picture;
    picture.race = race.race;
    const PoolTable pools = poolsOf(race.bets);
    picture.rows = rowsOf(race.horses, scratched, pools);
    fillMoney(picture.rows, race.horses, pools);
    for (int column = 1; column <= totalColumn; ++column)
        picture.pools[std::size_t(column - 1)] = pools.amount(totalsRow, column);
    picture.mostBacked = mostBackedOf(picture.rows);
    picture.multibets = multibetPools(race.multibets);
    if (const CashEntry *settlement = lastSettlement(journal, race.race))
        picture.finish = finishOf(settlement->settled->payoffs, race.horses);
    picture.payoffs = payoffsOf(journal, race.race, cards);
    return picture;
}

QString moveText(OddsMove move)
{
    switch (move) {
    case OddsMove::Rising:
        return u"rising"_s;
    case OddsMove::Falling:
        return u"falling"_s;
    case OddsMove::None:
        break;
    }
    return {};
}

QString boardDollars(double dollars)
{
    QString text = formatMoney(dollars);
    if (text.endsWith(".00"_L1))
        text.chop(3);
    return text;
}

QList<int> settledRaces(const CashJournal &journal)
{
    QList<int> races;
    for (int race = 1; race <= raceCount; ++race) {
        if (lastSettlement(journal, race))
            races.append(race);
    }
    return races;
}

int followedRace(const CashJournal &journal, const QString &computer, int chosen)
{
    // Each computer's lines are in their order: of each the last one can be the latest.
    std::map<QString, const CashEntry *> last;
    for (const CashEntry &line : journal.lines) {
        if (line.computer == computer)
            return chosen;
        if (line.kind == CashKind::Bets || line.kind == CashKind::Multibets
            || line.kind == CashKind::Settled)
            last[line.computer] = &line;
    }
    int race = chosen;
    QDateTime latest;
    for (const auto &[name, line] : last) {
        const QDateTime time = QDateTime::fromString(line->time, Qt::ISODate);
        if (!latest.isValid() || time > latest) {
            latest = time;
            race = line->race;
        }
    }
    return race;
}
