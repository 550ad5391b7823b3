#include "payoff/winnerledger.h"

#include "common/event/settings.h"
#include "payoff/rounding.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString winnerName(const BettorTable &bettors, int number)
{
    const QString name = bettors.nameOf(number);
    return name.isNull() ? QString(QString::number(number) + u" Bad Bettor Number"_s) : name;
}

void WinnerLedger::start(int race, std::vector<WinningBettor> winners, int roundingIndex)
{
    m_race = race;
    m_winners = std::move(winners);
    m_isPaid.assign(m_winners.size(), false);
    m_slips.clear();
    m_owed = m_owedRounded = m_paid = m_paidRounded = 0;
    for (const WinningBettor &winner : m_winners) {
        m_owed += winner.owed;
        m_owedRounded += float(rounding(double(winner.owed), roundingIndex));
    }
}

void WinnerLedger::closeRace(const BettorTable &bettors)
{
    if (m_race == 0)
        return;
    m_unpaid.remove(m_race);
    constexpr int named = 3;
    QStringList names;
    for (std::size_t i = 0; i < m_winners.size() && names.size() < named; ++i) {
        if (!m_isPaid[i])
            names.append(winnerName(bettors, m_winners[i].number));
    }
    if (!names.isEmpty()) {
        QString note = u"Not paid in"_s + raceName(m_race) + u": "_s + names.join(u", "_s);
        if (unpaidCount() > named)
            note += u" and "_s + QString::number(unpaidCount() - named) + u" more"_s;
        m_unpaid.insert(m_race, note);
    }
    m_closedSlips += m_slips;
    clear();
}

void WinnerLedger::pay(std::size_t index, const Payment &payment)
{
    m_isPaid[index] = true;
    m_paid += float(payment.total);
    m_paidRounded += float(payment.rounded);
}

int WinnerLedger::unpaidCount() const
{
    return int(std::ranges::count(m_isPaid, false));
}
