#include "payoff/frmanyb.h"

#include "common/event/bettors.h"
#include "common/event/session.h"
#include "common/event/slippayoff.h"
#include "common/print/format.h"
#include "ui/controls.h"
#include "ui/noteline.h"

#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString dollars(double amount)
{
    return formatMoney(amount, "Currency");
}

} // namespace

frmanyb::frmanyb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    resize(640, 520);
    clearAll();
}

void frmanyb::build()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, {});
    txtwinnername = makeDisplay(this, u"txtwinnername"_s);
    txtwinnername->setText(anyBettorName());
    txtwinnername->setAccessibleName(u"Bettor"_s);
    enlarge(txtwinnername, 1.4);
    QLabel *lblhelp = makeHeading(this, u"lblhelp"_s,
                                  u"*** PROGRAM DOES NOT USE THESE PAYOFFS TO \nCALCULATE PAYOFF "
                                  "TOTALS***"_s);

    auto *head = new QHBoxLayout;
    head->addWidget(txtwinnername, 1);
    head->addWidget(lblhelp);
    auto *totals = new QHBoxLayout;
    QGroupBox *slip = buildSlip();
    totals->addWidget(buildBettor(), 1);
    totals->addWidget(buildGrandTotals(), 1);
    cmdclear = makeButton(this, u"cmdclear"_s, u"Clear"_s,
                          u"Clear all amounts on this screen and start over"_s);
    cmdreturn =
        makeButton(this, u"cmdreturn"_s, u"Return to Payoff"_s, u"Return to the payoff screen"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdclear);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    lblnote = makeNoteLine(this);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addLayout(head);
    layout->addWidget(slip);
    layout->addLayout(totals);
    layout->addStretch();
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QGroupBox *frmanyb::buildSlip()
{
    auto *box = new QGroupBox(u"Amounts bet on this slip"_s, this);
    auto *grid = new QGridLayout(box);
    const QString headings[] = {u"HORSE"_s, u"WIN"_s, u"PLACE"_s, u"SHOW"_s, u"TOTAL$"_s};
    for (int column = 0; column < 5; ++column)
        grid->addWidget(makeHeading(box, {}, headings[column]), 0, column,
                        column == 0 ? Qt::AlignLeft : Qt::AlignRight);

    const auto horse = [&](const QString &name, const QString &toolTip, const QString &meaning) {
        QLineEdit *field = makeDisplay(box, name, toolTip);
        field->setAccessibleName(meaning);
        return field;
    };
    const auto amount = [&](const QString &name, const QString &meaning) {
        QLineEdit *field = makeField(box, name);
        field->setAccessibleName(meaning);
        field->setAlignment(Qt::AlignRight);
        fitCharacters(field, 9);
        field->installEventFilter(this);
        return field;
    };
    txtwinhorse = horse(u"txtwinhorse"_s, u"WINNING or first place player/team"_s, u"Win horse"_s);
    txtplacehorse =
        horse(u"txtplacehorse"_s, u"PLACE or second place player/team"_s, u"Place horse"_s);
    txtshowhorse = horse(u"txtshowhorse"_s, u"SHOW or third place player/team"_s, u"Show horse"_s);
    txtwinwin = amount(u"txtwinwin"_s, u"Win horse to win"_s);
    txtwinplace = amount(u"txtwinplace"_s, u"Win horse to place"_s);
    txtwinshow = amount(u"txtwinshow"_s, u"Win horse to show"_s);
    txtplaceplace = amount(u"txtplaceplace"_s, u"Place horse to place"_s);
    txtplaceshow = amount(u"txtplaceshow"_s, u"Place horse to show"_s);
    txtshowshow = amount(u"txtshowshow"_s, u"Show horse to show"_s);
    txtwintotal = makeTotal(box, u"txtwintotal"_s, u"Payoff of the win horse"_s, {}, 1.1);
    txtplacetotal = makeTotal(box, u"txtplacetotal"_s, u"Payoff of the place horse"_s, {}, 1.1);
    txtshowtotal = makeTotal(box, u"txtshowtotal"_s, u"Payoff of the show horse"_s, {}, 1.1);
    txttotaltotal = makeTotal(box, u"txttotaltotal"_s, u"TOTAL - THIS SLIP"_s, {}, 1.3);
    cmdcalc = makeButton(box, u"cmdcalc"_s, u"Calculate Payoff"_s,
                         u"Calculate payoffs using the anybettor payoff for the amounts entered"_s);

    const std::array<std::array<QWidget *, 5>, 3> rows{{
        {txtwinhorse, txtwinwin, txtwinplace, txtwinshow, txtwintotal},
        {txtplacehorse, nullptr, txtplaceplace, txtplaceshow, txtplacetotal},
        {txtshowhorse, nullptr, nullptr, txtshowshow, txtshowtotal},
    }};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 5; ++column) {
            if (QWidget *field = rows[std::size_t(row)][std::size_t(column)])
                grid->addWidget(field, row + 1, column);
        }
    }
    grid->addWidget(cmdcalc, 4, 0);
    grid->addWidget(makeHeading(box, {}, u"TOTAL - THIS SLIP"_s), 4, 1, 1, 3, Qt::AlignRight);
    grid->addWidget(txttotaltotal, 4, 4);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(4, 2);
    return box;
}

QGroupBox *frmanyb::buildBettor()
{
    auto *box = new QGroupBox(u"This bettor"_s, this);
    cmdadd = makeButton(box, u"cmdadd"_s, u"Add to Bettor's Total"_s,
                        u"Keep a running total of the payoff for this bettor"_s);
    txttotalbet = makeTotal(box, u"txttotalbet"_s, u"TOTAL BET"_s);
    txtfactor = makeDisplay(box, u"txtfactor"_s);
    txtfactor->setAccessibleName(u"Round Factor"_s);
    txtfactor->setAlignment(Qt::AlignRight);
    txttotaldue = makeTotal(box, u"txttotaldue"_s, u"PAID ROUNDED"_s, {}, 1.5);
    cmdpay = makeButton(box, u"cmdpay"_s, u"Pay This Bettor"_s,
                        u"Add this bettors total to the grand total and clear intermediate "
                        "totals"_s);
    auto *grid = new QGridLayout(box);
    grid->addWidget(cmdadd, 0, 0, 1, 2);
    grid->addWidget(makeLabel(box, {}, u"TOTAL BET"_s), 1, 0);
    grid->addWidget(txttotalbet, 1, 1);
    grid->addWidget(makeLabel(box, {}, u"Round Factor"_s), 2, 0);
    grid->addWidget(txtfactor, 2, 1);
    grid->addWidget(makeHeading(box, {}, u"PAID ROUNDED"_s), 3, 0);
    grid->addWidget(txttotaldue, 3, 1);
    grid->addWidget(cmdpay, 4, 0, 1, 2);
    grid->setRowStretch(5, 1);
    return box;
}

QGroupBox *frmanyb::buildGrandTotals()
{
    auto *box = new QGroupBox(u"GRAND TOTAL PAID"_s, this);
    txttotalpaid = makeTotal(box, u"txttotalpaid"_s, u"ALLSLIPS"_s, {}, 1.8);
    txtpaidr = makeTotal(box, u"txtpaidr"_s, u"ALLSLIPS ROUNDED"_s, {}, 2.2);
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(makeLabel(box, {}, u"ALLSLIPS"_s));
    layout->addWidget(txttotalpaid);
    layout->addWidget(makeLabel(box, {}, u"ALLSLIPS ROUNDED"_s));
    layout->addWidget(txtpaidr);
    layout->addStretch();
    return box;
}

void frmanyb::connectControls()
{
    for (QLineEdit *field : amountFields())
        connect(field, &QLineEdit::returnPressed, this, &frmanyb::calculate);
    connect(cmdcalc, &QPushButton::clicked, this, &frmanyb::calculate);
    connect(cmdadd, &QPushButton::clicked, this, &frmanyb::addSlip);
    connect(cmdpay, &QPushButton::clicked, this, &frmanyb::payBettor);
    connect(cmdclear, &QPushButton::clicked, this, &frmanyb::clearAll);
    connect(cmdreturn, &QPushButton::clicked, this, [this] {
        close();
        if (QWidget *program = parentWidget())
            program->activateWindow();
    });
}

std::array<QLineEdit *, combinationCount> frmanyb::amountFields() const
{
    return {txtwinwin, txtwinplace, txtwinshow, txtplaceplace, txtplaceshow, txtshowshow};
}

void frmanyb::clearAll()
{
    m_totals = {};
    lblnote->clear();
    showRace();
    clearSlip();
    showTotals();
    txtwinwin->setFocus();
}

// The pay-winners screen may have gone on to another race meanwhile.
void frmanyb::showRace()
{
    const Session &session = m_context.session;
    txtfactor->setText(roundingText(session.settings.roundingIndex));
    txtbanner->setText(session.settings.bannerAndRace());
    const RacePayoffs &payoffs = session.payoffs;
    QLineEdit *const fields[] = {txtwinhorse, txtplacehorse, txtshowhorse};
    for (std::size_t place = 0; place < payoffs.finishers.size(); ++place) {
        const int post = payoffs.finishers[place];
        fields[place]->setText(post > 0 ? session.horses.post(post).name : QString());
    }
    if (!payoffs.isCalculated())
        lblnote->warn(u"The pay-winners screen has no payoffs now: nothing is paid"_s);
}

void frmanyb::clearSlip()
{
    for (QLineEdit *field : amountFields())
        field->setText(u"0"_s);
    for (QLineEdit *field : {txtwintotal, txtplacetotal, txtshowtotal, txttotaltotal})
        field->setText(dollars(0));
}

void frmanyb::showTotals()
{
    txttotalbet->setText(dollars(m_totals.bettor));
    txttotaldue->setText(dollars(m_totals.bettorRounded));
    txttotalpaid->setText(dollars(m_totals.grand));
    txtpaidr->setText(dollars(m_totals.grandRounded));
}

void frmanyb::calculate()
{
    lblnote->clear();
    showRace();
    SlipAmounts amounts{};
    const auto fields = amountFields();
    for (std::size_t i = 0; i < amounts.size(); ++i)
        amounts[i] = numericValue(fields[i]->text());
    const SlipPayoff payoff = slipPayoff(amounts, m_context.session.payoffs.perDollar);
    txtwintotal->setText(dollars(payoff.horseTotals[0]));
    txtplacetotal->setText(dollars(payoff.horseTotals[1]));
    txtshowtotal->setText(dollars(payoff.horseTotals[2]));
    txttotaltotal->setText(dollars(payoff.total));
    m_totals.slip = payoff.total;
}

void frmanyb::addSlip()
{
    if (m_totals.slip == 0)
        lblnote->warn(u"No new slip was calculated: nothing is added"_s);
    else
        lblnote->setText(u"Added: "_s + dollars(m_totals.slip));
    m_totals.addSlip(m_context.session.settings.roundingIndex);
    showTotals();
}

void frmanyb::payBettor()
{
    const bool isLeftOut = m_totals.slip != 0;
    lblnote->setText(
        u"Paid: "_s + dollars(m_totals.bettorRounded)
            + (isLeftOut ? u"; not added and not paid: "_s + dollars(m_totals.slip) : QString()),
        isLeftOut ? NoteKind::Warning : NoteKind::Plain);
    paySlips(m_context.session, m_totals);
    clearSlip();
    showTotals();
    txtwinwin->setFocus();
}

// A field that is entered is replaced by what is typed.
bool frmanyb::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        if (auto *field = qobject_cast<QLineEdit *>(object))
            QTimer::singleShot(0, field, &QLineEdit::selectAll);
    }
    return QWidget::eventFilter(object, event);
}
