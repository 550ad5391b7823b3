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
        warn(QString(settled + u". A bet on it comes too late. "_s + lblnote->text()).trimmed());
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
