#include "betting/parts/betsheet.h"

#include "betting/parts/betamountpanel.h"
#include "betting/parts/betgrid.h"
#include "betting/parts/priorbetspanel.h"
#include "betting/receipts.h"
#include "common/event/eventrecords.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/event/odds.h"
#include "common/event/racefiles.h"
#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "ui/bettorsearch.h"
#include "ui/colors.h"
#include "ui/controls.h"
#include "ui/listkeys.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString withBlank(const QString &sentence)
{
    return sentence.isEmpty() ? QString() : QString(u' ' + sentence);
}

QString toBePlacedText(float amount)
{
    return u"to be placed: "_s + formatMoney(amount);
}

} // namespace

BetSheet::BetSheet(const ScreenContext &context, const BetSheetKind &kind)
    : m_context(context)
    , m_kind(kind)
{
    build();
    connectControls();
    showReceiptSetting();
    showBettor();
    clearEntries();
    m_search->focusSearch();
}

bool BetSheet::trapped(const std::function<void()> &work)
{
    return trapErrors(this, ErrorStyle::NumberAndDescription, work);
}

void BetSheet::entered()
{
    Session &session = m_context.session;
    bool initIsWhole = true;
    trapped([&] { initIsWhole = rereadInit(session); });
    if (!initIsWhole)
        warn(u"Init is damaged: the settings of this run stay in force."_s);
    showReceiptSetting();
    loadBettorList();
    loadRace();
}

void BetSheet::note(const QString &text)
{
    lblnote->setText(text);
}

void BetSheet::warn(const QString &text)
{
    lblnote->warn(text);
}

void BetSheet::loadBettorList()
{
    Session &session = m_context.session;
    trapped([&] { session.bettors = readBettors(session, u"Bettors Input"_s); });
    m_search->setBettors(session.bettors);
}

// Shows the current race on an empty sheet. What cannot be read is empty: no bet may fall on a
// horse of the race before.
void BetSheet::loadRace()
{
    Session &session = m_context.session;
    m_horses = {};
    m_pools = {};
    QString betsNote;
    trapped([&] {
        const HorseFile card = readHorses(session, session.settings.currentRace);
        m_horses = card.horses;
        if (const QString damage = card.damage(); !damage.isEmpty())
            warn(damage);
        const RaceBets race = LoadRaceBets(session);
        m_pools = race.pools;
        betsNote = race.note;
    });
    if (!betsNote.isEmpty())
        warn(betsNote);
    m_races->button(session.settings.currentRace)->setChecked(true);
    txtbanner->setText(session.settings.banner);
    txtbanner1->setText(session.settings.raceName());
    m_grid->setHorses(m_horses);
    if (std::ranges::all_of(m_horses, isUnused) && lblnote->text().isEmpty())
        note(u"No horses are entered for this race yet."_s);
    if (const QString settled = settledBefore(); !settled.isEmpty())
        warn(settled + u". A bet on it comes too late."_s + withBlank(lblnote->text()));
    showOdds();
    clearEntries();
}

void BetSheet::showOdds()
{
    std::array<int, postCount> couplings{};
    for (int post = 1; post <= postCount; ++post)
        couplings[std::size_t(post - 1)] = m_horses.couplingOf(post);
    m_grid->setOdds(winOdds(m_pools, couplings));
}

// The race that is shown already keeps what was entered for it.
void BetSheet::chooseRace(int race)
{
    const int before = m_context.session.settings.currentRace;
    if (race == before)
        return;
    if (!mayThrowAway())
        return keepOption(m_races, before);
    note({});
    m_deleted.clear();
    m_context.session.settings.currentRace = race;
    trapped([&] { saveInit(m_context.session); });
    loadRace();
    if (m_bettor != 0)
        listPriorBets(m_bettor, m_bettorName);
    else
        showPrior({});
}

// A bettor who was not the one that was typed is shown as doubtful, and the search goes on.
void BetSheet::chooseBettor(int number, const QString &name, const QString &missed)
{
    warn(missed.isEmpty() ? QString() : QString(u"No name begins with "_s + missed + u'.'));
    m_deleted.clear();
    showUndo();
    m_bettor = number;
    m_bettorName = name;
    m_amount->endTyping();
    showBettor(!missed.isEmpty());
    listPriorBets(number, name);
    if (missed.isEmpty())
        m_grid->focusFirstCell();
    else
        m_search->focusSearch();
}

void BetSheet::showBettor(bool isDoubtful)
{
    lblselected->setText(m_bettor == 0 ? u"No bettor selected"_s : m_bettorName);
    lblselected->setEnabled(m_bettor != 0);
    setTone(lblselected, isDoubtful ? Tone::Wrong : Tone::None);
}

// What was entered is on no file yet.
bool BetSheet::mayThrowAway()
{
    return m_entries.isEmpty()
           || askYesNoCarefully(this, u"The bets on this sheet are not placed. Throw them away?"_s,
                                u"Bet Sheet"_s);
}

void BetSheet::listPriorBets(int bettor, const QString &name)
{
    PriorBets prior{bettor, name, {}, 0};
    trapped([&] {
        const RaceBets race = LoadRaceBets(m_context.session);
        m_pools = race.pools;
        prior = priorBets(race.bets, m_horses, bettor, name);
    });
    showPrior(prior);
    showOdds();
}

void BetSheet::showPrior(const PriorBets &prior)
{
    m_prior = prior;
    m_priorPanel->showBets(m_prior);
}

void BetSheet::addEntry(int post, BetType type)
{
    if (m_amount->amount() == 0)
        return;
    m_amount->endTyping();
    m_cleared.reset();
    showUndo();
    m_entries.add(post, type, m_amount->amount());
    showEntries();
}

void BetSheet::emptyEntry(int post, BetType type)
{
    if (!m_entries.isEntered(post, type))
        return;
    m_cleared.reset();
    showUndo();
    m_entries.remove(post, type);
    showEntries();
}

void BetSheet::clearSheet()
{
    if (m_entries.isEmpty())
        return;
    const BetEntries cleared = m_entries;
    clearEntries();
    m_cleared = cleared;
    showUndo();
    note(u"The sheet is empty. Undo brings the entries back until the next one."_s);
}

void BetSheet::undo()
{
    if (!m_cleared)
        return bringBack();
    m_entries = *std::exchange(m_cleared, {});
    showUndo();
    showEntries();
}

// Places the bets that were deleted last once more, as long as they would be the same bets.
void BetSheet::bringBack()
{
    if (m_deleted.empty())
        return;
    note({});
    if (!bettorHolds(m_prior.bettor, m_prior.name) || !cardIsAsShown())
        return;
    if (!mayBeLate(this, settledBefore(), u"Place Bets"_s))
        return warn(u"The bets are still deleted."_s);
    Session &session = m_context.session;
    Placement placement;
    if (!trapped([&] { placement = placeBets(session, planReturn(m_deleted)); })) {
        return warn(session.files.unsure
                        ? u"Press Undo again: what is on file is not placed twice."_s
                        : u"The bets are still deleted."_s);
    }
    if (placement.raceIsFull)
        return warn(u"The race is full: the bets are still deleted."_s);
    note(counted(placement.plan.bets.size(), u"bet"_s) + u" of "_s
         + formatMoney(placement.plan.total()) + u" brought back for "_s + m_prior.name
         + u": take the refund back."_s);
    m_deleted.clear();
    showUndo();
    listPriorBets(m_prior.bettor, m_prior.name);
}

bool BetSheet::cardIsAsShown()
{
    Session &session = m_context.session;
    HorseFile card;
    if (!trapped([&] { card = readHorses(session, session.settings.currentRace); }))
        return false;
    const QStringList changes = cardChanges(m_horses, card.horses);
    if (!changes.isEmpty())
        warn(changes.join(u' ') + u" The bets are still deleted."_s);
    return changes.isEmpty();
}

void BetSheet::showUndo()
{
    cmdundo->setEnabled(m_cleared || !m_deleted.empty());
}

void BetSheet::clearEntries()
{
    m_cleared.reset();
    showUndo();
    m_entries.clear();
    m_context.session.files.unsure.reset();
    m_grid->showEntries(m_entries);
    lbltobeplaced->setText(toBePlacedText(0));
}

void BetSheet::showEntries()
{
    m_grid->showEntries(m_entries);
    lbltobeplaced->setText(toBePlacedText(plan().total()));
    warn(entriesNote(m_entries));
}

PlacementPlan BetSheet::plan() const
{
    // No operation ever raises a bettor's own count of bets, so that limit stays a safeguard.
    constexpr int betsOfBettor = 0;
    return planPlacement(m_entries, m_bettor, betsOfBettor, m_context.session.settings.betLimit);
}

// What stood on the sheet when the question came is placed, or nothing.
void BetSheet::place()
{
    const QString title = u"Place Bets"_s;
    Session &session = m_context.session;
    m_grid->finishCall();
    if (m_entries.total() == 0)
        return;
    if (m_bettor == 0)
        return showMessage(this, u"Must select bettor first."_s, title);
    PlacementPlan asked = plan();
    if (!askYesNo(this, u"Place these bets?"_s, title))
        return;
    note({});
    if (!bettorHolds(m_bettor, m_bettorName) || !cardHolds(asked))
        return;
    if (!mayBeLate(this, settledBefore(), title))
        return warn(u"No bet was placed."_s);
    Placement placement;
    if (!trapped([&] { placement = placeBets(session, asked); })) {
        return warn(session.files.unsure ? u"Place these bets again: what is on file is not placed "
                                           "twice."_s
                                         : u"No bet was placed."_s);
    }
    const QString limit = QString::number(session.settings.betLimit);
    if (placement.raceIsFull) {
        return showMessage(this,
                           u"The race has room for "_s + counted(placement.roomLeft, u"bet"_s)
                               + u" more. These bets were not placed."_s,
                           title);
    }
    listPlaced(placement);
    if (placement.plan.stopsAtNegative)
        return stopAtNegative(placement.plan);
    if (placement.plan.overBettorLimit) {
        showMessage(this, u"Maximum of "_s + limit + u" bets for any one bettor"_s, u"Place Bet"_s);
    }
    finishPlacement(placement);
}

// Other computers may have changed the list of bettors since the sheet was opened: no bet goes to
// the name that carries the number now.
bool BetSheet::bettorHolds(int number, const QString &name)
{
    Session &session = m_context.session;
    if (!m_kind.readsBettorsToPlace)
        return true;
    if (!trapped([&] { session.bettors = readBettors(session); })) {
        warn(u"No bet was placed."_s);
        return false;
    }
    if (session.bettors.nameOf(number) == name)
        return true;
    showMessage(this,
                u"Bettor number "_s + QString::number(number) + u" is no longer "_s + name
                    + u". No bet was placed. Select the bettor again."_s,
                u"Place Bets"_s);
    m_bettor = 0;
    m_bettorName.clear();
    showBettor();
    showPrior({});
    m_search->setBettors(session.bettors);
    return false;
}

// A horse may have been scratched, or another entered, since the sheet was filled: bets go to the
// card on file, and only when the cashier has seen it.
bool BetSheet::cardHolds(PlacementPlan &asked)
{
    Session &session = m_context.session;
    HorseFile card;
    if (!trapped([&] { card = readHorses(session, session.settings.currentRace); })) {
        warn(u"No bet was placed."_s);
        return false;
    }
    QStringList changes = cardChanges(std::exchange(m_horses, card.horses), card.horses);
    if (changes.isEmpty())
        return true;
    const QString damage = card.damage();
    changes.prepend(damage.isEmpty() ? u"The card has changed."_s : damage);
    const float before = m_entries.total();
    m_entries.removeUnused(m_horses);
    if (const float lost = before - m_entries.total(); lost != 0)
        changes.append(formatMoney(lost) + u" on horses that run no longer left the sheet."_s);
    m_grid->setHorses(m_horses);
    showOdds();
    showEntries();
    asked = plan();
    const QString title = u"Place Bets"_s;
    if (m_entries.total() != 0)
        return askYesNo(this, changes.join(u'\n') + u"\nPlace these bets?"_s, title);
    showMessage(this, changes.join(u'\n') + u"\nNo bet was placed."_s, title);
    return false;
}

// "Race1 was settled at 20:39: ..."; empty when it was not.
QString BetSheet::settledBefore() const
{
    Session &session = m_context.session;
    return settledNote(session, session.settings.currentRace, m_horses);
}

// Adds the placed bets to the prior bets.
void BetSheet::listPlaced(const Placement &placement)
{
    for (std::size_t i = 0; i < placement.rows.size(); ++i) {
        const Bet &bet = placement.plan.bets[i];
        m_prior.append({placement.rows[i], bet, placedBetLine(m_horses, bet)});
    }
    m_priorPanel->showBets(m_prior);
    m_pools = placement.pools;
    showOdds();
}

void BetSheet::stopAtNegative(const PlacementPlan &plan)
{
    showMessage(this, u"Bet amounts must be positive"_s);
    warn(counted(plan.bets.size(), u"bet"_s) + u" of "_s + formatMoney(plan.total())
         + u" saved before the negative amount. What is saved must leave the sheet before "
           "placing again."_s);
}

// The bets are on disk: whatever the printer says, the sheet is cleared, so that nothing is placed
// twice.
void BetSheet::finishPlacement(const Placement &placement)
{
    Session &session = m_context.session;
    bool isPrinted = true;
    QString result = counted(placement.plan.bets.size(), u"bet"_s) + u" of "_s
                     + formatMoney(placement.plan.total()) + u" placed for "_s + m_bettorName
                     + u'.';
    if (session.settings.receiptsPrint()) {
        const Printed receipt =
            printSlip(this, m_context, {u"Bet receipt"_s, ErrorStyle::NumberAndDescription},
                      betReceipt(session.settings, m_prior));
        isPrinted = receipt.isComplete;
        result += isPrinted ? withBlank(receipt.note) : u" The receipt was not printed."_s;
    }
    clearEntries();
    m_bettor = 0;
    m_bettorName.clear();
    showBettor();
    if (m_kind.readsBettorsToPlace)
        m_search->setBettors(session.bettors);
    else
        m_search->reset();
    m_search->focusSearch();
    lblnote->setText(result, isPrinted ? NoteKind::Plain : NoteKind::Warning);
}

void BetSheet::deletePrior()
{
    QList<PriorBet> selected;
    for (const int line : m_priorPanel->selectedLines())
        selected.append(m_prior.bets[line]);
    if (selected.isEmpty())
        return;
    note({});
    DeletedBets deleted;
    if (!trapped([&] { deleted = deletePriorBets(m_context.session, selected); }))
        return;
    if (deleted.listWasStale) {
        warn(u"The race's bets changed meanwhile: nothing was deleted. Select the bets again."_s);
    } else {
        const Printed refund = printRefund(deleted);
        lblnote->setText(counted(std::size_t(selected.size()), u"bet"_s) + u" deleted, refund "_s
                             + formatMoney(deleted.refund) + u" to "_s + m_prior.name + u'.'
                             + withBlank(refund.note),
                         refund.kind());
        m_deleted.clear();
        for (const PriorBet &bet : selected)
            m_deleted.push_back(bet.bet);
        showUndo();
    }
    if (deleted.twinError)
        showFileError(this, *deleted.twinError, ErrorStyle::NumberAndDescription);
    listPriorBets(m_prior.bettor, m_prior.name);
}

// The bets are gone; their list must not be.
Printed BetSheet::printRefund(const DeletedBets &deleted)
{
    const Settings &settings = m_context.session.settings;
    if (!settings.receiptsPrint())
        return {.isComplete = true};
    const PrintTask task{u"Refund Bets"_s, ErrorStyle::NumberAndDescription};
    return printOrList(this, m_context, task, priorBetsRefund(settings, m_prior.name, deleted),
                       u"The refund list"_s);
}

// The receipt that jammed in the printer, once more.
void BetSheet::printReceipt()
{
    if (m_prior.bets.isEmpty())
        return warn(u"Select a bettor who has bets in this race first."_s);
    const PrintTask task{u"Bet receipt"_s, ErrorStyle::NumberAndDescription,
                         u"Printed once more for "_s + m_prior.name};
    tellPrinted(lblnote,
                printSlip(this, m_context, task, betReceipt(m_context.session.settings, m_prior)));
}

void BetSheet::switchReceipts()
{
    trapped([&] { switchReceiptPrinting(m_context.session); });
    showReceiptSetting();
}

void BetSheet::showReceiptSetting()
{
    setCaption(cmdprint, m_context.session.settings.receiptsState());
}

void BetSheet::keyPressEvent(QKeyEvent *event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return event->ignore();
    const int key = event->key();
    const QString text = event->text();
    const QChar typed = text.isEmpty() ? QChar() : text.front();
    if (typed >= u'0' && typed <= u'9')
        m_amount->type(typed);
    else if (typed == u'.'
             || typed == u',') // the number pad's key, whatever the keyboard's language
        m_amount->type(u'.');
    else if (key == Qt::Key_Backspace)
        m_amount->takeBack();
    else if (key == Qt::Key_Plus || key == Qt::Key_Minus)
        m_amount->setSign(key == Qt::Key_Minus);
    else
        event->ignore();
}
