#include "payoff/frmpaywinnersb.h"

#include "common/format.h"
#include "common/racefiles.h"
#include "payoff/payrace.h"
#include "ui/controls.h"
#include "ui/listing.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"
#include "ui/ticketgrid.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

using enum Ticket;

namespace {

constexpr char poolFormat[] = "$#,##0.00";

QString horseText(const Horse &horse)
{
    return isUnused(horse) ? u"(no horse)"_s : QString(horse.number + u' ' + horse.name);
}

QListWidgetItem *selectedItem(const QListWidget *list)
{
    const auto selected = list->selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

QListWidget *makeList(QWidget *parent, const QString &name, const QString &accessibleName)
{
    auto *list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    QFont font = list->font();
    font.setPointSizeF(font.pointSizeF() * 1.15);
    list->setFont(font);
    list->setMinimumHeight(list->fontMetrics().height() * 6);
    return list;
}

// A text of the operator's own must not widen the screen.
void ignoreTextWidth(QLabel *label)
{
    label->setSizePolicy(QSizePolicy::Ignored, label->sizePolicy().verticalPolicy());
}

} // namespace

frmpaywinnersb::frmpaywinnersb(const ScreenContext &context)
    : m_context(context)
{
    makeFields();
    makeButtons();
    build();
    connectControls();
    lsthorses->setFocus();
    QTimer::singleShot(0, this, &frmpaywinnersb::showRace);
}

void frmpaywinnersb::makeFields()
{
    using Self = frmpaywinnersb;
    enum Kind { Post, Amount, Text };
    const struct
    {
        QLineEdit *frmpaywinnersb::*field;
        QString name;
        QString toolTip;
        Kind kind;
        double size;
    } fields[] = {
        {&Self::txthorse, u"txthorse"_s, u"The horse selected in the list"_s, Text, 1.1},
        {&Self::txtwinhorse, u"txtwinhorse"_s, u"Post position of the win horse"_s, Post, 1.2},
        {&Self::txtplacehorse, u"txtplacehorse"_s, u"Post position of the place horse"_s, Post,
         1.2},
        {&Self::txtshowhorse, u"txtshowhorse"_s, u"Post position of the show horse"_s, Post, 1.2},
        {&Self::txthousetot, u"txthousetot"_s, u"House cut in dollars"_s, Amount, 1},
        {&Self::txtwintotal, u"txtwintotal"_s, {}, Amount, 1.1},
        {&Self::txtplacetotal, u"txtplacetotal"_s, {}, Amount, 1.1},
        {&Self::txtshowtotal, u"txtshowtotal"_s, {}, Amount, 1.1},
        {&Self::txttotaltotal, u"txttotaltotal"_s, {}, Amount, 1.1},
        {&Self::txtbet, u"txtbet"_s, u"Total amount bet on this event"_s, Amount, 1.3},
        {&Self::txtpaid, u"txtpaid"_s, u"Total amount paid to winners so far"_s, Amount, 1.3},
        {&Self::txtrounded, u"txtrounded"_s, u"Total rounded amount paid to winners so far"_s,
         Amount, 1.3},
        {&Self::txtfactor, u"txtfactor"_s, u"Rounding factor of the setup screen"_s, Amount, 1},
        {&Self::txtwinnername, u"txtwinnername"_s, u"The bettor paid last"_s, Text, 1.2},
        {&Self::txttotalr, u"txttotalr"_s,
         u"Rounded payoff based on rounding factor on setup screen"_s, Amount, 2},
    };
    for (const auto &row : fields) {
        QLineEdit *field = makeDisplay(this, row.name, row.toolTip);
        this->*row.field = field;
        field->setAccessibleName(row.toolTip);
        if (row.size > 1)
            enlarge(field, row.size);
        if (row.kind == Amount)
            field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (row.kind == Post) {
            field->setAlignment(Qt::AlignCenter);
            fitCharacters(field, 3);
        }
    }
    txthousepct = makeField(this, u"txthousepct"_s, u"House percentage taken from the payoffs"_s);
    txthousepct->setAccessibleName(u"House percentage"_s);
    txthousepct->setMaxLength(8);
    fitCharacters(txthousepct, 6);
    fitCharacters(txtfactor, 5);
    payoffs = new TicketGrid(1.5, this);
    txtbanner = makeBanner(this, u"txtbanner"_s, {});
    lsthorses = makeList(this, u"lsthorses"_s, u"Horses of the race"_s);
    lstwinners = makeList(this, u"lstwinners"_s, u"WINNING BETTORS"_s);
    lblnote = makeNoteLine(this);
}

void frmpaywinnersb::makeButtons()
{
    using Self = frmpaywinnersb;
    const struct
    {
        QPushButton *frmpaywinnersb::*button;
        QString name;
        QString caption;
        QString toolTip;
    } buttons[] = {
        {&Self::cmdwinner, u"cmdwinner"_s, u"ENTER WINNER"_s,
         u"The selected horse came in first"_s},
        {&Self::cmdplace, u"cmdplace"_s, u"ENTER PLACE"_s, u"The selected horse came in second"_s},
        {&Self::cmdshow, u"cmdshow"_s, u"ENTER SHOW"_s, u"The selected horse came in third"_s},
        {&Self::cmdpayoff, u"cmdpayoff"_s, u"CALCULATE  PAYOFF"_s,
         u"Calculate the payoffs and list the winning bettors"_s},
        {&Self::cmd532, u"cmd532"_s, u"CALCULATE 532  PAYOFF"_s,
         u"Split the win pool alone, 50, 30 and 20 percent"_s},
        {&Self::cmdtrack, u"cmdtrack"_s, u"USE TRACK PAYOFF"_s,
         u"Use the $2 payoffs typed into all six payoff fields"_s},
        {&Self::cmdusing, u"cmdusing"_s, u"USING TRACK PAYOFFS"_s,
         u"Select the race again to end the use of the track's payoffs"_s},
        {&Self::cmdpay, u"cmdpay"_s, u"PAY WINNER"_s,
         u"Calculate payoff amount, remove name from winner list"_s},
        {&Self::cmdreturn, u"cmdreturn"_s, u"MAIN MENU"_s, u"Return to the main menu"_s},
    };
    for (const auto &row : buttons)
        this->*row.button = makeButton(this, row.name, row.caption, row.toolTip);
    enlarge(cmdusing, 1);
    enlarge(cmdpay, 1.1);
    enlarge(cmdreturn, 1.1);
    QSizePolicy keepsPlace = cmdusing->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    cmdusing->setSizePolicy(keepsPlace);
}

void frmpaywinnersb::build()
{
    const RaceOptions races = makeRaceOptions(this, u"Race whose winners are paid"_s);
    optrace = races.group;
    auto *middle = new QVBoxLayout;
    middle->addWidget(buildPayoffs(), 1);
    middle->addWidget(buildTotals());
    auto *columns = new QHBoxLayout;
    columns->addWidget(buildFinish(), 28);
    columns->addLayout(middle, 46);
    columns->addWidget(buildWinners(), 26);
    auto *foot = new QHBoxLayout;
    foot->addLayout(buildGuidance(), 1);
    foot->addSpacing(12);
    foot->addWidget(cmdreturn, 0, Qt::AlignBottom);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->setSpacing(4);
    layout->addWidget(txtbanner);
    layout->addWidget(races.frame);
    layout->addLayout(columns, 1);
    layout->addLayout(foot);
    layout->addWidget(lblnote);

    QWidget *before = optrace->button(raceCount);
    for (QWidget *next : std::initializer_list<QWidget *>{
             lsthorses, cmdwinner, cmdplace, cmdshow, txthousepct, cmdpayoff, cmd532, cmdtrack,
             cmdusing, payoffs->field(WinWin), payoffs->field(WinPlace), payoffs->field(WinShow),
             payoffs->field(PlacePlace), payoffs->field(PlaceShow), payoffs->field(ShowShow),
             lstwinners, cmdpay, cmdreturn}) {
        setTabOrder(before, next);
        before = next;
    }
    assignAltLetters(this);
}

QWidget *frmpaywinnersb::buildFinish()
{
    auto *group = new QGroupBox(u"Finish"_s, this);
    auto *grid = new QGridLayout;
    QPushButton *const buttons[] = {cmdwinner, cmdplace, cmdshow};
    for (int i = 0; i < finishCount; ++i) {
        QLabel *label = makeHeading(group, memberName(u"lblfinish"_s, i + 1), {});
        label->setWordWrap(true);
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QString(12, u'n')));
        ignoreTextWidth(label);
        lblfinish[std::size_t(i)] = label;
        grid->addWidget(buttons[i], i, 0);
        grid->addWidget(finishFields()[std::size_t(i)], i, 1);
        grid->addWidget(label, i, 2);
    }
    grid->setColumnStretch(2, 1);

    auto *layout = new QVBoxLayout(group);
    layout->addWidget(txthorse);
    layout->addWidget(lsthorses, 1);
    layout->addLayout(grid);
    return group;
}

QWidget *frmpaywinnersb::buildPayoffs()
{
    auto *group = new QGroupBox(u"Payoffs"_s, this);
    auto *house = new QHBoxLayout;
    QLabel *percent = makeLabel(group, u"lblhousepct"_s, u"House percentage"_s);
    percent->setBuddy(txthousepct);
    house->addWidget(percent);
    house->addWidget(txthousepct);
    house->addWidget(makeLabel(group, u"lblpercent"_s, u"%"_s));
    house->addSpacing(12);
    house->addWidget(makeLabel(group, u"lblhousetot"_s, u"House cut"_s));
    house->addWidget(txthousetot, 1);
    auto *buttons = new QGridLayout;
    buttons->addWidget(cmdpayoff, 0, 0);
    buttons->addWidget(cmd532, 0, 1);
    buttons->addWidget(cmdtrack, 1, 0);
    buttons->addWidget(cmdusing, 1, 1);

    lblpays = makeHeading(group, u"lblpays"_s, {});
    enlarge(lblpays, 1.15);
    ignoreTextWidth(lblpays);
    auto *totals = new QGridLayout;
    lbltotals = makeHeading(group, u"lbltotals"_s, {});
    totals->addWidget(lbltotals, 0, 0, 1, 4);
    for (int i = 0; i < finishCount + 1; ++i) {
        QLabel *label = makeLabel(group, memberName(u"lbltotal"_s, i + 1), {});
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        lbltotal[std::size_t(i)] = label;
        totals->addWidget(label, 1, i);
        totals->addWidget(totalFields()[std::size_t(i)], 2, i);
    }

    auto *layout = new QVBoxLayout(group);
    layout->addLayout(house);
    layout->addLayout(buttons);
    layout->addStretch();
    layout->addWidget(lblpays);
    layout->addWidget(payoffs);
    layout->addStretch();
    layout->addLayout(totals);
    return group;
}

QWidget *frmpaywinnersb::buildTotals()
{
    auto *group = new QGroupBox(u"Race totals"_s, this);
    auto *grid = new QGridLayout(group);
    const QString captions[] = {u"$BET"_s, u"$PAID"_s, u"$PAID ROUNDED"_s};
    QLineEdit *const fields[] = {txtbet, txtpaid, txtrounded};
    for (int i = 0; i < 3; ++i) {
        QLabel *label = makeHeading(group, memberName(u"lblsum"_s, i + 1), captions[i]);
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid->addWidget(label, 0, i);
        grid->addWidget(fields[i], 1, i);
    }
    return group;
}

QWidget *frmpaywinnersb::buildWinners()
{
    auto *group = new QGroupBox(u"Pay"_s, this);
    lblowed = makeLabel(group, u"lblowed"_s, {}, {}, true);
    auto *factor = new QHBoxLayout;
    factor->addWidget(makeLabel(group, u"lblfactor"_s, u"Round factor"_s));
    factor->addWidget(txtfactor);
    factor->addStretch();
    auto *amount = new QHBoxLayout;
    amount->addWidget(makeHeading(group, u"lbltotalr"_s, u"PAY"_s));
    amount->addWidget(txttotalr, 1);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(makeHeading(group, u"lblwinners"_s, u"WINNING BETTORS"_s));
    layout->addWidget(lstwinners, 1);
    layout->addWidget(lblowed);
    layout->addWidget(cmdpay);
    layout->addLayout(factor);
    layout->addWidget(txtwinnername);
    layout->addLayout(amount);
    return group;
}

QLayout *frmpaywinnersb::buildGuidance()
{
    guidance = new QStackedWidget(this);
    const auto addPage = [this](const QString &name, const QStringList &texts) {
        auto *page = new QWidget(guidance);
        auto *lines = new QVBoxLayout(page);
        lines->setContentsMargins(0, 0, 0, 0);
        for (int i = 0; i < texts.size(); ++i)
            lines->addWidget(makeLabel(page, memberName(name, i + 1), texts[i], {}, true));
        lines->addStretch();
        guidance->addWidget(page);
    };
    addPage(
        u"lblstep"_s,
        {u"Click on the horse that won and on ENTER WINNER, then enter the place and show horses."_s,
         u"Type the house percentage, if there is one."_s,
         u"Click on CALCULATE  PAYOFF. For the track's payoffs, first type all six of them and click on USE TRACK PAYOFF."_s});
    addPage(
        u"lblguide"_s,
        {u"Click on a WINNING BETTOR from the WINNING BETTOR list"_s,
         u"Click on PAY WINNER to payoff the selected bettor"_s,
         u"Continue until all winning bettors are paid"_s,
         u"$BET should = $PAID, plus or minus a few cents because of rounding, when all bettors have been paid. When using track payoff, bets made versus bets paid will usually not be equal."_s});

    auto *layout = new QVBoxLayout;
    layout->addWidget(guidance);
    layout->addWidget(makeLabel(
        this, u"lblprint"_s,
        u"You can request printing of amounts bet and paid for all winning bettors when clicking Pay Winner. Printing will occur after clicking return to Main Menu."_s,
        {}, true));
    return layout;
}

void frmpaywinnersb::connectControls()
{
    connect(optrace, &QButtonGroup::idClicked, this, &frmpaywinnersb::selectRace);
    connect(cmdwinner, &QPushButton::clicked, this, [this] { enterFinisher(Finish::Win); });
    connect(cmdplace, &QPushButton::clicked, this, [this] { enterFinisher(Finish::Place); });
    connect(cmdshow, &QPushButton::clicked, this, [this] { enterFinisher(Finish::Show); });
    connect(lsthorses, &QListWidget::itemSelectionChanged, this,
            &frmpaywinnersb::showSelectedHorse);
    connect(txthousepct, &QLineEdit::returnPressed, this, [this] {
        showMessage(this, u"House percentage is "_s + txthousepct->text() + u" %"_s, u"Payoff"_s);
    });
    connect(cmdpayoff, &QPushButton::clicked, this, [this] { calculate(false); });
    connect(cmd532, &QPushButton::clicked, this, [this] {
        if (askYesNo(
                this,
                u"Use 532 Payoff for a 50,30,20 percent split of the win pool only - Use Calculate Payoff for a standard split"_s,
                u"532 Payoff"_s))
            calculate(true);
    });
    connect(cmdtrack, &QPushButton::clicked, this, &frmpaywinnersb::useTrackPayoffs);
    connect(cmdusing, &QPushButton::clicked, this, [this] {
        lblnote->setText(
            u"The track's payoffs are used. Select the race again to end their use."_s);
    });
    connect(cmdpay, &QPushButton::clicked, this, &frmpaywinnersb::payWinner);
    connect(cmdreturn, &QPushButton::clicked, this, &frmpaywinnersb::leave);
}

std::array<QLineEdit *, finishCount> frmpaywinnersb::finishFields() const
{
    return {txtwinhorse, txtplacehorse, txtshowhorse};
}

std::array<QLineEdit *, finishCount + 1> frmpaywinnersb::totalFields() const
{
    return {txtwintotal, txtplacetotal, txtshowtotal, txttotaltotal};
}

void frmpaywinnersb::setTotalCaptions(const QString &heading,
                                      const std::array<QString, 4> &captions)
{
    lbltotals->setText(heading);
    const auto fields = totalFields();
    for (std::size_t i = 0; i < captions.size(); ++i) {
        lbltotal[i]->setText(captions[i]);
        fields[i]->setAccessibleName(captions[i]);
    }
}

// A race chosen anew starts without finishers, flags, payoffs and lists; slips of bettors paid in
// another race stay for the printer.
void frmpaywinnersb::selectRace(int race)
{
    Session &session = m_context.session;
    if (race == session.settings.currentRace) {
        if (mayStartOver())
            showRace();
        return;
    }
    m_ledger.closeRace(session.bettors);
    session.settings.currentRace = race;
    showRace();
    if (lblnote->text().isEmpty())
        lblnote->setText(m_ledger.unpaidNotes().join(u"; "_s));
}

void frmpaywinnersb::showRace()
{
    Session &session = m_context.session;
    m_track.reset();
    clearCalculation();
    txtbanner->setText(session.settings.bannerAndRace());
    if (QAbstractButton *option = optrace->button(session.settings.currentRace))
        option->setChecked(true);
    for (const Ticket ticket : allTickets)
        payoffs->setText(ticket, {});
    for (const Finish finish : allFinishes)
        setFinisher(finish, 0);
    txtfactor->setText(roundingText(session.settings.roundingIndex));
    lsthorses->clear();
    showSelectedHorse();
    lblnote->clear();

    session.horses = {};
    trapErrors(this, session, ErrorStyle::DescriptionOnly, [&] {
        const int damaged = loadHorses(session, u"Horses input"_s);
        if (damaged > 0)
            lblnote->setText(u"Damaged lines in Horses: "_s + QString::number(damaged));
    });
    for (const Horse &horse : session.horses) {
        if (isUnused(horse))
            continue;
        auto *item = new QListWidgetItem(horseText(horse), lsthorses);
        item->setData(Qt::UserRole, horse.post);
    }
}

void frmpaywinnersb::clearCalculation()
{
    m_context.session.payoffs = {};
    m_ledger.clear();
    lstwinners->clear();
    for (QLineEdit *field : totalFields())
        field->clear();
    for (QLineEdit *field : {txthousetot, txtbet, txtpaid, txtrounded, txtwinnername, txttotalr})
        field->clear();
    lblowed->clear();
    lblpays->setText(u"$2 BET PAYS"_s);
    setTotalCaptions(u"POOLS"_s, {u"Win"_s, u"Place"_s, u"Show"_s, u"Total"_s});
    guidance->setCurrentIndex(0);
    cmdusing->setVisible(m_track.has_value());
}

void frmpaywinnersb::showSelectedHorse()
{
    const QListWidgetItem *item = selectedItem(lsthorses);
    txthorse->setText(item ? item->text() : u"Select a Horse"_s);
    txthorse->setCursorPosition(0);
}

void frmpaywinnersb::enterFinisher(Finish finish)
{
    const QListWidgetItem *item = selectedItem(lsthorses);
    if (!item)
        return showMessage(this, u"Must select horse"_s, u"Payoff"_s);
    setFinisher(finish, item->data(Qt::UserRole).toInt());
    if (m_context.session.payoffs.isCalculated())
        lblnote->setText(u"The winners listed are those of the finish calculated before."_s);
}

void frmpaywinnersb::setFinisher(Finish finish, int post)
{
    const auto index = std::size_t(finish);
    finishFields()[index]->setText(post == 0 ? QString() : QString::number(post));
    lblfinish[index]->setText(post == 0 ? QString()
                                        : horseText(m_context.session.horses.post(post)));
}

int frmpaywinnersb::finisher(Finish finish) const
{
    return int(numericValue(finishFields()[std::size_t(finish)]->text()));
}

// A missing place or show horse becomes a post without a horse, so that a race with fewer than
// three finishers can be paid.
bool frmpaywinnersb::completeFinishers()
{
    const int winner = finisher(Finish::Win);
    if (winner < 1 || winner > postCount) {
        showMessage(this, u"Missing Win horse"_s);
        return false;
    }
    for (const Finish finish : {Finish::Place, Finish::Show}) {
        if (finisher(finish) >= 1)
            continue;
        const int unused = firstUnusedPost(m_context.session.horses);
        if (unused == 0) {
            showMessage(this, u"Missing win,place, or show horse"_s);
            return false;
        }
        setFinisher(finish, unused);
    }
    return true;
}

// What was paid counts for nothing after a new start, so it is never lost without a question.
bool frmpaywinnersb::mayStartOver()
{
    return m_ledger.paidCount() == 0 || askYesNo(this, u"Start over?"_s);
}

void frmpaywinnersb::calculate(bool is532)
{
    if (!completeFinishers() || !mayStartOver())
        return;
    Session &session = m_context.session;
    RaceResult result;
    for (const Finish finish : allFinishes)
        result.finishers[std::size_t(finish)] = finisher(finish);
    result.housePercent = numericValue(txthousepct->text());
    result.is532 = is532;
    result.trackPayoffs = m_track;
    Settlement settlement;
    if (!trapErrors(this, session, ErrorStyle::DescriptionOnly,
                    [&] { settlement = settleCurrentRace(session, result); }))
        return;
    const RacePayoffs calculated = session.payoffs;
    clearCalculation();
    session.payoffs = calculated;
    lblnote->clear();
    if (settlement.badRecords > 0)
        showMessage(this, u"Bad bet file record. A bet may have been lost."_s);
    showSettlement(settlement);
    if (!settlement.hasWinners)
        return showMessage(this,
                           u"No winners - Do 'CLEAR BETS' from main menu to calculate refunds"_s,
                           u"Payoff"_s);
    listWinners(settlement);
}

void frmpaywinnersb::showSettlement(const Settlement &settlement)
{
    const float totals[] = {settlement.winPool, settlement.placePool, settlement.showPool,
                            settlement.allPools};
    const auto fields = totalFields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i]->setText(formatMoney(totals[i], poolFormat));
    txthousetot->setText(formatMoney(settlement.houseCut, poolFormat));
    txtbet->setText(formatMoney(settlement.pools.amount(totalsRow, totalColumn), "Currency"));
    for (const Ticket ticket : allTickets) {
        payoffs->setText(ticket, settlement.hasWinners
                                     ? formatMoney(2 * settlement.payoffs[ticket], "Currency")
                                     : QString());
    }
    if (m_context.session.payoffs.is532)
        lblpays->setText(u"$2 BET PAYS - 532 PAYOFF"_s);
}

void frmpaywinnersb::listWinners(const Settlement &settlement)
{
    const Session &session = m_context.session;
    for (const WinningBettor &winner : settlement.winners) {
        auto *item = new QListWidgetItem(winnerName(session.bettors, winner.number), lstwinners);
        item->setData(Qt::UserRole, lstwinners->count() - 1);
    }
    m_ledger.start(session.payoffs.race, settlement.winners, session.settings.roundingIndex);
    showPaidTotals();
    guidance->setCurrentIndex(1);
    const auto &finishers = session.payoffs.finishers;
    if (finishers[0] == finishers[1] || finishers[0] == finishers[2]
        || (finishers[1] == finishers[2] && !isUnused(session.horses.post(finishers[1]))))
        lblnote->setText(u"The same horse was entered for two places."_s);
    lstwinners->setFocus();
}

void frmpaywinnersb::useTrackPayoffs()
{
    if (!askOkCancel(this, u"Use track payoffs?"_s, u"Track Payoff"_s))
        return;
    TicketAmounts track;
    for (const Ticket ticket : allTickets) {
        const auto payoff = trackPayoff(ticket);
        if (!payoff)
            return showMessage(
                this,
                u"Missing entry or non-numeric entry - enter an amount in all payoff fields using only numbers and decimal points"_s);
        track[ticket] = *payoff;
    }
    if (!mayStartOver())
        return;
    for (const Ticket ticket : allTickets) {
        if (payoffs->isUntouched(ticket))
            payoffs->setText(ticket, formatMoney(2 * track[ticket], "Currency"));
    }
    m_track = track;
    clearCalculation();
    lblnote->setText(u"Click on CALCULATE  PAYOFF to list the winners at the track's payoffs."_s);
}

// The payoff per $1 that a field gives for the track's. What the program put there itself is a
// payoff after the house percentage, or a bettor's amount; for those the payoff as it was before
// the house percentage counts, so that it is not taken twice.
std::optional<float> frmpaywinnersb::trackPayoff(Ticket ticket) const
{
    if (payoffs->isUntouched(ticket))
        return m_track ? (*m_track)[ticket] : m_context.session.payoffs.beforeHouse[ticket];
    const QString text = payoffs->text(ticket);
    if (!isNumeric(text))
        return std::nullopt;
    const auto value = float(numericAmount(text));
    return std::isfinite(value) ? std::optional(value / 2) : std::nullopt;
}

void frmpaywinnersb::payWinner()
{
    QListWidgetItem *item = selectedItem(lstwinners);
    if (!item)
        return;
    Session &session = m_context.session;
    const QString name = item->text();
    if (name == anyBettorName() && m_context.navigator.has(u"frmanyb"_s))
        m_context.navigator.openBeside(u"frmanyb"_s);
    const auto index = std::size_t(item->data(Qt::UserRole).toInt());
    const WinningBettor &winner = m_ledger.winners()[index];
    if (session.bettors.nameOf(winner.number).isNull())
        return showMessage(this, u"Bettor name not found"_s, u"Pay winners"_s);

    const Payment payment =
        paymentFor(winner.stakes, session.payoffs.perDollar, session.settings.roundingIndex);
    m_ledger.pay(index, payment);
    showPayment(name, payment);
    if (!m_printPayoffs)
        m_printPayoffs = askYesNo(this, u"Print Payoffs?"_s);
    if (*m_printPayoffs)
        keepSlip(name, payment);
    delete item;
    // The next payment needs a selection of its own: a second press pays nobody by accident.
    lstwinners->setCurrentRow(-1);
}

void frmpaywinnersb::showPayment(const QString &name, const Payment &payment)
{
    for (const Ticket ticket : allTickets)
        payoffs->setText(ticket, formatMoney(payment.amount(ticket), "Currency"));
    const double totals[] = {payment.horseTotals[0], payment.horseTotals[1], payment.horseTotals[2],
                             payment.total};
    const auto fields = totalFields();
    for (std::size_t i = 0; i < fields.size(); ++i)
        fields[i]->setText(formatMoney(totals[i], "Currency"));
    lblpays->setText(u"AMOUNTS FOR "_s + name);
    setTotalCaptions(u"AMOUNT BY HORSE"_s,
                     {u"Win horse"_s, u"Place horse"_s, u"Show horse"_s, u"Total"_s});
    txtfactor->setText(roundingText(m_context.session.settings.roundingIndex));
    txttotalr->setText(formatMoney(payment.rounded, "Currency"));
    txtwinnername->setText(name);
    txtwinnername->setCursorPosition(0);
    showPaidTotals();
}

void frmpaywinnersb::keepSlip(const QString &name, const Payment &payment)
{
    const Session &session = m_context.session;
    std::array<QString, finishCount> numbers;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = session.horses.post(session.payoffs.finishers[i]).number;
    m_ledger.addSlip(winnerSlipLines(name, session.settings.bannerAndRace(), numbers, payment));
}

void frmpaywinnersb::showPaidTotals()
{
    txtpaid->setText(formatMoney(m_ledger.paid(), "Currency"));
    txtrounded->setText(formatMoney(m_ledger.paidRounded(), "Currency"));
    lblowed->setText(u"%1 of %2 to pay\nOwed %3, rounded %4"_s.arg(m_ledger.unpaidCount())
                         .arg(m_ledger.winners().size())
                         .arg(formatMoney(m_ledger.owed(), "Currency"),
                              formatMoney(m_ledger.owedRounded(), "Currency")));
}

bool frmpaywinnersb::printSlips()
{
    const Slip slip = winnerSlips(m_ledger.slips());
    if (slip.lines.isEmpty())
        return true;
    Session &session = m_context.session;
    session.settings.operationLabel = u"Pay winners"_s;
    const bool printed = trapErrors(this, session, ErrorStyle::DescriptionOnly,
                                    [&] { m_context.printer.print(slip); });
    if (!printed)
        showListing(m_context, slipText(slip));
    return printed;
}

void frmpaywinnersb::leave()
{
    m_ledger.closeRace(m_context.session.bettors);
    QStringList notes = m_ledger.unpaidNotes();
    if (!printSlips())
        notes.append(u"The payoff slips are in the list window."_s);
    m_context.session.payoffs = {};
    m_context.navigator.open(u"frmmenub"_s, notes.join(u"; "_s));
}
