#include "multibets/parts/multibetform.h"

#include "multibets/parts/typebuttons.h"
#include "ui/accessible.h"
#include "ui/bettorsearch.h"
#include "ui/clickcell.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/textlists.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QBoxLayout *labelled(QWidget *parent, const QString &labelName, const QString &text,
                     QWidget *control)
{
    auto *row = new QHBoxLayout;
    row->addWidget(makeLabel(parent, labelName, text));
    row->addWidget(control, 1);
    return row;
}

} // namespace

MultibetForm::MultibetForm(const ScreenContext &context)
    : MultibetScreen(context)
{
    build();
}

void MultibetForm::build()
{
    QVBoxLayout *layout = buildHead();
    layout->addWidget(buildTypeAndAmount());
    layout->addWidget(buildGrid());
    layout->addLayout(buildGuide());
    auto *lists = new QHBoxLayout;
    lists->addWidget(buildBettor(), 4);
    lists->addWidget(buildHorses(), 4);
    lists->addWidget(buildPreview(), 4);
    lists->addWidget(buildPriorBets(), 4);
    layout->addLayout(lists, 1);
    layout->addLayout(buildButtons());
    lblnote = makeNoteLine(this);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QWidget *MultibetForm::buildTypeAndAmount()
{
    auto *row = new QWidget(this);
    auto *typeBox = new QGroupBox(u"Bet Type"_s, row);
    makeTypes(typeBox);
    auto *typeLayout = new QVBoxLayout(typeBox);
    typeLayout->setContentsMargins(6, 6, 6, 4);
    typeLayout->addWidget(m_types);

    auto *amountBox = new QGroupBox(u"Bet Amt"_s, row);
    auto *amountLayout = new QHBoxLayout(amountBox);
    amountLayout->setContentsMargins(6, 6, 6, 4);
    txtbetamt = makeCell(amountBox, u"txtbetamt"_s, u"Click to increase this amount by $1"_s);
    txtbetamt->setAlignment(Qt::AlignCenter);
    enlarge(txtbetamt, 1.4);
    fitCharacters(txtbetamt, 8);
    amountLayout->addWidget(txtbetamt);
    for (std::size_t i = 0; i < txtamt.size(); ++i) {
        txtamt[i] = makeCell(amountBox, memberName(u"txtamt"_s, int(i)),
                             u"Click to add this amount to the current bet"_s);
        txtamt[i]->setText(quickAmounts[i] < 1 ? u" .25"_s : QString::number(quickAmounts[i]));
        txtamt[i]->setAccessibleName(u"Add "_s + spokenDollars(quickAmounts[i]));
        txtamt[i]->setAlignment(Qt::AlignCenter);
        fitCharacters(txtamt[i], 4);
        amountLayout->addWidget(txtamt[i]);
    }
    txtclearamt = makeCell(amountBox, u"txtclearamt"_s, u"Click to set the current bet to $0"_s);
    txtclearamt->setText(u"Clear Bet Amount"_s);
    txtclearamt->setAlignment(Qt::AlignCenter);
    txtclearamt->setMinimumWidth(
        txtclearamt->fontMetrics().horizontalAdvance(u"  Clear Bet Amount  "_s));
    amountLayout->addWidget(txtclearamt);

    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(typeBox, 1);
    layout->addWidget(amountBox);
    return row;
}

QWidget *MultibetForm::buildGrid()
{
    auto *box = new QGroupBox(u"Post Numbers"_s, this);
    makeGrid(PostGrid::Selection::ManyPerLine, box,
             {u"Line for win or first place selections"_s,
              u"Line for place or second place selections"_s,
              u"Line for show or third place selections"_s});
    for (int line = 0; line < 3; ++line) {
        auto *boxed = new QCheckBox(u"Box"_s, box);
        boxed->setObjectName(memberName(u"chkbox"_s, line));
        setTip(boxed, u"Bet all possible combinations of this post number and any other boxed "
                      "post numbers"_s);
        boxed->setAccessibleName("Box line "_L1 + QString::number(line + 1));
        m_grid->addAtEnd(line, boxed);
        chkbox[std::size_t(line)] = boxed;
    }
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(m_grid);
    return box;
}

// What is chosen and missing, and what the ticket costs.
QBoxLayout *MultibetForm::buildGuide()
{
    lblguide = makeShortLabel(this, u"lblguide"_s);
    lblcost = makeLabel(this, u"lblcost"_s, {});
    for (QLabel *label : {lblguide, lblcost})
        enlarge(label, 1.3);
    auto *row = new QHBoxLayout;
    row->addWidget(lblguide, 1);
    row->addWidget(lblcost);
    return row;
}

QWidget *MultibetForm::buildBettor()
{
    auto *box = new QGroupBox(u"Bettor"_s, this);
    m_search = new BettorSearch(BettorSearch::Typing::NarrowsList, u"Reset Bettor list"_s,
                                u"Reset bettor list to beginning"_s, box);
    lblbettor = makeShortLabel(box, u"lblbettor"_s);
    enlarge(lblbettor, 1.3);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lblbettor);
    layout->addWidget(m_search, 1);
    return box;
}

QWidget *MultibetForm::buildHorses()
{
    auto *box = new QGroupBox(u"Post, Number, Horse"_s, this);
    lsthorses = makeList(box, u"lsthorses"_s, u"Horses of the race"_s);
    lsthorses->setSelectionMode(QAbstractItemView::NoSelection);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lsthorses);
    return box;
}

QWidget *MultibetForm::buildPreview()
{
    auto *box = new QGroupBox(u"Preview"_s, this);
    cmdplacebet = makeButton(box, u"cmdplacebet"_s, u"PREVIEW THE BET"_s,
                             u"Display the bet for review before saving it"_s);
    lstbets = makeList(box, u"lstbets"_s, u"Preview list"_s,
                       u"Preview list of all potential bets based on current selections"_s);
    lstbets->setSelectionMode(QAbstractItemView::NoSelection);
    txtcount = makeDisplay(box, u"txtcount"_s);
    txtcount->setAccessibleName(u"Number of bets"_s);
    txtcount->setAlignment(Qt::AlignRight);
    fitCharacters(txtcount, 4);
    txtthisbet = makeTotal(box, u"txtthisbet"_s, u"This Bet"_s);
    txttotalbet = makeTotal(box, u"txttotalbet"_s, u"Total bet"_s,
                            u"Total amount of all bets for this entry"_s);
    cmdmake = makeButton(box, u"cmdmake"_s, u"MAKE THE BET"_s, u"Save the displayed bet"_s);
    cmdclearentries = makeButton(box, u"cmdclearentries"_s, u"CLEAR ENTRIES"_s,
                                 u"Clear any current bet entries - does not affect saved bets"_s);

    auto *counts = new QHBoxLayout;
    counts->addWidget(makeLabel(box, u"lblcount"_s, u"Bets"_s));
    counts->addWidget(txtcount);
    counts->addLayout(labelled(box, u"lblthisbet"_s, u"This Bet"_s, txtthisbet), 1);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(cmdplacebet);
    layout->addWidget(lstbets, 1);
    layout->addLayout(counts);
    layout->addLayout(labelled(box, u"lbltotalbet"_s, u"Total Bet"_s, txttotalbet));
    layout->addWidget(cmdmake);
    layout->addWidget(cmdclearentries);
    return box;
}

QWidget *MultibetForm::buildPriorBets()
{
    auto *box = new QGroupBox(u"PRIOR BETS"_s, this);
    lstpriorbets = makeList(box, u"lstpriorbets"_s, u"PRIOR BETS"_s,
                            u"List of current saved bets for this bettor"_s);
    lstpriorbets->setSelectionMode(QAbstractItemView::ExtendedSelection);
    txttotprior = makeTotal(box, u"txttotprior"_s, u"Total of prior bets"_s,
                            u"Total of all multibets for this bettor"_s);
    cmdclearprior = makeButton(box, u"cmdclearprior"_s, u"Clear Selected Prior Bets"_s,
                               u"Clear one or more saved prior bets - hold down  shift, ctrl keys "
                               "to select multiple bets to delete"_s);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lstpriorbets, 1);
    layout->addLayout(labelled(box, u"lbltotprior"_s, u"Total"_s, txttotprior));
    warnOf(cmdclearprior);
    layout->addWidget(cmdclearprior);
    return box;
}

QBoxLayout *MultibetForm::buildButtons()
{
    cmdonoff = makeButton(this, u"cmdonoff"_s, u"Print On"_s,
                          u"Click to turn bet receipt printing on or off"_s);
    txtreceipts = makeDisplay(this, u"txtreceipts"_s);
    txtreceipts->setAccessibleName(u"Receipts"_s);
    txtreceipts->setMinimumWidth(
        txtreceipts->fontMetrics().horizontalAdvance(u"  Receipts will not print  "_s));
    cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT BET SHEET"_s,
                          u"Print a bet sheet(s) for multi bets"_s);
    cmdaddbettor = makeButton(this, u"cmdaddbettor"_s, u"ADD A BETTOR"_s);
    cmdpay = makeButton(this, u"cmdpay"_s, u"PAY WINNERS"_s);
    cmdsummary = makeButton(this, u"cmdsummary"_s, u"BET SUMMARY"_s,
                            u"Display a summary of all multibets"_s);
    cmdretbets = makeButton(this, u"cmdretbets"_s, u"RETURN TO BETS"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"RETURN TO MENU"_s);

    auto *row = new QHBoxLayout;
    row->addWidget(cmdonoff);
    row->addWidget(txtreceipts);
    row->addStretch();
    for (QPushButton *button : {cmdprint, cmdaddbettor, cmdpay, cmdsummary, cmdretbets, cmdreturn})
        row->addWidget(button);
    return row;
}
