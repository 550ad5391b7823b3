#include "multibets/frmmulti.h"

#include "betting/listingcopies.h"
#include "common/format.h"
#include "common/init.h"
#include "common/racefiles.h"
#include "common/roles.h"
#include "multibets/legs.h"
#include "multibets/multibettypes.h"
#include "multibets/multislips.h"
#include "ui/bettorsearch.h"
#include "ui/controls.h"
#include "ui/listing.h"
#include "ui/postgrid.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"
#include "ui/typebuttons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr char dollars[] = "$#,##0.00";
constexpr double quickAmounts[] = {0.25, 1, 5, 10};

QListWidget *makeList(QWidget *parent, const QString &name, const QString &accessibleName,
                      const QString &toolTip = {})
{
    auto *list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    list->setToolTip(toolTip);
    list->setFont(fixedPitchFont());
    list->setUniformItemSizes(true);
    return list;
}

// A money field that stands out.
QLineEdit *makeTotal(QWidget *parent, const QString &name, const QString &accessibleName,
                     const QString &toolTip = {})
{
    QLineEdit *field = makeDisplay(parent, name, toolTip);
    field->setAccessibleName(accessibleName);
    field->setAlignment(Qt::AlignRight);
    enlarge(field, 1.2);
    return field;
}

QBoxLayout *labelled(QWidget *parent, const QString &labelName, const QString &text,
                     QWidget *control)
{
    auto *row = new QHBoxLayout;
    row->addWidget(makeLabel(parent, labelName, text));
    row->addWidget(control, 1);
    return row;
}

} // namespace

frmmulti::frmmulti(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    fill();
}

void frmmulti::build()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, {});
    const RaceOptions races = makeRaceOptions(this, u"Click to select a race"_s, 12, u" Race"_s);
    m_races = races.group;

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->addWidget(txtbanner);
    layout->addWidget(races.frame);
    layout->addWidget(buildTypeAndAmount());
    layout->addWidget(buildGrid());
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

QWidget *frmmulti::buildTypeAndAmount()
{
    auto *row = new QWidget(this);
    auto *typeBox = new QGroupBox(u"Bet Type"_s, row);
    QList<TypeButtons::Type> types;
    for (const MultibetType &type : multibetTypes())
        types.append({type.code, type.button, type.caption, type.toolTip});
    m_types = new TypeButtons(types, typeBox);
    auto *typeLayout = new QVBoxLayout(typeBox);
    typeLayout->setContentsMargins(6, 6, 6, 4);
    typeLayout->addWidget(m_types);

    auto *amountBox = new QGroupBox(u"Bet Amt"_s, row);
    auto *amountLayout = new QHBoxLayout(amountBox);
    amountLayout->setContentsMargins(6, 6, 6, 4);
    txtbetamt = makeCell(amountBox, u"txtbetamt"_s, u"Click to increase this amount by $1"_s);
    txtbetamt->setAccessibleName(u"Bet Amt"_s);
    txtbetamt->setAlignment(Qt::AlignCenter);
    enlarge(txtbetamt, 1.4);
    fitCharacters(txtbetamt, 8);
    amountLayout->addWidget(txtbetamt);
    for (std::size_t i = 0; i < txtamt.size(); ++i) {
        txtamt[i] = makeCell(amountBox, memberName(u"txtamt"_s, int(i)),
                             u"Click to add this amount to the current bet"_s);
        txtamt[i]->setText(quickAmounts[i] < 1 ? u" .25"_s : QString::number(quickAmounts[i]));
        txtamt[i]->setAccessibleName("Add $"_L1 + QString::number(quickAmounts[i]));
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

QWidget *frmmulti::buildGrid()
{
    auto *box = new QGroupBox(u"Post Numbers"_s, this);
    m_grid = new PostGrid(PostGrid::Selection::ManyPerLine, box);
    const QString lineTips[] = {u"Line for win or first place selections"_s,
                                u"Line for place or second place selections"_s,
                                u"Line for show or third place selections"_s};
    for (int line = 0; line < 3; ++line) {
        m_grid->setLine(line, "Line "_L1 + QString::number(line + 1), lineTips[line],
                        lineTips[line]);
        auto *boxed = new QCheckBox(u"Box"_s, box);
        boxed->setObjectName(memberName(u"chkbox"_s, line));
        boxed->setToolTip(u"Bet all possible combinations of this post number and any other boxed "
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

QWidget *frmmulti::buildBettor()
{
    auto *box = new QGroupBox(u"Bettor"_s, this);
    m_search = new BettorSearch(BettorSearch::Typing::NarrowsList, u"Reset Bettor list"_s,
                                u"Reset bettor list to beginning"_s, box);
    lblbettor = makeHeading(box, u"lblbettor"_s, {});
    enlarge(lblbettor, 1.3);
    lblbettor->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lblbettor);
    layout->addWidget(m_search, 1);
    return box;
}

QWidget *frmmulti::buildHorses()
{
    auto *box = new QGroupBox(u"Post, Number, Horse"_s, this);
    lsthorses = makeList(box, u"lsthorses"_s, u"Horses of the race"_s);
    lsthorses->setSelectionMode(QAbstractItemView::NoSelection);
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(6, 6, 6, 4);
    layout->addWidget(lsthorses);
    return box;
}

QWidget *frmmulti::buildPreview()
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

QWidget *frmmulti::buildPriorBets()
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
    layout->addWidget(cmdclearprior);
    return box;
}

QBoxLayout *frmmulti::buildButtons()
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

void frmmulti::connectControls()
{
    connect(m_races, &QButtonGroup::idClicked, this, &frmmulti::chooseRace);
    connect(m_types, &TypeButtons::clicked, this, &frmmulti::chooseType);
    connect(m_search, &BettorSearch::selected, this, &frmmulti::chooseBettor);
    connect(m_search, &BettorSearch::resetRequested, this, &frmmulti::loadBettorList);
    connect(m_grid, &PostGrid::duplicateRefused, this,
            [this] { showMessage(this, u"Duplicate horse post number"_s); });
    connect(txtbetamt, &ClickCell::clicked, this, [this] { addToStake(1); });
    for (std::size_t i = 0; i < txtamt.size(); ++i)
        connect(txtamt[i], &ClickCell::clicked, this, [this, i] { addToStake(quickAmounts[i]); });
    connect(txtclearamt, &ClickCell::clicked, this, [this] { addToStake(-m_stake); });
    connect(cmdplacebet, &QPushButton::clicked, this, &frmmulti::preview);
    connect(cmdmake, &QPushButton::clicked, this, &frmmulti::makeBet);
    connect(cmdclearentries, &QPushButton::clicked, this, [this] {
        m_grid->clearSelection();
        clearPreview();
    });
    connect(cmdclearprior, &QPushButton::clicked, this, &frmmulti::deletePriorBets);
    connect(cmdonoff, &QPushButton::clicked, this, &frmmulti::switchReceipts);
    connect(cmdprint, &QPushButton::clicked, this, &frmmulti::printBlankSheets);

    const QString sheet = betSheetScreen(m_context.session.settings);
    const std::pair<QPushButton *, QString> ways[] = {{cmdaddbettor, u"frmbettorsb"_s},
                                                      {cmdpay, u"frmpaymulti"_s},
                                                      {cmdsummary, u"frmsummmulti"_s},
                                                      {cmdretbets, sheet},
                                                      {cmdreturn, u"frmmenub"_s}};
    for (const auto &[button, screen] : ways) {
        button->setEnabled(m_context.navigator.has(screen));
        connect(button, &QPushButton::clicked, this, [this, name = screen] { openScreen(name); });
    }
}

void frmmulti::openScreen(const QString &name)
{
    const QString refusal =
        name == "frmbettorsb"_L1 ? bettorsRefusal(m_context.session.settings) : QString();
    if (refusal.isEmpty())
        m_context.navigator.open(name);
    else
        showMessage(this, refusal);
}

void frmmulti::fill()
{
    txtbanner->setText(m_context.session.settings.bannerAndRace());
    showReceiptState();
    addToStake(0);
    chkbox[2]->setEnabled(false);
    clearPreview();
    showPriorBets();
    lblbettor->setText(u"No bettor selected"_s);
    loadBettorList();
    m_search->focusSearch();
}

void frmmulti::loadBettorList()
{
    trapErrors(this, m_context.session, ErrorStyle::DescriptionOnly, [this] {
        loadBettors(m_context.session, u"Bettors Input"_s);
        m_search->setBettors(m_context.session.bettors);
    });
}

void frmmulti::chooseRace(int race)
{
    m_context.session.settings.currentRace = race;
    txtbanner->setText(m_context.session.settings.bannerAndRace());
    clearPreview();
    showLegs();
    if (m_bettor != 0)
        loadPriorBets();
}

void frmmulti::chooseType(const QString &code)
{
    const MultibetType *type = multibetType(code);
    if (type->lines == 3 && m_races->checkedId() < 0)
        return showMessage(this, u"Must select race first"_s);
    m_types->setType(code);
    for (QCheckBox *box : chkbox)
        box->setChecked(false);
    chkbox[2]->setEnabled(type->lines == 3);
    m_grid->setRepeatsAllowed(type->races);
    m_grid->clearSelection();
    clearPreview();
    if (m_races->checkedId() > 0)
        showLegs();
}

void frmmulti::showLegs()
{
    MultibetLegs legs;
    const MultibetType *type = multibetType(m_types->type());
    trapErrors(this, m_context.session, ErrorStyle::DescriptionOnly,
               [&] { legs = loadLegs(m_context.session, type); });
    m_grid->clearSelection();
    m_grid->showPosts(legs.posts);
    for (int line = 0; line < 3; ++line) {
        m_grid->setLabel(line, legs.labels[std::size_t(line)]);
        for (const Horse &horse : legs.horses[std::size_t(line)])
            m_grid->setCellTip(line, horse.post, horse.number + u' ' + horse.name);
    }
    listHorses(legs);
    m_legNote = legs.note;
    showNote();
}

void frmmulti::listHorses(const MultibetLegs &legs)
{
    lsthorses->clear();
    for (std::size_t line = 0; line < 3; ++line) {
        if (legs.races[line] == 0 || (line > 0 && legs.races[line] == legs.races[0]))
            continue;
        if (line > 0)
            lsthorses->addItem(raceName(legs.races[line]));
        for (const Horse &horse : legs.horses[line]) {
            if (isUnused(horse))
                continue;
            auto *item =
                new QListWidgetItem(rightColumn(QString::number(horse.post), 2) + u"  "_s
                                        + leftColumn(horse.number, 2) + u"  "_s + horse.name,
                                    lsthorses);
            item->setData(Qt::UserRole, horse.post);
        }
    }
}

void frmmulti::chooseBettor(int number, const QString &name)
{
    m_bettor = number;
    m_bettorName = name;
    lblbettor->setText(name);
    lblbettor->setToolTip("<span>"_L1 + name.toHtmlEscaped() + "</span>"_L1);
    clearPreview();
    loadPriorBets();
}

void frmmulti::loadPriorBets()
{
    m_prior.clear();
    trapErrors(this, m_context.session, ErrorStyle::NumberAndDescription, [this] {
        m_prior = multibetsOf(loadOrCreateMultibets(m_context.session), m_bettor);
    });
    showPriorBets();
}

void frmmulti::addToStake(double amount)
{
    m_stake += amount;
    txtbetamt->setText(formatMoney(m_stake, "$##.00"));
}

MultibetEntry frmmulti::entry() const
{
    MultibetEntry entry;
    entry.type = m_types->type();
    for (std::size_t line = 0; line < 3; ++line) {
        entry.posts[line] = m_grid->selectedPosts(int(line));
        entry.boxed[line] = chkbox[line]->isChecked();
    }
    entry.stake = m_stake;
    entry.bettor = m_bettor;
    return entry;
}

void frmmulti::preview()
{
    if (m_types->type().isEmpty())
        return showMessage(this, u"Must select bet type"_s);
    if (m_races->checkedId() < 0)
        return showMessage(this, u"Must select race number first"_s);
    if (m_bettor == 0)
        return showMessage(this, u"Must select bettor first"_s);
    clearPreview();
    const MultibetEntry selected = entry();
    if (hasSingleBox(selected))
        return showMessage(this, u"Must box at least 2 lines"_s);
    m_preview = expandEntry(selected);
    lstbets->addItems(m_preview.lines);
    showTotals();
    if (m_preview.full)
        showMessage(this, u"400 bet maximum exceeded"_s);

    QStringList notes;
    if (multibetType(selected.type)->lines == 3 && selected.posts[2].isEmpty()
        && !m_preview.pending.isEmpty())
        notes.append(u"Without a post on line 3 this bet cannot win"_s);
    if (m_stake == 0)
        notes.append(u"The bet amount is $0: nothing would be saved"_s);
    showNote(notes.join(u"; "_s));
}

void frmmulti::clearPreview()
{
    m_preview = {};
    lstbets->clear();
    showNote();
    showTotals();
}

void frmmulti::showTotals()
{
    const QString total = formatMoney(m_preview.total, dollars);
    txtthisbet->setText(total);
    txttotalbet->setText(total);
    txtcount->setText(QString::number(m_preview.lines.size()));
}

// What there is to say now, then what stays true: a missing leg, and the grand total.
void frmmulti::showNote(const QString &text)
{
    QStringList notes{text, m_legNote};
    if (m_grandTotal != 0)
        notes.append("Multibets since this screen was opened: "_L1
                     + formatMoney(m_grandTotal, dollars));
    notes.removeAll(QString());
    lblnote->setText(notes.join(u"; "_s));
}

void frmmulti::makeBet()
{
    if (m_preview.total == 0)
        return;
    const bool saved = trapErrors(this, m_context.session, ErrorStyle::DescriptionOnly, [this] {
        appendMultibets(m_context.session, m_preview.pending);
    });
    if (!saved)
        return;
    m_prior += m_preview.pending;
    m_grandTotal += m_preview.total;
    showNote("Bets saved: "_L1 + QString::number(m_preview.pending.size()));
    m_preview = {}; // the list stays and shows what was saved
    showTotals();
    showPriorBets();
    if (m_context.session.settings.receiptsPrint())
        printReceipt();
}

void frmmulti::printReceipt()
{
    const Settings &settings = m_context.session.settings;
    m_context.session.settings.operationLabel = u"Print Receipt"_s;
    trapErrors(this, m_context.session, ErrorStyle::DescriptionOnly, [&] {
        m_context.printer.print(
            multibetReceipt(settings.banner, m_bettorName, m_prior, receiptPoints(settings)));
    });
}

void frmmulti::showPriorBets()
{
    lstpriorbets->clear();
    QStringList lines;
    for (const Multibet &bet : std::as_const(m_prior))
        lines.append(savedMultibetText(bet));
    lstpriorbets->addItems(lines);
    lstpriorbets->scrollToBottom();
    txttotprior->setText(formatMoney(totalOf(m_prior), dollars));
}

void frmmulti::deletePriorBets()
{
    Session &session = m_context.session;
    QList<PlacedMultibet> removed;
    QList<Multibet> refunded;
    for (int row = 0; row < lstpriorbets->count(); ++row) {
        if (lstpriorbets->item(row)->isSelected()) {
            removed.append({row, m_prior[row]});
            refunded.append(m_prior[row]);
        }
    }
    if (removed.isEmpty())
        return;
    const Slip slip = multibetRefundSlip(m_bettorName, session.settings.raceName(), refunded,
                                         receiptPoints(session.settings));
    bool unchanged = true;
    trapErrors(this, session, ErrorStyle::DescriptionOnly, [&] {
        unchanged = removeMultibets(session, m_bettor, removed, [&] {
            printOrList(m_context, slip, session.settings.receiptsPrint());
        });
    });
    loadPriorBets();
    if (!unchanged)
        showNote(u"The bets on file have changed: the list is new, nothing was deleted"_s);
}

void frmmulti::switchReceipts()
{
    Session &session = m_context.session;
    session.settings.setReceiptPrinting(!session.settings.receiptsPrint());
    showReceiptState();
    trapErrors(this, session, ErrorStyle::DescriptionOnly, [&] { saveInit(session); });
}

void frmmulti::showReceiptState()
{
    txtreceipts->setText(m_context.session.settings.receiptsPrint() ? u"Receipts will print"_s
                                                                    : u"Receipts will not print"_s);
}

void frmmulti::printBlankSheets()
{
    Session &session = m_context.session;
    const int copies =
        listingCopies(askText(this, u"Enter number of copies to print"_s, {}, u"1"_s));
    if (copies == 0)
        return;
    if (!session.settings.mayPrint())
        return showNote(u"Nothing was printed: no printer is attached"_s);
    session.settings.operationLabel = u"Print Bet Sheet"_s;
    trapErrors(this, session, ErrorStyle::DescriptionOnly, [&] {
        for (int copy = 0; copy < copies; ++copy)
            m_context.printer.print(blankMultibetSheet());
        showNote("Bet sheets printed: "_L1 + QString::number(copies));
    });
}
