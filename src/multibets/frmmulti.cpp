#include "multibets/frmmulti.h"

#include "common/event/bettypes.h"
#include "common/event/eventrecords.h"
#include "common/event/init.h"
#include "common/event/roles.h"
#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "multibets/multislips.h"
#include "multibets/parts/postgrid.h"
#include "multibets/parts/typebuttons.h"
#include "ui/accessible.h"
#include "ui/bettorsearch.h"
#include "ui/clickcell.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

frmmulti::frmmulti(const ScreenContext &context)
    : MultibetForm(context)
{
    connectControls();
    fill();
}

void frmmulti::connectControls()
{
    connect(m_races, &QButtonGroup::idClicked, this, &frmmulti::chooseRace);
    connect(m_grid, &PostGrid::selectionChanged, this, &frmmulti::showGuide);
    for (const QCheckBox *box : chkbox)
        connect(box, &QCheckBox::toggled, this, &frmmulti::showGuide);
    connect(m_types, &TypeButtons::clicked, this, &frmmulti::chooseType);
    connect(m_search, &BettorSearch::selected, this, &frmmulti::chooseBettor);
    connect(m_search, &BettorSearch::resetRequested, this, &frmmulti::loadBettorList);
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
        connect(button, &QPushButton::clicked, this,
                [this, name = screen] { m_context.navigator.open(name); });
    }
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
    m_search->focusSearch();
}

void frmmulti::loadBettorList()
{
    trapErrors(this, ErrorStyle::DescriptionOnly, [this] {
        m_context.session.bettors = readBettors(m_context.session, u"Bettors Input"_s);
        m_search->setBettors(m_context.session.bettors);
    });
}

// The race that is shown keeps what was entered for it.
void frmmulti::chooseRace(int race)
{
    if (race == std::exchange(m_race, race))
        return;
    showRace(race);
    clearPreview();
    renewLegs();
    if (m_bettor != 0)
        loadPriorBets();
}

void frmmulti::chooseType(const QString &code)
{
    const MultibetType *type = takeType(code);
    if (!type)
        return;
    for (QCheckBox *box : chkbox)
        box->setChecked(false);
    chkbox[2]->setEnabled(type->lines == 3);
    m_grid->clearSelection();
    clearPreview();
    if (m_races->checkedId() > 0)
        renewLegs();
}

void frmmulti::renewLegs()
{
    m_grid->clearSelection();
    m_legs = showLegs();
    for (int line = 0; line < 3; ++line) {
        for (const Horse &horse : m_legs.horses[std::size_t(line)])
            m_grid->setCellTip(line, horse.post, postText(horse));
    }
    listHorses(m_legs);
    m_legNote = m_legs.note;
    if (const QString settled = settledBefore(); !settled.isEmpty())
        m_legNote = QString(settled + u". A bet on it comes too late. "_s + m_legNote).trimmed();
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
    clearPreview();
    loadPriorBets();
}

void frmmulti::loadPriorBets()
{
    m_prior.clear();
    trapErrors(this, ErrorStyle::NumberAndDescription, [this] {
        m_prior = multibetsOf(loadOrCreateMultibets(m_context.session), m_bettor);
    });
    showPriorBets();
}

void frmmulti::addToStake(double amount)
{
    m_stake += amount;
    txtbetamt->setText(formatMoney(m_stake, "$##.00"));
    txtbetamt->setAccessibleName(u"Amount of a single bet, "_s + spokenDollars(m_stake));
    showGuide();
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

EntryProgress frmmulti::progress() const
{
    using Stage = EntryProgress::Stage;
    const MultibetEntry selected = entry();
    const bool isPreviewed = m_previewed == selected;
    const Stage stage = !isPreviewed ? Stage::Marking : m_isSaved ? Stage::Saved : Stage::Previewed;
    return {selected, std::max(0, m_races->checkedId()), m_bettorName, stage};
}

void frmmulti::showGuide()
{
    const EntryProgress now = progress();
    const QString chosen = chosenText(now);
    lblguide->setText(chosen.isEmpty() ? nextStep(now) : QString(chosen + u": "_s + nextStep(now)));
    lblcost->setText(costText(now));
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
    m_previewed = selected;
    m_isSaved = false;
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
    showNote(notes.join(u"; "_s), NoteKind::Warning);
}

void frmmulti::clearPreview()
{
    m_preview = {};
    m_previewed.reset();
    lstbets->clear();
    showNote();
    showTotals();
}

void frmmulti::showTotals()
{
    const QString total = formatMoney(m_preview.total);
    txtthisbet->setText(total);
    txttotalbet->setText(total);
    txtcount->setText(QString::number(m_preview.lines.size()));
    showGuide();
}

// What there is to say now, then what stays true: a missing leg, and the grand total.
void frmmulti::showNote(const QString &text, NoteKind kind)
{
    QStringList notes{text, m_legNote};
    if (m_grandTotal != 0)
        notes.append("Multibets since this screen was opened: "_L1 + formatMoney(m_grandTotal));
    notes.removeAll(QString());
    lblnote->setText(notes.join(u"; "_s), m_legNote.isEmpty() ? kind : NoteKind::Warning);
}

void frmmulti::makeBet()
{
    if (m_preview.total == 0)
        return;
    if (!mayBeLate(this, settledBefore(), u"Multi-bet"_s))
        return showNote(u"No bet was placed."_s, NoteKind::Warning);
    const bool saved = trapErrors(this, ErrorStyle::DescriptionOnly, [this] {
        appendMultibets(m_context.session, m_preview.pending);
    });
    if (!saved)
        return;
    m_prior += m_preview.pending;
    m_grandTotal += m_preview.total;
    const QString note = "Bets saved: "_L1 + QString::number(m_preview.pending.size());
    showNote(note);
    m_isSaved = true;
    m_preview = {}; // the list stays and shows what was saved
    showTotals();
    showPriorBets();
    if (const Printed receipt = printReceipt(); !receipt.note.isEmpty())
        showNote(note + u"; "_s + receipt.note, receipt.kind());
}

// Says of the first race of the bet that was settled that it was.
QString frmmulti::settledBefore() const
{
    for (std::size_t line = 0; line < m_legs.races.size(); ++line) {
        const QString settled =
            settledNote(m_context.session, m_legs.races[line], m_legs.horses[line]);
        if (!settled.isEmpty())
            return settled;
    }
    return {};
}

Printed frmmulti::printReceipt()
{
    const Settings &settings = m_context.session.settings;
    if (!settings.receiptsPrint())
        return {.isComplete = true};
    Printed receipt =
        printSlip(this, m_context, {u"Print Receipt"_s},
                  multibetReceipt(settings.banner, m_bettorName, m_prior, receiptPoints(settings)));
    if (!receipt.isComplete)
        receipt.note = u"The receipt was not printed."_s;
    return receipt;
}

void frmmulti::showPriorBets()
{
    lstpriorbets->clear();
    QStringList lines;
    for (const Multibet &bet : std::as_const(m_prior))
        lines.append(savedMultibetText(bet));
    lstpriorbets->addItems(lines);
    lstpriorbets->scrollToBottom();
    txttotprior->setText(formatMoney(totalOf(m_prior)));
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
    bool isRemoved = false;
    std::optional<FileError> twinFailed;
    const bool done = trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        twinFailed = errorOfTwin([&] { isRemoved = removeMultibets(session, m_bettor, removed); });
        isRemoved |= twinFailed.has_value();
    });
    loadPriorBets();
    if (!done)
        return;
    if (!isRemoved)
        return showNote(u"The bets on file have changed: the list is new, nothing was deleted"_s,
                        NoteKind::Warning);
    // Bets that left the file are owed to the bettor, even when the backup file failed.
    const PrintTask task{.label = u"Refund Bets"_s, .gate = PrintGate::Receipts};
    const Printed printed = printOrList(this, m_context, task, slip, u"The refund list"_s);
    showNote(printed.note, printed.kind());
    if (twinFailed)
        showFileError(this, *twinFailed, ErrorStyle::DescriptionOnly);
}

void frmmulti::switchReceipts()
{
    trapErrors(this, ErrorStyle::DescriptionOnly,
               [&] { switchReceiptPrinting(m_context.session); });
    showReceiptState();
}

void frmmulti::showReceiptState()
{
    txtreceipts->setText(m_context.session.settings.receiptsState());
}

void frmmulti::printBlankSheets()
{
    const CopiesQuestion question{
        u"Enter number of copies to print"_s, {}, u"Print Bet Sheet"_s, u"Bet sheets printed: "_s};
    if (const auto printed = printAskedCopies(this, m_context, question, blankMultibetSheet()))
        showNote(printed->note, printed->kind());
}
