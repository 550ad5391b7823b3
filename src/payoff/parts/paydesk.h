#pragma once

#include "payoff/parts/calculatorwindow.h"
#include "payoff/parts/payform.h"
#include "payoff/paying.h"
#include "ui/navigator.h"
#include "ui/printing.h"

#include <optional>

class QListWidgetItem;

// The half of the pay-winners screen that pays those who are listed, and takes a payment back.
class PayDesk : public PayForm
{
    Q_OBJECT

protected:
    explicit PayDesk(const ScreenContext &context);

    // Whether the list is still right, before somebody is paid.
    virtual bool hasEveryBet() = 0;

    // Nobody is listed, and nobody was paid last.
    void clearPayments();

    // The line of the winner at \a index of the ledger, in no list yet.
    QListWidgetItem *makeWinner(std::size_t index, const QString &name) const;

    // Ticks those in the list who were paid before, on whatever computer. Returns what the note
    // says.
    QString markPaid();
    void showPaidTotals();

    // Prints the slips of the visit; without any there is no note.
    Printed printSlips();

    ScreenContext m_context;
    WinnerLedger m_ledger;
    CalculatorWindow m_calculator;

private:
    QListWidgetItem *selectedWinner() const;
    void payWinner();
    bool mayPay(QListWidgetItem *item);
    void undoPayment();
    void listAgain(const CashEntry &payment);
    void showToPay();
    void showPayment(const QString &name, const Payment &payment);
    void keepSlip(std::size_t index, const QString &name);

    QString m_lastPaid; // whom, in this race; empty for nobody
    QString m_lastAmount;
    std::optional<bool> m_printPayoffs; // the answer, once it was asked in this visit
};
