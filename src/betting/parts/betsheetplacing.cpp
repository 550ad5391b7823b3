#include "betting/parts/betsheet.h"

#include "betting/parts/betgrid.h"
#include "betting/parts/priorbetspanel.h"
#include "betting/receipts.h"
#include "common/event/eventrecords.h"
#include "common/event/racefiles.h"
#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "ui/bettorsearch.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QLabel>
#include <QLineEdit>

#include <utility>

// What the bet sheet does to the files: placing, deleting, bringing back.

using namespace Qt::StringLiterals;

namespace {

QString withBlank(const QString &sentence)
{
    return sentence.isEmpty() ? QString() : QString(u' ' + sentence);
}

} // namespace

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
