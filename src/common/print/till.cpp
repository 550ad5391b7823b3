#include "common/print/till.h"

#include "common/event/cashstakes.h"
#include "common/event/settledrace.h"
#include "common/event/slippayoff.h"
#include "common/print/format.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString raceDollars(ExactMoney money)
{
    return formatMoney(dollarsOf(money));
}

bool isMultibetRefund(const CashEntry &entry)
{
    return entry.detail == refundMultibets || entry.detail == refundRaceMultibets;
}

// What the journals say is bet in a race now.
struct JournalStakes
{
    StakesByBettor bets;
    StakesByBettor multibets;
};

QHash<int, JournalStakes> stakesByRace(const CashJournal &journal)
{
    QHash<int, JournalStakes> races;
    for (const CashEntry &entry : journal.lines) {
        JournalStakes &stakes = races[entry.race];
        if (entry.kind == CashKind::Bets || entry.kind == CashKind::Added)
            stakes.bets[entry.bettor] += entry.dollars;
        else if (entry.kind == CashKind::Multibets)
            stakes.multibets[entry.bettor] += entry.dollars;
        else if (entry.kind == CashKind::Refund)
            (isMultibetRefund(entry) ? stakes.multibets : stakes.bets)[entry.bettor] -=
                entry.dollars;
    }
    return races;
}

ExactMoney sumOf(const StakesByBettor &stakes)
{
    ExactMoney sum = 0;
    for (const ExactMoney stake : stakes)
        sum += stake;
    return sum;
}

// A race as it is worked out.
class RaceCounter
{
public:
    RaceCounter(const RaceRecords &records, const BettorTable &bettors, const CashJournal &journal)
        : m_records(records)
        , m_names(bettors)
        , m_bettorCount(bettors.highestNumber())
        , m_journal(journal)
    {
        m_till.race = records.race;
    }

    RaceTill count(const JournalStakes &written)
    {
        const StakesByBettor bets = stakesOf(m_records.bets);
        const StakesByBettor multibets = stakesOf(m_records.multibets);
        m_till.pools = sumOf(bets);
        m_till.multibets = sumOf(multibets);
        compare(bets, written.bets, u"bets"_s);
        compare(multibets, written.multibets, u"multibets"_s);
        for (const CashEntry *entry : paymentsOf(m_journal, m_till.race, CashKind::MultibetPaid))
            m_till.multibetsPaid += entry->dollars;
        countPayments();
        if (const CashEntry *settlement = lastSettlement(m_journal, m_till.race))
            settleBy(*settlement);
        else
            tellUnsettled();
        return m_till;
    }

private:
    // Words are made for those that are shown alone.
    bool isWorded()
    {
        constexpr qsizetype most = 40;
        if (m_till.disagreements.size() < most)
            return true;
        ++m_till.moreDisagreements;
        return false;
    }

    void disagree(const QString &text)
    {
        m_till.disagreements += u"Race "_s + QString::number(m_till.race) + u": "_s + text;
    }

    void compare(const StakesByBettor &onFile, const StakesByBettor &written, const QString &what)
    {
        StakesByBettor difference = onFile;
        for (auto stake = written.cbegin(); stake != written.cend(); ++stake)
            difference[stake.key()] -= *stake;
        for (auto bettor = difference.cbegin(); bettor != difference.cend(); ++bettor) {
            if (bettor.key() != 0 && *bettor != 0 && isWorded())
                disagree(m_names.listed(bettor.key()) + u" has "_s + what + u" of "_s
                         + raceDollars(onFile.value(bettor.key()))
                         + u" on file, the journal says "_s
                         + raceDollars(written.value(bettor.key())) + u'.');
        }
    }

    void countPayments()
    {
        for (const CashEntry *entry : paymentsOf(m_journal, m_till.race, CashKind::Slip)) {
            m_slips += entry->dollars;
            m_slipsOwed += entry->owed;
        }
        for (const CashEntry *entry : paymentsOf(m_journal, m_till.race, CashKind::Paid)) {
            if (entry->bettor != anyBettorNumber || m_slips == 0)
                m_paid[entry->bettor] += entry->dollars;
        }
        m_till.paid = sumOf(m_paid) + m_slips;
    }

    void tellUnsettled()
    {
        if (m_till.paid != 0)
            disagree(raceDollars(m_till.paid)
                     + u" was paid, but no settlement of the race is written down."_s);
    }

    void settleBy(const CashEntry &entry)
    {
        const RaceSettled &settled = *entry.settled;
        const Settlement settlement = settleAsWritten(m_records, m_bettorCount, settled);
        m_till.settledAt = entry.clock();
        m_till.housePercent = settled.housePercent;
        m_till.houseCut = wholeCents(exactMoney(settlement.houseCut));
        for (const WinningBettor &winner : settlement.winners) {
            const Payment payment =
                paymentFor(winner.stakes, settled.payoffs.perDollar, settled.roundingIndex);
            weigh(winner.number, payment.cash(), exactMoney(payment.total));
        }
        for (auto paid = m_paid.cbegin(); paid != m_paid.cend(); ++paid) {
            if (isWorded())
                disagree(m_names.listed(paid.key()) + u" was paid "_s + raceDollars(*paid)
                         + u", but has not won by the last settlement."_s);
        }
    }

    // Compares what a winner is owed with what was paid.
    void weigh(int bettor, ExactMoney rounded, ExactMoney owed)
    {
        m_till.owed += rounded;
        if (bettor == anyBettorNumber && m_slips != 0) {
            m_paid.remove(bettor);
            const ExactMoney rest = wholeCents(owed - m_slipsOwed);
            if (rest > 0)
                m_till.unpaid.push_back({anyBettorName(), rest});
            else if (rest < 0)
                disagree(u"slips of AnyBettor were paid for "_s + raceDollars(m_slipsOwed)
                         + u", but are owed "_s + raceDollars(owed) + u'.');
            return;
        }
        const QString name = m_names.listed(bettor);
        const bool wasPaid = m_paid.contains(bettor);
        const ExactMoney paid = m_paid.take(bettor);
        if (paid < rounded)
            m_till.unpaid.push_back({name, rounded - paid});
        if (wasPaid && paid != rounded && isWorded())
            disagree(name + u" was paid "_s + raceDollars(paid) + u" and is owed "_s
                     + raceDollars(rounded) + u'.');
    }

    const RaceRecords &m_records;
    const BettorNames m_names;
    const int m_bettorCount;
    const CashJournal &m_journal;
    RaceTill m_till;
    StakesByBettor m_paid; // dollars by bettor, taken out as they are compared
    ExactMoney m_slips = 0;
    ExactMoney m_slipsOwed = 0;
};

Till &tillOf(std::vector<Till> &tills, const QString &computer)
{
    // The lines of a computer come one after the other.
    if (tills.empty() || tills.back().computer != computer) {
        tills.emplace_back();
        tills.back().computer = computer;
    }
    return tills.back();
}

void addEntry(Till &till, const CashEntry &entry)
{
    switch (entry.kind) {
    case CashKind::Bets:
        till.bets += entry.dollars;
        break;
    case CashKind::Multibets:
        till.multibets += entry.dollars;
        break;
    case CashKind::Refund:
        till.refunds += entry.dollars;
        break;
    case CashKind::Float:
        till.floated = entry.dollars;
        return;
    case CashKind::Counted:
        till.counted = entry.dollars;
        return;
    case CashKind::Closed:
        till.closedAt = entry.clock();
        till.movedSinceClose = 0;
        return;
    case CashKind::Added:
    case CashKind::Settled:
    case CashKind::MultibetSettled:
    case CashKind::Scratched:
        return;
    case CashKind::Paid:
    case CashKind::Slip:
    case CashKind::MultibetPaid:
    case CashKind::TakenBack:
        break; // of these, what was handed over for good is added later
    }
    ++till.movedSinceClose;
}

void addPayment(Till &till, const CashEntry &payment)
{
    (payment.kind == CashKind::MultibetPaid ? till.multibetsPaid : till.paid) += payment.dollars;
    till.rounding += payment.owed - payment.dollars;
}

} // namespace

ExactMoney Till::expected() const
{
    return floated.value_or(0) + bets + multibets - refunds - paid - multibetsPaid;
}

std::optional<ExactMoney> Till::difference() const
{
    return counted ? std::optional(*counted - expected()) : std::nullopt;
}

std::vector<Till> tillsOf(const CashJournal &journal)
{
    std::vector<Till> tills;
    for (const CashEntry &entry : journal.lines)
        addEntry(tillOf(tills, entry.computer), entry);
    for (const CashEntry *payment : handedOver(journal))
        addPayment(*std::ranges::find(tills, payment->computer, &Till::computer), *payment);
    return tills;
}

Till allTills(const std::vector<Till> &tills)
{
    Till all;
    all.computer = u"All"_s;
    ExactMoney counted = 0;
    for (const Till &till : tills) {
        if (till.floated)
            all.floated = all.floated.value_or(0) + *till.floated;
        counted += till.counted.value_or(0);
        all.bets += till.bets;
        all.multibets += till.multibets;
        all.refunds += till.refunds;
        all.paid += till.paid;
        all.multibetsPaid += till.multibetsPaid;
        all.rounding += till.rounding;
    }
    if (!tills.empty()
        && std::ranges::all_of(tills, [](const Till &till) { return till.counted.has_value(); }))
        all.counted = counted;
    return all;
}

std::vector<RaceTill> raceTills(const std::vector<RaceRecords> &races, const BettorTable &bettors,
                                const CashJournal &journal)
{
    const QHash<int, JournalStakes> written = stakesByRace(journal);
    std::vector<RaceTill> tills;
    tills.reserve(races.size());
    for (const RaceRecords &race : races)
        tills.push_back(RaceCounter(race, bettors, journal).count(written.value(race.race)));
    return tills;
}
