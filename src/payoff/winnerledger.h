#pragma once

#include "common/event/bettors.h"
#include "common/event/settle.h"
#include "payoff/winnerslips.h"

#include <QMap>
#include <QStringList>

// The name that a winner is listed under: the bettor's, or the number and " Bad Bettor Number".
QString winnerName(const BettorTable &bettors, int number);

// What a visit to the pay-winners screen keeps: the winners of the race being paid, who of them was
// paid and how much, and, of races paid before, the slips and who was left unpaid. Totals are
// single precision, in dollars.
class WinnerLedger
{
public:
    // The winners of a race, none of them paid. Payments made from its calculation before no longer
    // count, nor do their slips.
    void start(int race, std::vector<WinningBettor> winners, int roundingIndex);

    // The same without any winners: nothing is calculated.
    void clear() { start(0, {}, 1); }

    // Leaves the race: its slips stay, and who is unpaid is remembered.
    void closeRace(const BettorTable &bettors);

    const std::vector<WinningBettor> &winners() const { return m_winners; }

    // Counts a payment to the winner at \a index of winners(), with the lines of the slip.
    void pay(std::size_t index, const Payment &payment);
    void addSlip(const QList<SlipLine> &lines) { m_slips += lines; }

    int paidCount() const { return int(m_winners.size()) - unpaidCount(); }
    int unpaidCount() const;

    // Owed to all winners of the race, and paid to them so far; both also rounded, each winner's
    // total for itself.
    float owed() const { return m_owed; }
    float owedRounded() const { return m_owedRounded; }
    float paid() const { return m_paid; }
    float paidRounded() const { return m_paidRounded; }

    // The slips of all races of the visit.
    QList<SlipLine> slips() const { return m_closedSlips + m_slips; }

    // "Not paid in Race3: DOE, ROE", one for each closed race with unpaid winners.
    QStringList unpaidNotes() const { return m_unpaid.values(); }

private:
    int m_race = 0;
    std::vector<WinningBettor> m_winners;
    std::vector<bool> m_isPaid;
    float m_owed = 0;
    float m_owedRounded = 0;
    float m_paid = 0;
    float m_paidRounded = 0;
    QList<SlipLine> m_slips;
    QList<SlipLine> m_closedSlips;
    QMap<int, QString> m_unpaid;
};
