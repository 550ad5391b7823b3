// The form of the bet sheet: its controls, their places and what they call.

#include "betting/parts/betamountpanel.h"
#include "betting/parts/betgrid.h"
#include "betting/parts/betsheet.h"
#include "betting/parts/priorbetspanel.h"
#include "common/event/session.h"
#include "ui/bettorsearch.h"
#include "ui/controls.h"
#include "ui/noteline.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t instructions[] =
    u">Click on a Race number\n"
    ">Click on a bettor or enter the first few characters of the bettor's-\n"
    "last name and press enter to find the bettor\n"
    ">Set the current bet amount\n"
    ">Click on \"+\" or \"-\" to change the sign of the bet amount\n"
    ">Click in win, place, show columns to place bets\n"
    ">Collect total bet\n"
    ">Click \"Place these Bets\" to enter these bets!";

} // namespace

const BetSheetKind &localBetSheet()
{
    static const BetSheetKind kind{
        {{u"Command1"_s, u"Summary"_s, u"Display a summary of all bets for this race"_s,
          u"frmsummb"_s},
         {u"cmdmulti"_s, u"Multi Bets"_s, u"Handle Trifecta,Daily Double, Quinela, etc type bets"_s,
          u"frmmulti"_s}},
        u"Delete Selected Prior Bets"_s,
        u"Click to change the bet amount from plus to minus and back"_s,
        false};
    return kind;
}

const BetSheetKind &networkBetSheet()
{
    static const BetSheetKind kind{{{u"cmdpay"_s, u"Pay Winners"_s, {}, u"frmpaywinnersb"_s}},
                                   u"Clear Selected Prior Bets"_s,
                                   u"Click to change the bet amount from plus to minus"_s,
                                   true};
    return kind;
}

void BetSheet::build()
{
    // Made in reading order, which is the order of the Tab key.
    QWidget *head = buildHead();
    auto *columns = new QHBoxLayout;
    columns->setSpacing(10);
    columns->addWidget(buildBettorColumn(), 20);
    columns->addWidget(buildGridColumn(), 50);
    columns->addWidget(buildActionColumn(), 27);
    // Made last, so that no Tab leads there on the way from the grid to the amount.
    cmdclrentries =
        makeButton(this, u"cmdclrentries"_s, u"Clear Sheet Entries"_s, u"Clear all bet entries"_s);
    cmdundo = makeButton(this, u"cmdundo"_s, u"Undo"_s,
                         u"Bring back the entries that were cleared, or the prior bets that were "
                         "deleted last (Ctrl+Z)"_s);
    m_gridFoot->addWidget(cmdclrentries);
    m_gridFoot->addWidget(cmdundo);
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 4);
    layout->setSpacing(4);
    layout->addWidget(head);
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
    showBettor();
    assignAltLetters(this);
}

// The event, the race, and what the cashier and the bettor look at: who bets, and how much.
QWidget *BetSheet::buildHead()
{
    auto *head = new QWidget(this);
    txtbanner = makeBanner(head, u"txtbanner"_s, {});
    txtbanner1 = makeBanner(head, u"txtbanner1"_s, {});
    txtbanner->setAccessibleName(u"Event"_s);
    txtbanner1->setAccessibleName(u"Race"_s);
    const RaceOptions races = makeRaceOptions(head, u"Click to select a race"_s, 6);
    m_races = races.group;
    m_races->button(m_context.session.settings.currentRace)->setChecked(true);
    lblselected = makeShortLabel(head, u"lblselected"_s);
    enlarge(lblselected, 1.7);
    lbltobeplaced = makeLabel(head, u"lbltobeplaced"_s, {},
                              u"What the bettor pays for the bets of this sheet"_s);
    enlarge(lbltobeplaced, 2.4); // nothing on the screen is larger
    lbltobeplaced->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    auto *banners = new QHBoxLayout;
    banners->setSpacing(4);
    banners->addWidget(txtbanner, 4);
    banners->addWidget(txtbanner1, 1);
    auto *line = new QHBoxLayout;
    line->setSpacing(12);
    line->addWidget(races.frame);
    line->addWidget(lblselected, 1);
    line->addWidget(lbltobeplaced);
    auto *layout = new QVBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(banners);
    layout->addLayout(line);
    return head;
}

QWidget *BetSheet::buildBettorColumn()
{
    auto *column = new QWidget(this);
    m_search =
        new BettorSearch(BettorSearch::Typing::MovesToName, u"Reset Bettor List"_s, {}, column);
    QPushButton *cmdbettors =
        makeExit(column, {u"cmdbettors"_s, u"Add a Bettor"_s,
                          u"Leave this screen to update bettor information"_s, u"frmbettorsb"_s});
    QLabel *lblinstructions =
        makeLabel(column, u"lblinstructions"_s, QString::fromUtf16(instructions), {}, true);
    scaleText(lblinstructions, 0.8);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(makeHeading(column, u"lblbettor"_s, u"ENTER BETTOR NAME"_s));
    layout->addWidget(m_search, 1);
    layout->addWidget(cmdbettors);
    layout->addWidget(lblinstructions);
    return column;
}

QWidget *BetSheet::buildGridColumn()
{
    auto *column = new QWidget(this);
    m_grid = new BetGrid(column);
    QLabel *lblkeys = makeLabel(
        column, u"lblkeys"_s,
        u"Keys: digits type the amount, F2-F7 presets, + and - sign; W, P or S and a horse's "
        "number bet on it, or arrows and Space; Del empties a cell, Ctrl+Enter places, Esc finds "
        "a bettor"_s,
        {}, true);
    scaleText(lblkeys, 0.8);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_grid, 1);
    m_gridFoot = new QHBoxLayout;
    m_gridFoot->addWidget(lblkeys, 1);
    layout->addLayout(m_gridFoot);
    return column;
}

QWidget *BetSheet::buildActionColumn()
{
    auto *column = new QWidget(this);
    m_amount = new BetAmountPanel(m_kind.signToolTip, column);
    cmdplacebets = makeButton(column, u"cmdplacebets"_s, u"Place these Bets"_s,
                              u"Click to place bets entered on this screen"_s);
    enlarge(cmdplacebets, 1.3);
    makeHurried(cmdplacebets);
    cmdprint = makeButton(column, u"cmdprint"_s, u"Receipts will not print"_s,
                          u"Click to turn bet receipt printing on or off"_s);
    m_priorPanel = new PriorBetsPanel(m_kind.deleteCaption, column);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_amount);
    layout->addWidget(cmdplacebets);
    layout->addWidget(cmdprint);
    layout->addWidget(m_priorPanel, 1);
    auto *exits = new QHBoxLayout;
    for (const BetSheetKind::Exit &exit : m_kind.exits)
        exits->addWidget(makeExit(column, exit));
    exits->addWidget(makeExit(
        column, {u"cmdmainmenu"_s, u"Return"_s, u"Return to the menu screen"_s, u"frmmenub"_s}));
    layout->addLayout(exits);
    return column;
}

QPushButton *BetSheet::makeExit(QWidget *parent, const BetSheetKind::Exit &exit)
{
    QPushButton *button = makeButton(parent, exit.button, exit.caption, exit.toolTip);
    connect(button, &QPushButton::clicked, this, [this, screen = exit.screen] {
        if (mayThrowAway())
            m_context.navigator.open(screen);
    });
    return button;
}

void BetSheet::connectControls()
{
    connect(m_races, &QButtonGroup::idClicked, this, &BetSheet::chooseRace);
    connect(m_search, &BettorSearch::selected, this, &BetSheet::chooseBettor);
    connect(m_search, &BettorSearch::resetRequested, this, &BetSheet::loadBettorList);
    connect(m_grid, &BetGrid::cellClicked, this, &BetSheet::addEntry);
    connect(m_grid, &BetGrid::emptied, this, &BetSheet::emptyEntry);
    connect(m_grid, &BetGrid::moved, this, [this] { m_amount->endTyping(); });
    connect(m_priorPanel, &PriorBetsPanel::deleteRequested, this, &BetSheet::deletePrior);
    connect(m_priorPanel, &PriorBetsPanel::receiptRequested, this, &BetSheet::printReceipt);
    connect(cmdplacebets, &QPushButton::clicked, this, &BetSheet::place);
    connect(cmdclrentries, &QPushButton::clicked, this, &BetSheet::clearSheet);
    connect(cmdundo, &QPushButton::clicked, this, &BetSheet::undo);
    connect(cmdprint, &QPushButton::clicked, this, &BetSheet::switchReceipts);

    const auto bind = [this](const QKeySequence &keys, auto handler) {
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, handler);
    };
    bind(QKeySequence(Qt::CTRL | Qt::Key_Return), &BetSheet::place);
    bind(QKeySequence(Qt::CTRL | Qt::Key_Enter), &BetSheet::place);
    bind(QKeySequence(Qt::Key_Escape), [this] { m_search->focusSearch(); });
    bind(QKeySequence(Qt::CTRL | Qt::Key_Z), &BetSheet::undo);
    for (int preset = 0; preset < BetAmountPanel::presetCount; ++preset) {
        bind(QKeySequence(BetAmountPanel::presetKey(preset)),
             [this, preset] { m_amount->pressPreset(preset); });
    }
}
