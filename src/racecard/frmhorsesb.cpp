#include "racecard/frmhorsesb.h"

#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/event/labelled.h"
#include "common/event/racefiles.h"
#include "common/event/session.h"
#include "common/print/copies.h"
#include "common/print/format.h"
#include "racecard/download.h"
#include "racecard/fetch.h"
#include "racecard/papersheets.h"
#include "racecard/parts/waiting.h"
#include "racecard/scratch.h"
#include "ui/controls.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {
// Boxes shown for entries of a download that were refused; a broken card could bring thousands.
constexpr qsizetype mostRefusals = 20;
} // namespace

frmhorsesb::frmhorsesb(const ScreenContext &context)
    : m_context(context)
{
    connectControls();
    txtmsg->setPlainText(m_context.session.settings.betSheetMessage);
    txtnumber[0]->setFocus();
}

void frmhorsesb::connectControls()
{
    for (std::size_t row = 0; row < postCount; ++row) {
        for (QLineEdit *box : boxesOf(row))
            connect(box, &QLineEdit::textEdited, this,
                    [this, box, row] { edited(box, int(row) + 1); });
    }
    connect(optrace, &QButtonGroup::idClicked, this, &frmhorsesb::chooseRace);
    connect(cmdupdatehorses, &QPushButton::clicked, this, &frmhorsesb::updateHorses);
    connect(cmdscratch, &QPushButton::clicked, this, &frmhorsesb::scratchHorse);
    connect(cmdclearhorses, &QPushButton::clicked, this, &frmhorsesb::clearHorses);
    connect(cmdmsg, &QPushButton::clicked, this, &frmhorsesb::updateMessage);
    connect(cmdmainmenu, &QPushButton::clicked, this, &frmhorsesb::returnToMenu);
    connect(cmdGo, &QPushButton::clicked, this, &frmhorsesb::download);
    connect(cmdprint, &QPushButton::clicked, this, &frmhorsesb::printBetSheets);
}

void frmhorsesb::load()
{
    Session &session = m_context.session;
    txtbanner->setText(session.settings.bannerAndRace());
    if (QAbstractButton *option = optrace->button(session.settings.currentRace))
        option->setChecked(true);
    m_pools = PoolTable();
    m_poolsEmptied = false;
    m_loaded = HorseTable();
    m_saved = CardRows();
    showRows(m_saved);
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        const HorseFile card = readHorses(session, session.settings.currentRace);
        const QString damage = card.damage();
        m_loaded = card.horses;
        m_saved = rowsOf(card.horses);
        showRows(m_saved);
        if (!damage.isEmpty())
            lblnote->warn(damage + " The other posts are shown empty."_L1);
    });
    readBets();
}

// The bets tell which rows have some, for the notes alone: what cannot be read is a note as well.
void frmhorsesb::readBets()
{
    QString note;
    try {
        const RaceBets race = LoadRaceBets(m_context.session);
        m_pools = race.pools;
        note = race.note;
    } catch (const FileError &error) {
        note = "The bets of this race cannot be read: "_L1 + error.description();
    }
    if (!note.isEmpty())
        lblnote->warn(note);
}

void frmhorsesb::chooseRace(int race)
{
    const QString unsaved = unsavedNote();
    lblnote->warn(unsaved);
    if (race == m_context.session.settings.currentRace && !unsaved.isEmpty())
        return; // what was typed for the race that is shown stays
    m_context.session.settings.currentRace = race;
    load();
}

void frmhorsesb::edited(const QLineEdit *box, int post)
{
    if (m_poolsEmptied) {
        // The first entry of the new card: the other horses run alone unless told otherwise.
        m_poolsEmptied = false;
        m_saved = CardRows();
        for (QLineEdit *pool : txtpool) {
            if (pool != box && pool->text().isEmpty())
                pool->setText(u"0"_s);
        }
    }
    showUnsaved();
    lblnote->warn(betsNote(m_pools, post));
}

void frmhorsesb::updateHorses()
{
    if (!askYesNo(this, u"Update Horses?"_s, u"Horses"_s) || !poolsAreValid() || !mayReplaceCard())
        return;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        save();
        lblnote->setText("Horses saved for"_L1 + m_context.session.settings.raceName());
    });
}

void frmhorsesb::clearHorses()
{
    Session &session = m_context.session;
    RaceBets race;
    if (!trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { race = LoadRaceBets(session); }))
        return;
    m_pools = race.pools;
    lblnote->warn(race.note);
    if (!race.bets.rows.empty()) {
        showMessage(this, u"Must clear all bets first"_s, u"Clear horses"_s);
        return;
    }
    if (!askOkCancel(this, u"Clear All Horses?"_s, u"Horses"_s))
        return;
    CardRows empty;
    for (CardRow &row : empty)
        row.pool.clear();
    showRows(empty);
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, u"Horses output"_s, [&] {
        m_loaded = HorseTable();
        saveHorses(session, m_loaded);
        m_saved = empty;
        m_poolsEmptied = true;
        showUnsaved();
        txtnumber[0]->setFocus();
        showMessage(this, session.settings.raceName() + " Horse file cleared"_L1);
    });
}

void frmhorsesb::scratchHorse()
{
    if (!askYesNoCarefully(this, u"Scratch a horse?"_s, u"Horses"_s))
        return;
    const ScratchAnswer answer =
        scratchAnswer(askText(this, u"Enter post position to scratch"_s, u"Scratch"_s, u"0"_s));
    if (!answer.valid)
        showMessage(this, u"Post position not valid"_s);
    if (answer.post == 0)
        return;
    const Horse horse = horsesOf(rows()).post(answer.post);
    if (isUnused(horse)) {
        lblnote->warn("No horse at post "_L1 + QString::number(answer.post));
        return;
    }
    if (askOkCancel(this, "Scratch "_L1 + horse.name, u"Horses"_s) && poolsAreValid()
        && mayReplaceCard())
        lblnote->warn(scratchPost(horse));
}

// Another computer may have written the card since it was loaded: a horse scratched there comes
// back only on purpose, and so does a damaged file's rest not go without a question.
bool frmhorsesb::mayReplaceCard()
{
    Session &session = m_context.session;
    HorseFile now;
    if (!trapErrors(this, ErrorStyle::DescriptionAndLabel,
                    [&] { now = readHorsesIfThere(session, session.settings.currentRace); }))
        return false;
    QStringList reasons = cardChanges(m_loaded, now.horses);
    if (!reasons.isEmpty())
        reasons.prepend(u"The card was changed since it was loaded:"_s);
    if (const QString damage = now.damage(); !damage.isEmpty()) {
        reasons.prepend(damage + " Copies of file and twin will go to Saved."_L1);
    }
    if (reasons.isEmpty())
        return true;
    const QString question = u"Write the horses of this screen in place of them?"_s;
    if (askYesNo(this, reasons.join(u'\n') + u'\n' + question, u"Horses"_s))
        return true;
    lblnote->warn(u"Nothing was saved. Click on the race to see the card on file."_s);
    return false;
}

// Refunds and removes the bets on the post and empties its row; returns what is left to know.
QString frmhorsesb::scratchPost(const Horse &horse)
{
    const int post = horse.post;
    Session &session = m_context.session;
    QStringList notes;
    if (!trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
            const Scratch scratch = prepareScratch(session, post, horse.name);
            const PrintTask task{u"Print Refunds"_s, ErrorStyle::DescriptionAndLabel};
            const Printed list =
                printOrList(this, m_context, task, scratch.refunds, u"The refund list"_s);
            if (!list.note.isEmpty())
                notes.append(list.note);
            removeScratchedBets(session, scratch);
            m_pools = LoadRaceBets(session).pools;
            if (const QString later = betsNote(m_pools, post); !later.isEmpty())
                notes.append(later + " that came meanwhile and are not refunded."_L1);
        }))
        return notes.join(u' ');
    showMessage(this, horse.name + "Scratched"_L1, u"Horses"_s);

    CardRows card = rows();
    card[std::size_t(post - 1)] = CardRow();
    showRows(card);
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        save();
        recordScratch(session, post, horse.number, horse.name);
        const MultibetCount multibets = multibetsOn(session, post);
        if (multibets.bets > 0)
            notes.append(u"Multibets on post %1, not refunded: %2 (%3)"_s.arg(post)
                             .arg(multibets.bets)
                             .arg(formatMoney(multibets.stakes)));
    });
    return notes.join(u' ');
}

void frmhorsesb::updateMessage()
{
    m_context.session.settings.betSheetMessage = txtmsg->toPlainText();
    showMessage(this, u"Bet Sheet message updated"_s, u"Horses"_s);
}

void frmhorsesb::download()
{
    Session &session = m_context.session;
    QStringList notes(unsavedNote());
    bool replaced = false;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        const WaitedFetch fetched =
            fetchWhileWaiting(this, downloadAddress(session), downloadChunk, fetchPost,
                              u"Downloading the horses of all 12 races ..."_s);
        if (fetched.cancelled)
            return lblnote->setText(u"Download cancelled: nothing was changed."_s);
        const PublishedCard card = readDownload(fetched.body);
        if (card.entries == 0)
            return showMessage(this, u"Internet not available"_s);
        for (const QString &message : card.refused.first(qMin(card.refused.size(), mostRefusals)))
            showMessage(this, message, u"Horses"_s);
        if (const qsizetype more = card.refused.size() - mostRefusals; more > 0)
            notes.append("Further invalid post positions: "_L1 + QString::number(more));
        replaced = true;
        notes.append(saveDownload(session, fetched.body));
        showMessage(this, u"Download successful. Check track program for last minute changes."_s);
    });
    if (!replaced)
        return;
    load();
    notes.removeAll(QString());
    lblnote->warn(notes.join(u'\n'));
}

void frmhorsesb::printBetSheets()
{
    const int sheets = copiesAsked(
        askText(this, u"Enter number of forms to print"_s, u"Print Bet Sheets"_s, u"1"_s));
    if (sheets == 0)
        return;
    const Settings &settings = m_context.session.settings;
    const Slip sheet = betSheetSlip(horsesOf(rows()), settings.banner + u' ' + settings.raceName(),
                                    settings.betSheetMessage);
    const PrintTask task{u"Print Bet Sheets"_s, ErrorStyle::DescriptionAndLabel,
                         u"Bet sheets printed: "_s, PrintGate::Receipts};
    tellPrinted(lblnote, printCopies(this, m_context, task, sheet, sheets));
}

void frmhorsesb::returnToMenu()
{
    m_context.navigator.open(u"frmmenub"_s, unsavedNote(), NoteKind::Warning);
}

void frmhorsesb::showRows(const CardRows &rows)
{
    fillRows(rows);
    showUnsaved();
}

void frmhorsesb::showUnsaved()
{
    lblunsaved->setText(changedPosts(rows(), m_saved).isEmpty() ? QString() : u"not saved"_s);
}

// Sets every pool that is no single digit to "0" and says so.
bool frmhorsesb::poolsAreValid()
{
    const QList<int> posts = postsWithBadPool(rows());
    if (posts.isEmpty())
        return true;
    QStringList names;
    for (const int post : posts) {
        txtpool[std::size_t(post - 1)]->setText(u"0"_s);
        names.append(QString::number(post));
    }
    m_poolsEmptied = false;
    showUnsaved();
    showMessage(this, u"Pool number must be between 0 and 9"_s, u"Horses"_s);
    txtpool[std::size_t(posts.first() - 1)]->setFocus(Qt::TabFocusReason);
    lblnote->warn("Nothing was saved. Pool set to 0 at post "_L1 + names.join(", "_L1));
    return false;
}

// Writes the rows to the race's files and shows them as they are stored. Throws FileError.
void frmhorsesb::save()
{
    Session &session = m_context.session;
    const HorseTable horses = horsesOf(rows());
    saveHorses(session, horses);
    m_loaded = horses;
    m_saved = rowsOf(horses);
    m_poolsEmptied = false;
    showRows(m_saved);
}

QString frmhorsesb::unsavedNote() const
{
    const qsizetype changed = changedPosts(rows(), m_saved).size();
    if (changed == 0)
        return {};
    return m_context.session.settings.raceName().trimmed()
           + ": changed posts that were not saved: "_L1 + QString::number(changed);
}
