#include "payoff/frmpaywinnersb.h"

#include "common/event/bettypes.h"
#include "common/event/eventrecords.h"
#include "common/print/cashtexts.h"
#include "common/print/format.h"
#include "payoff/houseguidance.h"
#include "payoff/parts/combinationgrid.h"
#include "payoff/settlerace.h"
#include "ui/listkeys.h"
#include "ui/paidlist.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString horseText(const Horse &horse)
{
    return isUnused(horse) ? u"(no horse)"_s : QString(horse.number + u' ' + horse.name);
}

QListWidgetItem *selectedItem(const QListWidget *list)
{
    const auto selected = list->selectedItems();
    return selected.isEmpty() ? nullptr : selected.front();
}

} // namespace

frmpaywinnersb::frmpaywinnersb(const ScreenContext &context)
    : PayDesk(context)
{
    connectControls();
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
    connect(cmdsame, &QPushButton::clicked, this, &frmpaywinnersb::fillAsBefore);
    pressOnEnter(lsthorses, [this] { return firstFreeFinish(); });
    connect(cmdreturn, &QPushButton::clicked, this, &frmpaywinnersb::leave);
}

// A race chosen anew starts without finishers, flags, payoffs and lists; slips of bettors paid in
// another race stay for the printer.
void frmpaywinnersb::selectRace(int race)
{
    Session &session = m_context.session;
    if (!mayStartOver(race))
        return keepOption(optrace, session.settings.currentRace);
    if (race == session.settings.currentRace)
        return showRace();
    m_ledger.closeRace(session.bettors);
    m_ledger.forgetPayments(race);
    session.settings.currentRace = race;
    showRace();
    lblnote->add(m_ledger.unpaidNotes().join(u"; "_s), NoteKind::Warning);
}

void frmpaywinnersb::showRace()
{
    Session &session = m_context.session;
    m_track.reset();
    clearCalculation();
    m_calculator.close(); // nobody holds slips of a race that is left
    txtbanner->setText(session.settings.bannerAndRace());
    if (QAbstractButton *option = optrace->button(session.settings.currentRace))
        option->setChecked(true);
    for (const Combination combination : allCombinations)
        payoffs->setText(combination, {});
    for (const Finish finish : allFinishes)
        setFinisher(finish, 0);
    txtfactor->setText(roundingText(session.settings.roundingIndex));
    lsthorses->clear();
    showSelectedHorse();
    lblnote->clear();

    session.horses = {};
    trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        const HorseFile card = readHorses(session, session.settings.currentRace);
        session.horses = card.horses;
        lblnote->warn(card.damage());
    });
    for (const Horse &horse : session.horses) {
        if (isUnused(horse))
            continue;
        auto *item = new QListWidgetItem(horseText(horse), lsthorses);
        item->setData(Qt::UserRole, horse.post);
    }
    showHistory();
}

// What the journals say of the race; nothing is filled in by itself.
void frmpaywinnersb::showHistory()
{
    Session &session = m_context.session;
    const CashJournal journal = readCashJournal(session);
    const CashEntry *before = lastSettlement(journal, session.settings.currentRace);
    m_before = before ? std::optional(*before) : std::nullopt;
    cmdsame->setVisible(m_before.has_value());
    if (m_before)
        lblnote->add(settledText(*m_before, session.horses));
    lblnote->add(journalNote(journal), NoteKind::Warning);
}

void frmpaywinnersb::fillAsBefore()
{
    const RaceSettled &settled = *m_before->settled;
    for (const Finish finish : allFinishes)
        setFinisher(finish, settled.payoffs.finishers[std::size_t(finish)]);
    txthousepct->setText(QString::number(settled.housePercent));
    if (settled.payoffs.is532)
        lblnote->setText(u"It was a 532 payoff: click on CALCULATE 532  PAYOFF for the same."_s);
    if (settled.payoffs.usesTrack)
        lblnote->setText(u"It was paid at the track's payoffs: type them and click on USE TRACK "
                         "PAYOFF for the same."_s);
}

void frmpaywinnersb::clearCalculation()
{
    m_context.session.payoffs = {};
    clearPayments();
    lblrace2->clear();
    for (QLineEdit *field : totalFields())
        field->clear();
    for (QLineEdit *field : {txthousetot, txtbet, txtpaid, txtrounded})
        field->clear();
    lblowed->clear();
    lblpays->setText(u"$2 bet pays"_s);
    setTotalCaptions(u"POOLS"_s, {betTypeWord(BetType::Win), betTypeWord(BetType::Place),
                                  betTypeWord(BetType::Show), u"Total"_s});
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
        lblnote->warn(u"The winners listed are those of the finish calculated before."_s);
}

// The button of the first place that no horse is entered for; null when all three are.
QPushButton *frmpaywinnersb::firstFreeFinish()
{
    QPushButton *const buttons[] = {cmdwinner, cmdplace, cmdshow};
    for (const Finish finish : allFinishes) {
        if (finisher(finish) < 1)
            return buttons[std::size_t(finish)];
    }
    lblnote->setText(u"All three places are entered. ENTER WINNER, ENTER PLACE and ENTER SHOW "
                     "change them."_s);
    return nullptr;
}

void frmpaywinnersb::setFinisher(Finish finish, int post)
{
    const auto index = std::size_t(finish);
    finishFields()[index]->setText(post == 0 ? QString() : QString::number(post));
    const QString horse = post == 0 ? QString() : horseText(m_context.session.horses.post(post));
    lblfinish[index]->setText(horse);
    finishFields()[index]->setAccessibleDescription(horse);
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
bool frmpaywinnersb::mayStartOver(int race)
{
    return !m_ledger.wasPaid(race) || askYesNo(this, u"Start over?"_s);
}

// Whoever was paid was paid by the settlement before: it is replaced only on purpose.
bool frmpaywinnersb::maySettle(const RaceResult &result)
{
    Session &session = m_context.session;
    const QString reason = settledOtherwise(session, readCashJournal(session), result);
    return reason.isEmpty() ? mayStartOver(session.settings.currentRace)
                            : askYesNoCarefully(this, reason, u"Pay winners"_s);
}

void frmpaywinnersb::calculate(bool is532)
{
    if (!completeFinishers())
        return;
    RaceResult result;
    for (const Finish finish : allFinishes)
        result.finishers[std::size_t(finish)] = finisher(finish);
    result.housePercent = numericValue(txthousepct->text());
    result.is532 = is532;
    result.trackPayoffs = m_track;
    settleAndShow(result);
}

void frmpaywinnersb::settleAndShow(const RaceResult &result)
{
    Session &session = m_context.session;
    if (!maySettle(result))
        return;
    SettledRace settled;
    if (!trapErrors(this, ErrorStyle::DescriptionOnly,
                    [&] { settled = settleCurrentRace(session, result); }))
        return;
    const Settlement &settlement = settled.settlement;
    m_result = result;
    m_settledBets = std::move(settled.bets);
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
        fields[i]->setText(formatMoney(totals[i]));
    txthousetot->setText(formatMoney(settlement.houseCut));
    txtbet->setText(formatMoney(settlement.pools.amount(totalsRow, totalColumn), "Currency"));
    for (const Combination combination : allCombinations) {
        payoffs->setText(combination, settlement.hasWinners ? formatMoney(
                                          2 * settlement.payoffs[combination], "Currency")
                                                            : QString());
    }
    if (m_context.session.payoffs.is532)
        lblpays->setText(u"$2 bet pays - 532 Payoff"_s);
    if (settlement.hasWinners)
        showRacePayoffs();
}

// They stay in sight while the fields above show what a bettor gets.
void frmpaywinnersb::showRacePayoffs()
{
    const Session &session = m_context.session;
    const auto &finishers = session.payoffs.finishers;
    const auto dollars = [&](Combination combination) -> QString {
        return u' ' + formatMoney(2 * session.payoffs.perDollar[combination], "Currency");
    };
    using enum Combination;
    const QString texts[] = {dollars(WinWin) + dollars(WinPlace) + dollars(WinShow),
                             dollars(PlacePlace) + dollars(PlaceShow), dollars(ShowShow)};
    QStringList lines;
    for (std::size_t i = 0; i < finishers.size(); ++i) {
        if (const Horse &horse = session.horses.post(finishers[i]); !isUnused(horse))
            lines += u"$2 on "_s + horseText(horse) + u':' + texts[i];
    }
    lblrace2->setText(lines.join(u'\n'));
}

void frmpaywinnersb::listWinners(const Settlement &settlement)
{
    const Session &session = m_context.session;
    m_ledger.start(session.payoffs.race, settlement.winners, session.payoffs.perDollar,
                   session.settings.roundingIndex);
    const BettorNames names(session.bettors);
    for (std::size_t i = 0; i < settlement.winners.size(); ++i)
        lstwinners->addItem(makeWinner(i, names.listed(settlement.winners[i].number)));
    lblnote->setText(markPaid(), NoteKind::Warning);
    showPaidTotals();
    guidance->setCurrentIndex(1);
    lblhouse->setText(houseGuidance(m_result, settlement, m_ledger.owed()));
    lblhouse->setVisible(!lblhouse->text().isEmpty());
    const auto &finishers = session.payoffs.finishers;
    if (finishers[0] == finishers[1] || finishers[0] == finishers[2]
        || (finishers[1] == finishers[2] && !isUnused(session.horses.post(finishers[1]))))
        lblnote->addBefore(u"The same horse was entered for two places."_s, NoteKind::Warning);
    lstwinners->setFocus();
    lstwinners->setCurrentRow(-1); // the first arrow key selects the first name, not the second
}

void frmpaywinnersb::useTrackPayoffs()
{
    if (!askOkCancel(this, u"Use track payoffs?"_s, u"Track Payoff"_s))
        return;
    CombinationAmounts track;
    for (const Combination combination : allCombinations) {
        const auto payoff = trackPayoff(combination);
        if (!payoff)
            return showMessage(
                this,
                u"Missing entry or non-numeric entry - enter an amount in all payoff fields using only numbers and decimal points"_s);
        track[combination] = *payoff;
    }
    if (!mayStartOver(m_context.session.settings.currentRace))
        return;
    for (const Combination combination : allCombinations) {
        if (payoffs->isUntouched(combination))
            payoffs->setText(combination, formatMoney(2 * track[combination], "Currency"));
    }
    m_track = track;
    clearCalculation();
    lblnote->setText(u"Click on CALCULATE  PAYOFF to list the winners at the track's payoffs."_s);
}

// The payoff per $1 that a field gives for the track's. What the program put there itself is a
// payoff after the house percentage, or a bettor's amount; for those the payoff as it was before
// the house percentage counts, so that it is not taken twice.
std::optional<float> frmpaywinnersb::trackPayoff(Combination combination) const
{
    if (payoffs->isUntouched(combination))
        return m_track ? (*m_track)[combination]
                       : m_context.session.payoffs.beforeHouse[combination];
    const QString text = payoffs->text(combination);
    if (!isNumeric(text))
        return std::nullopt;
    const auto value = float(numericAmount(text));
    return std::isfinite(value) ? std::optional(value / 2) : std::nullopt;
}

void frmpaywinnersb::leave()
{
    m_ledger.closeRace(m_context.session.bettors);
    QStringList notes = m_ledger.unpaidNotes();
    const bool isUnpaid = !notes.isEmpty();
    const Printed printed = printSlips();
    notes.append(printed.note);
    notes.removeAll(QString());
    m_context.session.payoffs = {};
    m_calculator.close();
    m_context.navigator.open(u"frmmenub"_s, notes.join(u"; "_s),
                             isUnpaid ? NoteKind::Warning : printed.kind());
}

// A winner whose bet came in after the calculation is on no list: before anybody is paid the bets
// are compared with those on file now. False when they were calculated again or could not be read.
bool frmpaywinnersb::hasEveryBet()
{
    Session &session = m_context.session;
    QString change;
    BetTable found;
    if (!trapErrors(this, ErrorStyle::DescriptionOnly,
                    [&] { change = betsSinceSettled(session, m_settledBets, found); }))
        return false;
    if (change.isEmpty())
        return true;
    if (askYesNo(this, change + u" Calculate again?"_s, u"Pay winners"_s)) {
        // The same calculation, whatever was entered since.
        for (const Finish finish : allFinishes)
            setFinisher(finish, m_result.finishers[std::size_t(finish)]);
        if (numericValue(txthousepct->text()) != m_result.housePercent)
            txthousepct->setText(QString::number(m_result.housePercent));
        settleAndShow(RaceResult(m_result));
        return false;
    }
    m_settledBets = std::move(found);
    return true;
}
