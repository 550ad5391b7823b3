#include "common/event/cashanswers.h"

#include "common/event/bettors.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace {

// The turn of the last clearing that ends what lines of this kind say about the race.
int lastClearing(const CashJournal &journal, int race, CashKind kind)
{
    const bool isMultibet = kind == CashKind::MultibetPaid || kind == CashKind::MultibetSettled;
    int turn = 0;
    for (const CashEntry &line : journal.lines) {
        if (line.kind == CashKind::Refund && line.race == race
            && line.detail == (isMultibet ? refundRaceMultibets : refundRace))
            turn = std::max(turn, line.turn);
    }
    return turn;
}

// The last line of a kind whose detail begins so, since the race was cleared; null for none.
const CashEntry *lastTurn(const CashJournal &journal, int race, CashKind kind,
                          const QString &detailStart)
{
    const int cleared = lastClearing(journal, race, kind);
    const CashEntry *last = nullptr;
    for (const CashEntry &line : journal.lines) {
        if (line.kind == kind && line.race == race && line.turn > cleared
            && line.detail.startsWith(detailStart) && (!last || line.turn >= last->turn))
            last = &line;
    }
    return last;
}

// Each computer's payments that were taken back, told apart by their turn, bettor and kind.
class TakenBack
{
public:
    explicit TakenBack(const CashJournal &journal)
    {
        for (const CashEntry &line : journal.lines) {
            if (line.kind == CashKind::TakenBack)
                m_payments.insert({line.computer, line.takesBack, line.bettor, line.detail});
        }
    }

    bool contains(const CashEntry &line) const
    {
        return !m_payments.empty()
               && m_payments.contains(
                   {line.computer, line.turn, line.bettor, cashKindWord(line.kind)});
    }

private:
    std::set<std::tuple<QString, int, int, QString>> m_payments;
};

} // namespace

std::vector<const CashEntry *> paymentsOf(const CashJournal &journal, int race, CashKind kind)
{
    const TakenBack takenBack(journal);
    const int cleared = lastClearing(journal, race, kind);
    std::vector<const CashEntry *> payments;
    for (const CashEntry &line : journal.lines) {
        if (line.kind == kind && line.race == race && line.turn > cleared
            && !takenBack.contains(line))
            payments.push_back(&line);
    }
    std::ranges::stable_sort(payments, {}, &CashEntry::turn);
    return payments;
}

std::vector<const CashEntry *> handedOver(const CashJournal &journal)
{
    const TakenBack takenBack(journal);
    std::map<int, std::set<int>> clearings; // turns, by race
    for (const CashEntry &entry : journal.lines) {
        if (entry.kind == CashKind::Refund && entry.detail == refundRace)
            clearings[entry.race].insert(entry.turn);
    }
    // The race, and how often it had been cleared by then.
    const auto running = [&](const CashEntry &entry) {
        const auto &turns = clearings[entry.race];
        return std::pair(entry.race, std::distance(turns.begin(), turns.lower_bound(entry.turn)));
    };
    std::set<std::pair<int, std::ptrdiff_t>> paidBySlip;
    std::vector<const CashEntry *> payments;
    for (const CashEntry &entry : journal.lines) {
        if (!isPayment(entry.kind) || takenBack.contains(entry))
            continue;
        payments.push_back(&entry);
        if (entry.kind == CashKind::Slip)
            paidBySlip.insert(running(entry));
    }
    std::erase_if(payments, [&](const CashEntry *entry) {
        return entry->kind == CashKind::Paid && entry->bettor == anyBettorNumber
               && paidBySlip.contains(running(*entry));
    });
    return payments;
}

QMap<int, PaidBefore> paidInRace(const CashJournal &journal, int race)
{
    QMap<int, PaidBefore> paid;
    for (const CashEntry *line : paymentsOf(journal, race, CashKind::Paid)) {
        PaidBefore &before = paid[line->bettor];
        before = {line->name, before.dollars + line->dollars, line->clock()};
    }
    return paid;
}

const CashEntry *lastSettlement(const CashJournal &journal, int race)
{
    return lastTurn(journal, race, CashKind::Settled, {});
}

const CashEntry *lastMultibetSettlement(const CashJournal &journal, int race, const QString &type)
{
    return lastTurn(journal, race, CashKind::MultibetSettled, type + u' ');
}

const CashEntry *lastPayment(const CashJournal &journal, const QString &computer)
{
    const TakenBack takenBack(journal);
    const auto holds = [&](const CashEntry &line) {
        return isPayment(line.kind) && line.computer == computer && !takenBack.contains(line);
    };
    const auto found = std::find_if(journal.lines.rbegin(), journal.lines.rend(), holds);
    return found == journal.lines.rend() ? nullptr : &*found;
}

const CashEntry *lastOf(const CashJournal &journal, const QString &computer, CashKind kind)
{
    const auto found =
        std::find_if(journal.lines.rbegin(), journal.lines.rend(), [&](const CashEntry &line) {
            return line.kind == kind && line.computer == computer;
        });
    return found == journal.lines.rend() ? nullptr : &*found;
}

CashTotals totalsOf(const CashJournal &journal, const QString &computer, int race)
{
    CashTotals totals;
    for (const CashEntry &line : journal.lines) {
        if ((computer.isEmpty() || line.computer == computer) && (race == 0 || line.race == race))
            totals[line.kind] += line.dollars;
    }
    return totals;
}
