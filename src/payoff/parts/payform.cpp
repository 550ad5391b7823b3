#include "payoff/parts/payform.h"

#include "common/event/settings.h"
#include "payoff/parts/combinationgrid.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/paidlist.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

using enum Combination;

namespace {

template<typename List>
List *makeNameList(QWidget *parent, const QString &name, const QString &accessibleName)
{
    auto *list = new List(parent);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    scaleText(list, 1.15);
    // A long name is cut with dots rather than scrolled to.
    list->setUniformItemSizes(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setMinimumHeight(list->fontMetrics().height() * 5);
    return list;
}

} // namespace

PayForm::PayForm()
{
    makeFields();
    makeButtons();
    build();
    lsthorses->setFocus();
}

void PayForm::makeFields()
{
    using Self = PayForm;
    enum Kind { Post, Amount, Text };
    const struct
    {
        QLineEdit *PayForm::*field;
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
    payoffs = new CombinationGrid(1.5, this);
    txtbanner = makeBanner(this, u"txtbanner"_s, {});
    lsthorses = makeNameList<QListWidget>(this, u"lsthorses"_s, u"Horses of the race"_s);
    lstwinners = makeNameList<PaidList>(this, u"lstwinners"_s, u"WINNING BETTORS"_s);
    lblnote = makeNoteLine(this);
}

void PayForm::makeButtons()
{
    using Self = PayForm;
    const struct
    {
        QPushButton *PayForm::*button;
        QString name;
        QString caption;
        QString toolTip;
    } buttons[] = {
        {&Self::cmdwinner, u"cmdwinner"_s, u"ENTER WINNER"_s,
         u"The selected horse came in first"_s},
        {&Self::cmdplace, u"cmdplace"_s, u"ENTER PLACE"_s, u"The selected horse came in second"_s},
        {&Self::cmdshow, u"cmdshow"_s, u"ENTER SHOW"_s, u"The selected horse came in third"_s},
        {&Self::cmdsame, u"cmdsame"_s, u"Same As Before"_s,
         u"Fill in the finishers and the house percentage that this race was settled with"_s},
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
        {&Self::cmdundo, u"cmdundo"_s, u"Undo Last Payment"_s,
         u"Take back the last payment made on this computer"_s},
        {&Self::cmdreturn, u"cmdreturn"_s, u"MAIN MENU"_s, u"Return to the main menu"_s},
    };
    for (const auto &row : buttons)
        this->*row.button = makeButton(this, row.name, row.caption, row.toolTip);
    enlarge(cmdusing, 1);
    enlarge(cmdpay, 1.1);
    makeHurried(cmdpay);
    enlarge(cmdreturn, 1.1);
    for (QPushButton *button : {cmdusing, cmdsame}) {
        QSizePolicy keepsPlace = button->sizePolicy();
        keepsPlace.setRetainSizeWhenHidden(true);
        button->setSizePolicy(keepsPlace);
    }
}

void PayForm::build()
{
    const RaceOptions races = makeRaceOptions(this, u"Race whose winners are paid"_s);
    optrace = races.group;
    auto *middle = new QVBoxLayout;
    middle->addWidget(buildPayoffs(), 1);
    middle->addWidget(buildTotals());
    auto *columns = new QHBoxLayout;
    columns->addWidget(buildFinish(), 31);
    columns->addLayout(middle, 39);
    columns->addWidget(buildWinners(), 30);
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
    for (QWidget *next : std::initializer_list<QWidget *>{lsthorses,
                                                          cmdwinner,
                                                          cmdplace,
                                                          cmdshow,
                                                          cmdsame,
                                                          txthousepct,
                                                          cmdpayoff,
                                                          cmd532,
                                                          cmdtrack,
                                                          cmdusing,
                                                          payoffs->field(WinWin),
                                                          payoffs->field(WinPlace),
                                                          payoffs->field(WinShow),
                                                          payoffs->field(PlacePlace),
                                                          payoffs->field(PlaceShow),
                                                          payoffs->field(ShowShow),
                                                          lstwinners,
                                                          cmdpay,
                                                          cmdundo,
                                                          cmdreturn}) {
        setTabOrder(before, next);
        before = next;
    }
    assignAltLetters(this);
}

QWidget *PayForm::buildFinish()
{
    auto *group = new QGroupBox(u"Finish"_s, this);
    auto *grid = new QGridLayout;
    QPushButton *const buttons[] = {cmdwinner, cmdplace, cmdshow};
    for (int i = 0; i < finishCount; ++i) {
        QLabel *label = makeLabel(group, memberName(u"lblfinish"_s, i + 1), {}, {}, true);
        enlarge(label, 1);
        lblfinish[std::size_t(i)] = label;
        grid->addWidget(buttons[i], i + 1, 0);
        grid->addWidget(finishFields()[std::size_t(i)], i + 1, 1);
        grid->addWidget(label, i + 1, 2);
    }
    grid->addWidget(makeLabel(group, u"lblpost"_s, u"Post"_s), 0, 1, Qt::AlignCenter);
    grid->addWidget(makeLabel(group, u"lblnumber"_s, u"Horse"_s), 0, 2);
    grid->setColumnStretch(2, 1);

    auto *layout = new QVBoxLayout(group);
    layout->addWidget(txthorse);
    layout->addWidget(lsthorses, 1);
    layout->addLayout(grid);
    layout->addWidget(cmdsame);
    lblrace2 = makeLabel(group, u"lblrace2"_s, {}, u"What $2 pay in this race"_s, true);
    lblrace2->setMinimumHeight(finishCount * lblrace2->fontMetrics().lineSpacing());
    layout->addWidget(lblrace2);
    return group;
}

QWidget *PayForm::buildPayoffs()
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

    lblpays = makeShortLabel(group, u"lblpays"_s);
    enlarge(lblpays, 1.15);
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

QWidget *PayForm::buildTotals()
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

QWidget *PayForm::buildWinners()
{
    auto *group = new QGroupBox(u"Pay"_s, this);
    lblowed = makeLabel(group, u"lblowed"_s, {}, {}, true);
    auto *factor = new QHBoxLayout;
    factor->addWidget(makeLabel(group, u"lblfactor"_s, u"Round factor"_s));
    factor->addWidget(txtfactor);
    factor->addStretch();
    auto *amount = new QHBoxLayout;
    lbltotalr = makeHeading(group, u"lbltotalr"_s, u"PAY"_s);
    amount->addWidget(lbltotalr);
    amount->addWidget(txttotalr, 1);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(makeHeading(group, u"lblwinners"_s, u"WINNING BETTORS"_s));
    layout->addWidget(lstwinners, 1);
    layout->addWidget(lblowed);
    layout->addWidget(cmdpay);
    layout->addSpacing(dangerGap);
    layout->addWidget(cmdundo);
    layout->addLayout(factor);
    layout->addWidget(txtwinnername);
    layout->addLayout(amount);
    return group;
}

QLayout *PayForm::buildGuidance()
{
    guidance = new QStackedWidget(this);
    // Three short lines; whatever comes after them stands at their right.
    const auto addPage = [this](const QString &name, const QStringList &texts) {
        auto *page = new QWidget(guidance);
        auto *upper = new QVBoxLayout(page);
        upper->setContentsMargins(0, 0, 0, 0);
        auto *columns = new QHBoxLayout;
        columns->setSpacing(16);
        upper->addLayout(columns);
        upper->addStretch();
        QVBoxLayout *lines = nullptr;
        for (int i = 0; i < texts.size(); ++i) {
            if (i % 3 == 0) {
                lines = new QVBoxLayout;
                columns->addLayout(lines, 2 + i);
            }
            lines->addWidget(makeLabel(page, memberName(name, i + 1), texts[i], {}, true));
        }
        guidance->addWidget(page);
        return lines;
    };
    addPage(
        u"lblstep"_s,
        {u"Click on the horse that won and on ENTER WINNER, then enter the place and show horses."_s,
         u"Type the house percentage, if there is one."_s,
         u"Click on CALCULATE  PAYOFF. For the track's payoffs, first type all six of them and click on USE TRACK PAYOFF."_s});
    QVBoxLayout *last = addPage(
        u"lblguide"_s,
        {u"Click on a WINNING BETTOR from the WINNING BETTOR list"_s,
         u"Click on PAY WINNER to payoff the selected bettor"_s,
         u"Continue until all winning bettors are paid"_s,
         u"$BET should = $PAID, plus or minus a few cents because of rounding, when all bettors have been paid. When using track payoff, bets made versus bets paid will usually not be equal."_s});

    lblhouse = makeLabel(guidance->widget(1), u"lblhouse"_s, {}, {}, true);
    enlarge(lblhouse, 1);
    last->addWidget(lblhouse);
    last->addStretch();

    auto *layout = new QVBoxLayout;
    layout->addWidget(guidance);
    layout->addWidget(makeLabel(
        this, u"lblprint"_s,
        u"You can request printing of amounts bet and paid for all winning bettors when clicking Pay Winner. Printing will occur after clicking return to Main Menu."_s,
        {}, true));
    return layout;
}

std::array<QLineEdit *, finishCount> PayForm::finishFields() const
{
    return {txtwinhorse, txtplacehorse, txtshowhorse};
}

std::array<QLineEdit *, finishCount + 1> PayForm::totalFields() const
{
    return {txtwintotal, txtplacetotal, txtshowtotal, txttotaltotal};
}

void PayForm::setTotalCaptions(const QString &heading, const std::array<QString, 4> &captions)
{
    lbltotals->setText(heading);
    const auto fields = totalFields();
    for (std::size_t i = 0; i < captions.size(); ++i) {
        lbltotal[i]->setText(captions[i]);
        fields[i]->setAccessibleName(captions[i]);
    }
}
