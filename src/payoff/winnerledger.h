#pragma once

#include "common/event/bettors.h"
#include "common/event/settle.h"
#include "payoff/winnerslips.h"

#include <QMap>
#include <QStringList>

// What a visit to the pay-winners screen keeps: the winners of the race being paid, who of them was
// paid and how much, and, of races paid before, the slips and who was left unpaid. Totals are in
// dollars and exact however many winners there are.
class WinnerLedger
{
public:
    // The winners of a race, none of them paid, and the payoffs per $1 that they are paid at.
    // Payments of the race made before no longer count, nor do their slips.
    void start(int race, std::vector<WinningBettor> winners, const CombinationAmounts &payoffs,
               int roundingIndex);

    // Nothing is calculated for the race at hand: what was paid from its calculation no longer
    // counts. Races that were closed stay.
    void clear();

    // Leaves the race: its slips stay, and who is unpaid is remembered.
    void closeRace(const BettorTable &bettors);

    // True when somebody was paid in the race, the one at hand or a closed one.
    bool wasPaid(int race) const;

    // Payments of a closed race no longer count, nor do their slips.
    void forgetPayments(int race);

    const std::vector<WinningBettor> &winners() const { return m_winners; }

    // What the winner at \a index of winners() is paid.
    const Payment &payment(std::size_t index) const { return m_payments[index]; }

    // Counts that payment, with the lines of its slip; or no longer, neither of them.
    void pay(std::size_t index);
    void addSlip(std::size_t index, const QList<SlipLine> &lines) { m_slips += {index, lines}; }
    void takeBack(std::size_t index);
    bool isPaid(std::size_t index) const { return m_isPaid[index]; }

    int unpaidCount() const;

    // Owed to all winners of the race, and paid to them so far; both also rounded, each winner's
    // total for itself. When everybody is paid the two are the same.
    double owed() const { return m_owed; }
    double owedRounded() const { return m_owedRounded; }
    double paid() const { return m_paid; }
    double paidRounded() const { return m_paidRounded; }

    // The slips of all races of the visit.
    QList<SlipLine> slips() const;

    // "Not paid in Race3: DOE, ROE", one for each closed race with unpaid winners.
    QStringList unpaidNotes() const;

private:
    struct ClosedRace
    {
        bool paid = false;
        QList<SlipLine> slips;
        QString unpaidNote; // empty when nobody is unpaid
    };

    QString unpaidNote(const BettorTable &bettors) const;
    QList<SlipLine> slipsHere() const;
    bool isPaidHere() const { return unpaidCount() < int(m_winners.size()); }

    int m_race = 0; // 0 while nothing is calculated
    std::vector<WinningBettor> m_winners;
    std::vector<Payment> m_payments;
    std::vector<bool> m_isPaid;
    double m_owed = 0;
    double m_owedRounded = 0;
    double m_paid = 0;
    double m_paidRounded = 0;
    QList<std::pair<std::size_t, QList<SlipLine>>> m_slips; // in the order of paying
    QMap<int, ClosedRace> m_closed;
};
