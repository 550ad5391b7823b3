#pragma once

#include "common/event/cashjournal.h"

#include <QMap>

#include <array>

// What the cash journals of all computers answer together.

// The payments of a race that hold: not taken back, and made since its bets were cleared last.
// \a kind is Paid, Slip or MultibetPaid.
std::vector<const CashEntry *> paymentsOf(const CashJournal &journal, int race, CashKind kind);

// All payments that money left a till for: not taken back; those of races that were cleared since
// are among them. Where slips of AnyBettor were paid through the calculator, the payment of the
// name is none, because that money went out slip by slip.
std::vector<const CashEntry *> handedOver(const CashJournal &journal);

// What a bettor was paid for a race, on all computers together.
struct PaidBefore
{
    QString name;
    ExactMoney dollars = 0;
    QString clock; // of the last payment
};

// By bettor number, who was paid for the race and may be paid twice by mistake.
QMap<int, PaidBefore> paidInRace(const CashJournal &journal, int race);

// How the race was settled last since its bets were cleared; null when it was not.
const CashEntry *lastSettlement(const CashJournal &journal, int race);

// What was found last for a type of the race's multibets since those were cleared; null for
// nothing.
const CashEntry *lastMultibetSettlement(const CashJournal &journal, int race, const QString &type);

// The last payment of a computer that was not taken back; null when there is none.
const CashEntry *lastPayment(const CashJournal &journal, const QString &computer);

// The last line of a kind in a computer's journal, such as its float; null when there is none.
const CashEntry *lastOf(const CashJournal &journal, const QString &computer, CashKind kind);

// The money of some lines by kind.
class CashTotals
{
public:
    ExactMoney &operator[](CashKind kind) { return m_dollars[std::size_t(kind)]; }
    ExactMoney operator[](CashKind kind) const { return m_dollars[std::size_t(kind)]; }

private:
    std::array<ExactMoney, cashKindCount> m_dollars{};
};

// The totals of a computer and a race; of all computers for an empty name, of all races for 0.
CashTotals totalsOf(const CashJournal &journal, const QString &computer = {}, int race = 0);
