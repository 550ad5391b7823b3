#include "payoff/parts/paydesk.h"

#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "payoff/parts/combinationgrid.h"
#include "ui/listkeys.h"
#include "ui/paidlist.h"
#include "ui/prompts.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

std::size_t indexOf(const QListWidgetItem *item)
{
    return std::size_t(item->data(Qt::UserRole).toInt());
}

} // namespace

PayDesk::PayDesk(const ScreenContext &context)
    : m_context(context)
    , m_calculator(context)
{
    connect(lstwinners, &QListWidget::itemSelectionChanged, this, &PayDesk::showToPay);
    connect(cmdpay, &QPushButton::clicked, this, &PayDesk::payWinner);
    connect(cmdundo, &QPushButton::clicked, this, &PayDesk::undoPayment);
    pressOnEnter(lstwinners, [this] { return cmdpay; });
}

void PayDesk::clearPayments()
{
    m_ledger.clear();
    lstwinners->clear();
    m_lastPaid.clear();
    m_lastAmount.clear();
    showToPay();
}

QListWidgetItem *PayDesk::selectedWinner() const
{
    const auto selected = lstwinners->selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

QListWidgetItem *PayDesk::makeWinner(std::size_t index, const QString &name) const
{
    QListWidgetItem *item =
        PaidList::makeLine(name, formatMoney(m_ledger.payment(index).rounded, "Currency"));
    item->setData(Qt::UserRole, int(index));
    return item;
}

// Ticks those in the list who were paid before, on whatever computer. Returns what the note says.
QString PayDesk::markPaid()
{
    const CashJournal journal = readCashJournal(m_context.session);
    const auto paid = paidBefore(journal, m_ledger, m_context.session.payoffs.race);
    for (int row = 0; row < lstwinners->count(); ++row) {
        QListWidgetItem *item = lstwinners->item(row);
        const auto before = paid.find(indexOf(item));
        if (before != paid.end())
            PaidList::mark(item, paidText(*before));
        else if (PaidList::isMarked(item))
            PaidList::mark(item, {});
    }
    QStringList notes{paidBeforeNote(paid.values(), int(m_ledger.winners().size())),
                      journalNote(journal)};
    notes.removeAll(QString());
    return notes.join(u"; "_s);
}

void PayDesk::payWinner()
{
    if (!selectedWinner() || !hasEveryBet())
        return;
    QListWidgetItem *item = selectedWinner();
    Session &session = m_context.session;
    const QString name = item->text();
    if (!mayPay(item))
        return;
    if (name == anyBettorName())
        m_calculator.open();
    const auto index = indexOf(item);
    if (session.bettors.nameOf(m_ledger.winners()[index].number).isNull())
        return showMessage(this, u"Bettor name not found"_s, u"Pay winners"_s);

    lblnote->clear();
    handOver(session, m_ledger, index);
    showPayment(name, m_ledger.payment(index));
    if (!m_printPayoffs)
        m_printPayoffs = askYesNo(this, u"Print Payoffs?"_s);
    if (*m_printPayoffs)
        keepSlip(index, name);
    delete item;
    // The next payment needs a selection of its own: a second press pays nobody by accident.
    lstwinners->setCurrentRow(-1);
}

// The journals are asked again: another computer may have paid the winner since the list was made.
bool PayDesk::mayPay(QListWidgetItem *item)
{
    const auto index = indexOf(item);
    const CashJournal journal = readCashJournal(m_context.session);
    const auto paid = paidBefore(journal, m_ledger, m_context.session.payoffs.race);
    const auto before = paid.find(index);
    if (before == paid.end())
        return true;
    PaidList::mark(item, paidText(*before));
    return askYesNoCarefully(this, payAgainQuestion(*before, m_ledger.payment(index).cash()),
                             u"Pay winners"_s);
}

void PayDesk::undoPayment()
{
    Session &session = m_context.session;
    const CashJournal journal = readCashJournal(session);
    const CashEntry *last = lastPayment(journal, computerName(session));
    if (!last)
        return lblnote->warn(u"There is no payment of this computer to take back."_s);
    if (!askYesNoCarefully(this, takeBackQuestion(*last), u"Pay winners"_s))
        return;
    takeBack(session, *last);
    lblnote->setText(formatMoney(dollarsOf(last->dollars)) + u" of "_s + last->name
                     + u" is taken back: put it into the till."_s);
    if (last->race == session.payoffs.race)
        listAgain(*last);
}

// Whose payment was taken back is to be paid again.
void PayDesk::listAgain(const CashEntry &payment)
{
    const auto &winners = m_ledger.winners();
    const auto found = std::ranges::find(winners, payment.bettor, &WinningBettor::number);
    const auto index = std::size_t(found - winners.begin());
    if (payment.kind == CashKind::Paid && found != winners.end() && m_ledger.isPaid(index)) {
        m_ledger.takeBack(index);
        int row = 0;
        while (row < lstwinners->count() && indexOf(lstwinners->item(row)) < index)
            ++row;
        lstwinners->insertItem(row, makeWinner(index, payment.name));
        m_lastPaid.clear();
        m_lastAmount.clear();
    }
    markPaid();
    showPaidTotals();
    showToPay();
}

// PAY is the sum of whoever is selected, PAID that of the bettor paid last.
void PayDesk::showToPay()
{
    const QListWidgetItem *item = selectedWinner();
    const bool isPaid = !item && !m_lastPaid.isEmpty();
    lbltotalr->setText(isPaid ? u"PAID"_s : u"PAY"_s);
    txttotalr->setText(item ? formatMoney(m_ledger.payment(indexOf(item)).rounded, "Currency")
                            : m_lastAmount);
    txtwinnername->setText(item ? item->text() : m_lastPaid);
    txtwinnername->setCursorPosition(0);
}

void PayDesk::showPayment(const QString &name, const Payment &payment)
{
    for (const Combination combination : allCombinations)
        payoffs->setText(combination, formatMoney(payment.amount(combination), "Currency"));
    const double totals[] = {payment.horseTotals[0], payment.horseTotals[1], payment.horseTotals[2],
                             payment.total};
    const auto fields = totalFields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i]->setText(formatMoney(totals[i], "Currency"));
    lblpays->setText(u"AMOUNTS FOR "_s + name);
    setTotalCaptions(u"AMOUNT BY HORSE"_s,
                     {u"Win horse"_s, u"Place horse"_s, u"Show horse"_s, u"Total"_s});
    txtfactor->setText(roundingText(m_context.session.settings.roundingIndex));
    m_lastPaid = name;
    m_lastAmount = formatMoney(payment.rounded, "Currency");
    showPaidTotals();
}

void PayDesk::keepSlip(std::size_t index, const QString &name)
{
    const Session &session = m_context.session;
    std::array<QString, finishCount> numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = session.horses.post(session.payoffs.finishers[i]).number;
    m_ledger.addSlip(index, winnerSlipLines(name, session.settings.bannerAndRace(), numbers,
                                            m_ledger.payment(index)));
}

void PayDesk::showPaidTotals()
{
    txtpaid->setText(formatMoney(m_ledger.paid(), "Currency"));
    txtrounded->setText(formatMoney(m_ledger.paidRounded(), "Currency"));
    lblowed->setText(u"%1 of %2 to pay\nOwed %3, rounded %4"_s.arg(m_ledger.unpaidCount())
                         .arg(m_ledger.winners().size())
                         .arg(formatMoney(m_ledger.owed(), "Currency"),
                              formatMoney(m_ledger.owedRounded(), "Currency")));
}

Printed PayDesk::printSlips()
{
    const Slip slip = winnerSlips(m_ledger.slips());
    if (slip.lines.isEmpty())
        return {};
    return printOrList(this, m_context, {u"Pay winners"_s}, slip, u"The list of payoff slips"_s);
}
