#include "multibets/frmpaymulti.h"

#include "common/event/bettypes.h"
#include "common/event/eventrecords.h"
#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "multibets/legs.h"
#include "multibets/multipaying.h"
#include "multibets/multislips.h"
#include "multibets/parts/typebuttons.h"
#include "ui/clickcell.h"
#include "ui/controls.h"
#include "ui/listkeys.h"
#include "ui/noteline.h"
#include "ui/paidlist.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr char twoDigitDollars[] = "$#,#00.00";

} // namespace

frmpaymulti::frmpaymulti(const ScreenContext &context)
    : MultibetScreen(context)
{
    build();
    connectControls();
    fill();
}

void frmpaymulti::build()
{
    QVBoxLayout *layout = buildHead();
    layout->addWidget(buildTypeAndGrid());
    auto *below = new QHBoxLayout;
    below->addWidget(buildFigures(), 1);
    below->addWidget(buildWinners(), 1);
    layout->addLayout(below, 1);
    lblnote = makeNoteLine(this);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QWidget *frmpaymulti::buildTypeAndGrid()
{
    auto *box = new QGroupBox(u"Bet Type and Winning Post Numbers"_s, this);
    makeTypes(box);
    makeGrid(PostGrid::Selection::OnePerLine, box,
             {u"Click on the winning post number"_s, u"Click on the place post number"_s,
              u"Click on the show post number"_s});
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(m_types);
    layout->addWidget(m_grid);
    return box;
}

QWidget *frmpaymulti::buildFigures()
{
    auto *box = new QGroupBox(u"Pool and Payoff"_s, this);
    cmdenterwin = makeButton(box, u"cmdenterwin"_s, u"FIND WINNERS"_s,
                             u"Click to display a list of winning bettors"_s);
    enlarge(cmdenterwin, 1.3);
    txtpercent = makeCell(box, u"txtpercent"_s,
                          u"Click to increase the house pct by 1% - double click to set to 0"_s);
    txtpool = makeDisplay(box, u"txtpool"_s);
    txthouse = makeDisplay(box, u"txthouse"_s,
                           u"Total $ for the house cut (house percent times total pool"_s);
    txttpay = makeDisplay(box, u"txttpay"_s, u"Total paid minus the house cut"_s);
    txttotal = makeDisplay(box, u"txttotal"_s);
    txtpay = makeDisplay(box, u"txtpay"_s);
    QLabel *lblhelp = makeLabel(box, u"lblhelp"_s,
                                u">Click on a race\n>Click on a bet type\n>Click on the winning \n"
                                "Horse Numbers\n>Click Find Winners\n>Click on another bet type"_s);

    auto *grid = new QGridLayout(box);
    grid->setContentsMargins(10, 8, 10, 6);
    grid->setVerticalSpacing(10);
    grid->addWidget(cmdenterwin, 0, 0, 1, 2);
    const std::pair<QString, QWidget *> figures[] = {{u"House Percent"_s, txtpercent},
                                                     {u"Total Pool"_s, txtpool},
                                                     {u"House Cut"_s, txthouse},
                                                     {u"Total Paid"_s, txttpay}};
    int row = 1;
    for (const auto &[text, field] : figures) {
        field->setAccessibleName(text);
        QLabel *label = makeLabel(box, {}, text);
        label->setBuddy(field);
        enlarge(label, 1.1);
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row++, 1);
        enlarge(field, 1.3);
    }
    txtpay->setAccessibleName(u"Payoff or refund"_s);
    enlarge(txttotal, 1.8);
    enlarge(txtpay, 1.8);
    grid->addWidget(txttotal, row, 0);
    grid->addWidget(txtpay, row++, 1);
    txtpercent->setAlignment(Qt::AlignRight);
    for (QLineEdit *field : {txtpool, txthouse, txttpay, txtpay})
        field->setAlignment(Qt::AlignRight);
    grid->setRowStretch(row++, 1);
    grid->addWidget(lblhelp, row, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return box;
}

QWidget *frmpaymulti::buildWinners()
{
    auto *box = new QGroupBox(u"WINNERS"_s, this);
    lstbets = new PaidList(box);
    lstbets->setObjectName(u"lstbets"_s);
    lstbets->setAccessibleName(u"WINNERS"_s);
    enlarge(lstbets, 1.2);
    cmdpaid = makeButton(box, u"cmdpaid"_s, u"Mark as Paid"_s,
                         u"The selected ticket is paid, or its stake given back"_s);
    cmdprint = makeButton(box, u"cmdprint"_s, u"PRINT"_s, u"Print the list of winning bettors"_s);
    cmdreturn = makeButton(box, u"cmdreturn"_s, u"RETURN"_s, u"Return to the multibets screen"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdpaid);
    buttons->addWidget(cmdprint);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lstbets, 1);
    layout->addLayout(buttons);
    return box;
}

void frmpaymulti::connectControls()
{
    connect(m_races, &QButtonGroup::idClicked, this, &frmpaymulti::chooseRace);
    connect(m_types, &TypeButtons::clicked, this, &frmpaymulti::chooseType);
    connect(txtpercent, &ClickCell::clicked, this,
            [this] { setHousePercent(m_context.session.multibetHousePercent + 1); });
    connect(txtpercent, &ClickCell::doubleClicked, this, [this] { setHousePercent(0); });
    auto *zero =
        new QShortcut(QKeySequence(Qt::Key_0), txtpercent, nullptr, nullptr, Qt::WidgetShortcut);
    connect(zero, &QShortcut::activated, this, [this] { setHousePercent(0); });
    connect(cmdenterwin, &QPushButton::clicked, this, &frmpaymulti::findWinners);
    pressOnEnter(lstbets, [this] { return cmdpaid; });
    connect(cmdpaid, &QPushButton::clicked, this, &frmpaymulti::paySelected);
    connect(cmdprint, &QPushButton::clicked, this, &frmpaymulti::printList);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frmmulti"_s); });
}

void frmpaymulti::fill()
{
    txtbanner->setText(m_context.session.settings.bannerAndRace());
    setHousePercent(m_context.session.multibetHousePercent);
    clearOutputs();
    m_races->button(1)->setFocus();
}

void frmpaymulti::entered()
{
    trapErrors(this, ErrorStyle::DescriptionOnly, [this] {
        m_context.session.bettors = readBettors(m_context.session, u"Bettors Input"_s);
    });
}

void frmpaymulti::chooseRace(int race)
{
    showRace(race);
    m_grid->clearSelection();
    clearOutputs();
    lblnote->warn(showLegs().note);
}

// The finish stays selected from one bet type to the next, as long as the lines mean the same.
void frmpaymulti::chooseType(const QString &code)
{
    const MultibetType *before = multibetType(m_types->type());
    const MultibetType *type = takeType(code);
    if (!type)
        return;
    if (before && before->races != type->races)
        m_grid->clearSelection();
    clearOutputs();
    if (m_races->checkedId() > 0)
        lblnote->warn(showLegs().note);
    if (!type->races)
        m_grid->dropRepeats(); // posts that were clicked before the type
}

void frmpaymulti::setHousePercent(int percent)
{
    m_context.session.multibetHousePercent = percent;
    txtpercent->setText(QString::number(percent));
    txtpercent->setAccessibleName("House Percent, "_L1 + txtpercent->text());
}

void frmpaymulti::clearOutputs()
{
    lstbets->clear();
    showSettlement({});
    lblnote->clear();
}

void frmpaymulti::findWinners()
{
    const MultibetType *type = multibetType(m_types->type());
    if (!type)
        return showMessage(this, u"Must select bet type first"_s);
    clearOutputs();
    const std::array<int, 3> winners{winnerOf(0), winnerOf(1), type->lines == 3 ? winnerOf(2) : 0};
    Session &session = m_context.session;
    MultibetSettlement settled;
    const bool read = trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        settled =
            settleMultibets(readMultibets(session, session.settings.currentRace, u"Multibets"_s),
                            session.bettors, type->code, winners, session.multibetHousePercent);
    });
    if (!read)
        return;
    recordMultibetSettlement(session, *type, winners, settled);
    showSettlement(settled);
    lblnote->warn(missingWinners(*type));
    if (settled.outcome == MultibetSettlement::Outcome::NoBets)
        showMessage(this, u"No bets on this bet type"_s);
}

int frmpaymulti::winnerOf(int line) const
{
    const QList<int> posts = m_grid->selectedPosts(line);
    return posts.isEmpty() ? 0 : posts.last();
}

QString frmpaymulti::missingWinners(const MultibetType &type) const
{
    if (m_races->checkedId() < 0)
        return "No race was clicked: these are the multibets of"_L1
               + m_context.session.settings.raceName();
    QStringList lines;
    for (int line = 0; line < type.lines; ++line) {
        if (winnerOf(line) == 0)
            lines.append(QString::number(line + 1));
    }
    return lines.isEmpty() ? QString()
                           : "No winning post is selected on line "_L1 + lines.join(u", "_s);
}

void frmpaymulti::showSettlement(const MultibetSettlement &settled)
{
    const bool refund = settled.outcome == MultibetSettlement::Outcome::Refund;
    const bool won = settled.outcome == MultibetSettlement::Outcome::Winners;
    txttotal->setText(refund ? u"Refund Total"_s : u"$1 Ticket Pays"_s);
    txtpay->setText(formatMoney(refund ? settled.pool : settled.payPerDollar));
    txtpool->setText(won ? formatMoney(settled.pool, twoDigitDollars) : u"$0.00"_s);
    txthouse->setText(won ? formatMoney(settled.houseCut, twoDigitDollars) : u"$0.00"_s);
    txttpay->setText(won ? formatMoney(settled.net) : u"$0.00"_s);
    for (const QString &line : settled.lines)
        lstbets->addItem(PaidList::makeLine(line));
    m_payments = settled.payments;
    markPaid();
}

// Ticks the tickets that were paid before, on whatever computer.
void frmpaymulti::markPaid()
{
    if (m_payments.isEmpty())
        return;
    Session &session = m_context.session;
    const auto before =
        paidBefore(readCashJournal(session), session.settings.currentRace, m_payments);
    const auto first = lstbets->count() - int(m_payments.size());
    for (int i = 0; i < int(before.size()); ++i) {
        if (before[i])
            PaidList::mark(lstbets->item(first + i), paidText(*before[i]));
    }
}

void frmpaymulti::paySelected()
{
    Session &session = m_context.session;
    const auto place = lstbets->currentRow() - (lstbets->count() - m_payments.size());
    if (lstbets->selectedItems().isEmpty() || place < 0)
        return lblnote->warn(u"Select the line of a ticket first."_s);
    const MultibetPayment payment = m_payments[place];
    const auto before =
        paidBefore(readCashJournal(session), session.settings.currentRace, m_payments)[place];
    if (before
        && !askYesNoCarefully(this,
                              payAgainQuestion(*before, wholeCents(exactMoney(payment.dollars))),
                              u"Paymulti"_s))
        return markPaid();
    payTicket(session, payment);
    markPaid();
    lblnote->setText(u"Paid "_s + formatMoney(payment.dollars) + u" to "_s + payment.name + u'.');
}

void frmpaymulti::printList()
{
    const MultibetResult result{m_types->type(), listLines(lstbets), txthouse->text(),
                                txttpay->text(), txtpool->text(),    txtpay->text()};
    const Slip slip = multibetWinnersSlip(m_context.session.settings.banner, result);
    if (const auto printed = printAskedCopies(this, m_context, listCopiesQuestion(), slip))
        tellPrinted(lblnote, *printed);
}
