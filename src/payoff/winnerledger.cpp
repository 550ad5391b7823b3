#include "payoff/winnerledger.h"

#include "common/event/rounding.h"
#include "common/event/settings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void WinnerLedger::start(int race, std::vector<WinningBettor> winners,
                         const CombinationAmounts &payoffs, int roundingIndex)
{
    clear();
    m_closed.remove(race);
    m_race = race;
    m_winners = std::move(winners);
    m_isPaid.assign(m_winners.size(), false);
    for (const WinningBettor &winner : m_winners) {
        const Payment &payment =
            m_payments.emplace_back(paymentFor(winner.stakes, payoffs, roundingIndex));
        m_owed = exactSum(m_owed, payment.total);
        m_owedRounded = exactSum(m_owedRounded, payment.rounded);
    }
}

void WinnerLedger::clear()
{
    m_race = 0;
    m_winners.clear();
    m_payments.clear();
    m_isPaid.clear();
    m_slips.clear();
    m_owed = m_owedRounded = m_paid = m_paidRounded = 0;
}

void WinnerLedger::closeRace(const BettorTable &bettors)
{
    if (m_race != 0)
        m_closed.insert(m_race, {isPaidHere(), slipsHere(), unpaidNote(bettors)});
    clear();
}

QString WinnerLedger::unpaidNote(const BettorTable &bettors) const
{
    constexpr int named = 3;
    const BettorNames bettorNames(bettors);
    QStringList names;
    for (std::size_t i = 0; i < m_winners.size() && names.size() < named; ++i) {
        if (!m_isPaid[i])
            names.append(bettorNames.listed(m_winners[i].number));
    }
    if (names.isEmpty())
        return {};
    QString note = u"Not paid in"_s + raceName(m_race) + u": "_s + names.join(u", "_s);
    if (unpaidCount() > named)
        note += u" and "_s + QString::number(unpaidCount() - named) + u" more"_s;
    return note;
}

bool WinnerLedger::wasPaid(int race) const
{
    return race == m_race ? isPaidHere() : m_closed.value(race).paid;
}

void WinnerLedger::forgetPayments(int race)
{
    if (const auto closed = m_closed.find(race); closed != m_closed.end()) {
        closed->paid = false;
        closed->slips.clear();
    }
}

void WinnerLedger::pay(std::size_t index)
{
    m_isPaid[index] = true;
    m_paid = exactSum(m_paid, m_payments[index].total);
    m_paidRounded = exactSum(m_paidRounded, m_payments[index].rounded);
}

void WinnerLedger::takeBack(std::size_t index)
{
    m_isPaid[index] = false;
    m_paid = exactSum(m_paid, -m_payments[index].total);
    m_paidRounded = exactSum(m_paidRounded, -m_payments[index].rounded);
    m_slips.removeIf([&](const auto &slip) { return slip.first == index; });
}

int WinnerLedger::unpaidCount() const
{
    return int(std::ranges::count(m_isPaid, false));
}

QList<SlipLine> WinnerLedger::slips() const
{
    QList<SlipLine> all;
    for (const ClosedRace &race : m_closed)
        all += race.slips;
    return all + slipsHere();
}

QList<SlipLine> WinnerLedger::slipsHere() const
{
    QList<SlipLine> lines;
    for (const auto &slip : m_slips)
        lines += slip.second;
    return lines;
}

QStringList WinnerLedger::unpaidNotes() const
{
    QStringList notes;
    for (const ClosedRace &race : m_closed)
        notes += race.unpaidNote;
    notes.removeAll(QString());
    return notes;
}
