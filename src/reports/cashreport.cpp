#include "reports/cashreport.h"

#include "common/event/bettypes.h"
#include "common/event/settle.h"
#include "common/print/format.h"
#include "reports/tillreport.h"

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr double highestAmount = 1e9; // dollars; a record above it holds no amount
constexpr std::size_t straightTypes = 3;
constexpr std::size_t badType = straightTypes + 5;

std::vector<CashLine> emptyLines()
{
    std::vector<CashLine> lines;
    for (const BetType type : allBetTypes)
        lines.push_back({betTypeWord(type)});
    for (const MultibetType &type : multibetTypes())
        lines.push_back({type.name});
    lines.push_back({u"Bad records"_s});
    return lines;
}

// The posts that a horse runs from. A card on which no horse was entered says nothing about them.
class RunningPosts
{
public:
    explicit RunningPosts(const HorseTable &horses)
        : m_isKnown(!std::ranges::all_of(horses, isUnused))
    {
        for (const Horse &horse : horses)
            m_runs[std::size_t(horse.post)] = !isUnused(horse);
    }

    bool contains(int post) const
    {
        return !m_isKnown || (post >= 1 && post <= postCount && m_runs[std::size_t(post)]);
    }

private:
    std::array<bool, postCount + 1> m_runs{};
    bool m_isKnown;
};

// Adds the money of records up, race by race.
class CashCounter
{
public:
    CashCounter(const std::vector<RaceRecords> &races, const BettorTable &bettors)
        : m_bettorCount(bettors.highestNumber())
    {
        for (const RaceRecords &race : races)
            m_running.emplace(race.race, race.horses);
    }

    void countBets(const RaceRecords &race, RaceCash &cash, EveningCash &evening) const
    {
        const RunningPosts &running = m_running.at(race.race);
        for (const BetRow &row : race.bets.rows) {
            const auto amount = double(row.bet.amount);
            if (row.damaged || std::abs(amount) > highestAmount) {
                ++evening.damagedLines;
                continue;
            }
            if (!isAcceptedBet(row, m_bettorCount) || !isCountable(row.bet)) {
                countBad(amount, cash, evening);
                continue;
            }
            CashLine &line = cash.types[std::size_t(row.bet.type) - 1];
            line.taken += exactMoney(amount);
            if (!running.contains(int(row.bet.post)))
                line.withoutHorse += exactMoney(amount);
        }
    }

    void countMultibets(const RaceRecords &race, RaceCash &cash, EveningCash &evening) const
    {
        for (const MultibetRow &row : race.multibets.rows) {
            const double amount = row.bet.amount;
            if (row.damaged || std::abs(amount) > highestAmount) {
                ++evening.damagedLines;
                continue;
            }
            const MultibetType *type = multibetType(row.bet.type);
            if (!type) {
                countBad(amount, cash, evening);
                continue;
            }
            CashLine &line = cash.types[straightTypes + std::size_t(type - multibetTypes().data())];
            line.taken += exactMoney(amount);
            if (!canWin(race.race, *type, row.bet))
                line.withoutHorse += exactMoney(amount);
        }
    }

private:
    static void countBad(double amount, RaceCash &cash, EveningCash &evening)
    {
        ++evening.badRecords;
        cash.types[badType].taken += exactMoney(amount);
        cash.types[badType].refundsDue += exactMoney(amount);
    }

    bool canWin(int race, const MultibetType &type, const Multibet &bet) const
    {
        for (int leg = 0; leg < type.lines; ++leg) {
            const int legRace = type.races ? race + leg : race;
            const auto found = m_running.find(legRace);
            if (found != m_running.end() && !found->second.contains(bet.posts[std::size_t(leg)]))
                return false;
        }
        return true;
    }

    std::map<int, RunningPosts> m_running; // by race
    int m_bettorCount;
};

double percentage(double percent)
{
    return std::clamp(percent, 0.0, 100.0);
}

QString percentText(double percent)
{
    return QString::number(percent) + " %"_L1;
}

// Win, place and show are cut together, as Pay Winners does; the cents of rounding fall to the last
// of them that took money.
void takeHouseCut(RaceCash &cash, const HousePercents &percents)
{
    const auto cutOf = [](ExactMoney taken, double percent) {
        return wholeCents(std::llround(double(taken) * percent / 100));
    };
    const double percent = percents.straight[std::size_t(cash.race)];
    auto &types = cash.types;
    ExactMoney straight = 0;
    for (std::size_t i = 0; i < badType; ++i) {
        const bool isStraight = i < straightTypes;
        types[i].houseCut = cutOf(types[i].taken, isStraight ? percent : percents.multibets);
        straight += isStraight ? types[i].taken : 0;
    }
    CashLine &last = types[2].taken != 0 ? types[2] : types[1].taken != 0 ? types[1] : types[0];
    last.houseCut +=
        cutOf(straight, percent) - types[0].houseCut - types[1].houseCut - types[2].houseCut;
}

QStringList amountCells(const CashLine &line)
{
    QStringList cells;
    for (const ExactMoney amount : {line.taken, line.houseCut, line.refundsDue, line.forWinners()})
        cells.append(formatMoney(dollarsOf(amount)));
    return cells;
}

ReportRow cashRow(const QString &race, const CashLine &line, bool isTotal = false)
{
    return {QStringList{race, line.type} + amountCells(line), isTotal};
}

// The money on posts without a horse, a line for each race, and what to do about it.
QStringList withoutHorseRemarks(const EveningCash &cash)
{
    QStringList remarks;
    for (const RaceCash &race : cash.races) {
        if (const ExactMoney money = race.total.withoutHorse; money != 0) {
            remarks += "Race "_L1 + QString::number(race.race) + ": "_L1
                       + formatMoney(dollarsOf(money)) + " is bet on posts without a horse."_L1;
        }
    }
    if (!remarks.isEmpty()) {
        remarks += QStringList{u"It stays in the pool. Before the race is paid, delete such"_s,
                               u"bets under PRIOR BETS of the bet sheet or multibet screen"_s,
                               u"and give the money back: else it goes to the winners."_s};
    }
    return remarks;
}

} // namespace

void CashLine::add(const CashLine &line)
{
    taken += line.taken;
    houseCut += line.houseCut;
    refundsDue += line.refundsDue;
    withoutHorse += line.withoutHorse;
}

HousePercents HousePercents::all(double percent)
{
    HousePercents percents;
    percents.multibets = percentage(percent);
    percents.straight.fill(percents.multibets);
    percents.title = "House percentage "_L1 + percentText(percents.multibets);
    return percents;
}

HousePercents HousePercents::asPaid(const QMap<int, double> &paid, double multibets)
{
    HousePercents percents;
    percents.multibets = percentage(multibets);
    QMap<double, QStringList> races; // paid with the same percentage
    for (auto race = paid.cbegin(); race != paid.cend(); ++race) {
        const double percent = percentage(*race);
        percents.straight[std::size_t(race.key())] = percent;
        races[percent] += QString::number(race.key());
    }
    QStringList texts;
    for (auto same = races.cbegin(); same != races.cend(); ++same)
        texts += percentText(same.key()) + " in race "_L1 + same->join(", "_L1);
    if (texts.isEmpty())
        texts += u"no race yet"_s;
    texts += "multibets "_L1 + percentText(percents.multibets);
    percents.title = "House percentage as paid: "_L1 + texts.join("; "_L1);
    return percents;
}

EveningCash countCash(const std::vector<RaceRecords> &races, const BettorTable &bettors,
                      const HousePercents &percents)
{
    EveningCash evening;
    evening.percentTitle = percents.title;
    evening.types = emptyLines();
    evening.total.type = u"Total"_s;
    const CashCounter counter(races, bettors);
    for (const RaceRecords &race : races) {
        RaceCash cash{race.race, emptyLines(), {u"Total"_s}};
        counter.countBets(race, cash, evening);
        counter.countMultibets(race, cash, evening);
        takeHouseCut(cash, percents);
        for (std::size_t i = 0; i < cash.types.size(); ++i) {
            cash.total.add(cash.types[i]);
            evening.types[i].add(cash.types[i]);
        }
        evening.total.add(cash.total);
        evening.races.push_back(std::move(cash));
    }
    return evening;
}

Report cashReport(const QString &banner, const EveningCash &cash, const CashJournal &journal,
                  const std::vector<RaceTill> &races)
{
    using Kind = ReportColumn::Kind;
    Report report;
    const std::vector<Till> tills = tillsOf(journal);
    report.name = u"Till Report"_s;
    report.titles = {banner, u"TILL REPORT, "_s + tillState(tills), cash.percentTitle};
    report.before = tillTables(tills, races);
    report.columns = {{u"Race"_s, Kind::Text},         {u"Type"_s, Kind::Text},
                      {u"Taken"_s, Kind::Money},       {u"House cut"_s, Kind::Money},
                      {u"Refunds due"_s, Kind::Money}, {u"For winners"_s, Kind::Money}};
    const auto addTypes = [&](const QString &race, const std::vector<CashLine> &types) {
        for (const CashLine &line : types) {
            if (line.taken != 0)
                report.rows.append(cashRow(race, line));
        }
    };
    addTypes(u"Evening"_s, cash.types);
    report.rows.append(cashRow(u"Evening"_s, cash.total, true));
    for (const RaceCash &race : cash.races) {
        const QString number = "Race "_L1 + QString::number(race.race);
        const qsizetype before = report.rows.size();
        addTypes(number, race.types);
        if (report.rows.size() > before)
            report.rows.append(cashRow(number, race.total, true));
    }
    report.remarks = tillRemarks(journal, tills, races) + withoutHorseRemarks(cash);
    if (cash.badRecords > 0) {
        report.remarks.append("Bad records, their money is due back: "_L1
                              + QString::number(cash.badRecords) + u'.');
    }
    if (cash.damagedLines > 0) {
        report.remarks.append("Damaged lines, in no figure: "_L1
                              + QString::number(cash.damagedLines) + u'.');
    }
    report.remarks += cashReportNotes();
    return report;
}

QStringList cashReportNotes()
{
    return {u"Taken is what the bet files hold now: bets that were deleted,"_s,
            u"scratched or cleared were refunded and have left them."_s,
            u"Refunds due are bad records: Pay Winners counts none of them."_s,
            u"The files hold no finishers: a race or a multibet that"_s,
            u"nobody won stands under For winners too."_s};
}
