#include "racecard/frmhorsesb.h"

#include "common/eventfiles.h"
#include "common/fetch.h"
#include "common/format.h"
#include "common/racefiles.h"
#include "common/session.h"
#include "racecard/betsheets.h"
#include "racecard/download.h"
#include "racecard/scratch.h"
#include "ui/controls.h"
#include "ui/listing.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"
#include "ui/waiting.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
// Boxes shown for entries of a download that were refused; a broken card could bring thousands.
constexpr qsizetype mostRefusals = 20;
} // namespace

frmhorsesb::frmhorsesb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    txtmsg->setPlainText(m_context.session.settings.betSheetMessage);
    txtnumber[0]->setFocus();
    QTimer::singleShot(0, this, &frmhorsesb::load);
}

void frmhorsesb::build()
{
    txtbanner =
        makeBanner(this, u"txtbanner"_s, {}, u"Race name - can be changed on setup screen"_s);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(12);
    // Made first, so that the race comes before the card in tab order.
    const RaceOptions races =
        makeRaceOptions(this, u"Establishes which race is betting. Uses  bet file "
                              "and horses file for the selected race number"_s);
    optrace = races.group;
    columns->addLayout(buildCard(), 7);
    auto *side = new QVBoxLayout;
    side->addWidget(races.frame);
    side->addLayout(buildTools());
    columns->addLayout(side, 11);
    lblnote = makeNoteLine(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 4);
    layout->setSpacing(6);
    layout->addWidget(txtbanner);
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmhorsesb::buildCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(1);
    grid->setHorizontalSpacing(4);
    grid->setColumnStretch(2, 1);
    grid->addWidget(makeHeading(this, u"lblpost"_s, u"POST"_s, u"Post position in this race"_s), 0,
                    0);
    grid->addWidget(
        makeHeading(this, u"lblnumber"_s, u"NUMBER"_s, u"Number that the horse is wearing"_s), 0,
        1);
    grid->addWidget(makeHeading(this, u"lblhorse"_s, u"HORSE"_s, u"Name of the horse"_s), 0, 2);
    grid->addWidget(
        makeHeading(this, u"lblpool"_s, u"POOL"_s, u"See instruction intext box on the right"_s), 0,
        3);
    for (std::size_t row = 0; row < postCount; ++row) {
        const int index = int(row);
        const QString post = QString::number(index + 1);
        txtpost[row] = makeDisplay(this, memberName(u"txtpost"_s, index));
        txtpost[row]->setText(post);
        txtpost[row]->setAlignment(Qt::AlignCenter);
        txtnumber[row] = makeField(this, memberName(u"txtnumber"_s, index));
        txthorse[row] = makeField(this, memberName(u"txthorse"_s, index));
        txtpool[row] = makeField(this, memberName(u"txtpool"_s, index));
        txtpool[row]->setAlignment(Qt::AlignCenter);
        txtpost[row]->setAccessibleName(u"Post"_s);
        txtnumber[row]->setAccessibleName("Number at post "_L1 + post);
        txthorse[row]->setAccessibleName("Horse at post "_L1 + post);
        txtpool[row]->setAccessibleName("Pool at post "_L1 + post);
        // The card fills the height of a larger window.
        for (QLineEdit *box : {txtpost[row], txtnumber[row], txthorse[row], txtpool[row]})
            box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
        fitCharacters(txtpost[row], 4);
        fitCharacters(txtnumber[row], 7);
        fitCharacters(txtpool[row], 4);
        grid->addWidget(txtpost[row], index + 1, 0);
        grid->addWidget(txtnumber[row], index + 1, 1);
        grid->addWidget(txthorse[row], index + 1, 2);
        grid->addWidget(txtpool[row], index + 1, 3);
    }
    return grid;
}

QLayout *frmhorsesb::buildTools()
{
    cmdupdatehorses =
        makeButton(this, u"cmdupdatehorses"_s, u"UPDATE HORSES"_s,
                   u"Read the horses from this screen and update the horse file for this race."_s);
    lblunsaved = makeHeading(this, u"lblunsaved"_s, {});
    cmdscratch = makeButton(
        this, u"cmdscratch"_s, u"SCRATCH A HORSE"_s,
        u"Delete this horse and update any bettor's accounts who may have already bet this horse."_s);
    cmdclearhorses = makeButton(this, u"cmdclearhorses"_s, u"CLEAR HORSES"_s,
                                u"Clear all horses for this race - must clear all bets first"_s);

    auto *buttons = new QGridLayout;
    buttons->addWidget(cmdupdatehorses, 0, 0);
    buttons->addWidget(lblunsaved, 0, 1);
    buttons->addWidget(cmdscratch, 1, 0);
    buttons->addWidget(cmdclearhorses, 1, 1);
    buttons->setColumnStretch(0, 1);
    buttons->setColumnStretch(1, 1);

    QGroupBox *instructions = buildInstructions();
    QGroupBox *download = buildDownload();
    QGroupBox *betSheet = buildBetSheet();
    cmdmainmenu = makeButton(this, u"cmdmainmenu"_s, u"MAIN MENU"_s, u"Return to the main menu."_s);
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(cmdmainmenu, 1);

    auto *layout = new QVBoxLayout;
    layout->addLayout(buttons);
    layout->addWidget(instructions);
    layout->addWidget(download);
    layout->addWidget(betSheet, 2);
    layout->addStretch(1);
    layout->addLayout(foot);
    return layout;
}

QGroupBox *frmhorsesb::buildBetSheet()
{
    auto *group = new QGroupBox(u"Bet sheet"_s, this);
    txtmsg = new QPlainTextEdit(group);
    txtmsg->setObjectName(u"txtmsg"_s);
    const QString tip = u"Message to be printed on the bet sheet - make changes as needed - click "
                        "UPDATE MESSAGE"_s;
    txtmsg->setToolTip(tip);
    txtmsg->setAccessibleName(u"Bet sheet message"_s);
    txtmsg->setAccessibleDescription(tip);
    txtmsg->setTabChangesFocus(true);
    txtmsg->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    txtmsg->setMinimumHeight(txtmsg->fontMetrics().lineSpacing() * 6);
    cmdmsg = makeButton(group, u"cmdmsg"_s, u"UPDATE  MESSAGE"_s,
                        u"Updates the message printed on the bet sheet."_s);
    cmdprint = makeButton(group, u"cmdprint"_s, u"PRINT BET SHEET"_s,
                          u"Print a list of all horses for betting"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdmsg, 1);
    buttons->addWidget(cmdprint, 1);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(txtmsg, 1);
    layout->addLayout(buttons);
    return group;
}

QGroupBox *frmhorsesb::buildInstructions()
{
    static const QStringList texts{
        u"Start by clicking a race number and entering horse number and horse name for each post "
        "position. Use TAB key to move to next entry."_s,
        u"Limit horse names to 20 characters to avoid display problems"_s,
        u"Enter pool number as follows:"_s,
        u"Individual horses are pool 0."_s,
        u"Horses from the same stable usually race as one horse and should be assigned a pool "
        "number."_s,
        u"All horses in a particular pool have the same pool number."_s,
        u"The first pool number MUST BE 1, the second pool number MUST BE 2, etc  - pool number "
        "must be 0 to 9"_s,
        u"DON'T FORGET TO ASSIGN A POOL NUMBER TO THE FIELD HORSES"_s,
    };
    auto *group = new QGroupBox(u"Instructions"_s, this);
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(3);
    for (int i = 0; i < texts.size(); ++i)
        layout->addWidget(makeLabel(group, memberName(u"lblinstruction"_s, i), texts[i], {}, true));
    return group;
}

QGroupBox *frmhorsesb::buildDownload()
{
    auto *group = new QGroupBox(u"Download"_s, this);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(makeLabel(
        group, u"lbldownload"_s,
        u"The horses of the season's big races can be downloaded the evening before the race."_s,
        {}, true));
    cmdGo =
        makeButton(group, u"cmdGo"_s, u"DOWNLOAD HORSES FROM WEB SITE"_s,
                   u"Loads horse names for all 12 races from the publisher's web site. Internet "
                   "connection must be active."_s);
    layout->addWidget(cmdGo);
    return group;
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
    cmdmainmenu->setEnabled(m_context.navigator.has(u"frmmenub"_s));
    connect(cmdGo, &QPushButton::clicked, this, &frmhorsesb::download);
    connect(cmdprint, &QPushButton::clicked, this, &frmhorsesb::printBetSheets);
}

// Enter and the arrows move within a column; Enter at its foot goes on at the top of the next.
void frmhorsesb::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const int step = enter || event->key() == Qt::Key_Down ? 1
                     : event->key() == Qt::Key_Up          ? -1
                                                           : 0;
    for (int row = 0; step != 0 && row < postCount; ++row) {
        const auto boxes = boxesOf(std::size_t(row));
        const auto box = std::find(boxes.begin(), boxes.end(), focusWidget());
        if (box == boxes.end())
            continue;
        const auto column = std::size_t(box - boxes.begin());
        const int next = row + step;
        QWidget *target = nullptr;
        if (next >= 0 && next < postCount)
            target = boxesOf(std::size_t(next))[column];
        else if (enter)
            target = column + 1 < boxes.size() ? static_cast<QWidget *>(boxesOf(0)[column + 1])
                                               : cmdupdatehorses;
        if (target)
            target->setFocus(Qt::TabFocusReason); // selects the text, as Tab does
        return;
    }
    QWidget::keyPressEvent(event);
}

void frmhorsesb::load()
{
    Session &session = m_context.session;
    txtbanner->setText(session.settings.bannerAndRace());
    if (QAbstractButton *option = optrace->button(session.settings.currentRace))
        option->setChecked(true);
    session.horses = HorseTable();
    session.bets = BetTable();
    session.pools = PoolTable();
    m_readWhole = false;
    m_poolsEmptied = false;
    m_saved = CardRows();
    showRows(m_saved);
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
        const int damaged = loadHorses(session, u"Horses input"_s);
        m_readWhole = damaged == 0;
        m_saved = rowsOf(session.horses);
        showRows(m_saved);
        if (damaged > 0)
            lblnote->setText("Damaged lines in the horse file, their posts shown empty: "_L1
                             + QString::number(damaged));
        // The bets are needed to tell which rows have some.
        if (const QString note = LoadRaceBets(session); !note.isEmpty())
            lblnote->setText(note);
    });
}

void frmhorsesb::chooseRace(int race)
{
    lblnote->setText(unsavedNote());
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
    lblnote->setText(betsNote(m_context.session.pools, post));
}

void frmhorsesb::updateHorses()
{
    if (!askYesNo(this, u"Update Horses?"_s, u"Horses"_s) || !poolsAreValid())
        return;
    trapErrors(this, m_context.session, ErrorStyle::DescriptionAndLabel, [&] {
        save();
        lblnote->setText("Horses saved for"_L1 + m_context.session.settings.raceName());
    });
}

void frmhorsesb::clearHorses()
{
    Session &session = m_context.session;
    if (!trapErrors(this, session, ErrorStyle::DescriptionAndLabel,
                    [&] { lblnote->setText(LoadRaceBets(session)); }))
        return;
    if (!session.bets.rows.empty()) {
        showMessage(this, u"Must clear all bets first"_s, u"Clear horses"_s);
        return;
    }
    if (!askOkCancel(this, u"Clear All Horses?"_s, u"Horses"_s))
        return;
    CardRows empty;
    for (CardRow &row : empty)
        row.pool.clear();
    showRows(empty);
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
        session.settings.operationLabel = u"Horses output"_s;
        keepTwinsInSaved(session, RecordFile::Horses, session.settings.currentRace);
        m_readWhole = true;
        session.horses = HorseTable();
        saveHorses(session);
        m_saved = empty;
        m_poolsEmptied = true;
        showUnsaved();
        txtnumber[0]->setFocus();
        showMessage(this, session.settings.raceName() + " Horse file cleared"_L1);
    });
}

void frmhorsesb::scratchHorse()
{
    if (!askYesNo(this, u"Scratch a horse?"_s, u"Horses"_s))
        return;
    const ScratchAnswer answer =
        scratchAnswer(askText(this, u"Enter post position to scratch"_s, u"Scratch"_s, u"0"_s));
    if (!answer.valid)
        showMessage(this, u"Post position not valid"_s);
    if (answer.post == 0)
        return;
    const Horse horse = horsesOf(rows()).post(answer.post);
    if (isUnused(horse)) {
        lblnote->setText("No horse at post "_L1 + QString::number(answer.post));
        return;
    }
    if (askOkCancel(this, "Scratch "_L1 + horse.name, u"Horses"_s) && poolsAreValid())
        lblnote->setText(scratchPost(answer.post, horse.name));
}

// Refunds and removes the bets on the post and empties its row; returns what is left to know.
QString frmhorsesb::scratchPost(int post, const QString &name)
{
    Session &session = m_context.session;
    QStringList notes;
    if (!trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
            const Slip refunds = scratchRefunds(session, post, name);
            const std::size_t listed = session.bets.rows.size();
            if (!printOrList(m_context, refunds, session.settings.mayPrint()))
                notes.append(u"The refund list is in its own window."_s);
            removeBetsOn(session, post, listed);
            if (const QString later = betsNote(session.pools, post); !later.isEmpty())
                notes.append(later + " that came meanwhile and are not refunded."_L1);
        }))
        return notes.join(u' ');
    showMessage(this, name + "Scratched"_L1, u"Horses"_s);

    CardRows card = rows();
    card[std::size_t(post - 1)] = CardRow();
    showRows(card);
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
        save();
        const MultibetCount multibets = multibetsOn(session, post);
        if (multibets.bets > 0)
            notes.append(u"Multibets on post %1, not refunded: %2 (%3)"_s.arg(post)
                             .arg(multibets.bets)
                             .arg(formatMoney(multibets.stakes, "$#,##0.00")));
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
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
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
        replaced = true;
        notes.append(saveDownload(session, fetched.body));
        showMessage(this, u"Download successful. Check track program for last minute changes."_s);
    });
    if (!replaced)
        return;
    load();
    notes.removeAll(QString());
    lblnote->setText(notes.join(u'\n'));
}

void frmhorsesb::printBetSheets()
{
    Session &session = m_context.session;
    const int sheets = betSheetCount(
        askText(this, u"Enter number of forms to print"_s, u"Print Bet Sheets"_s, u"1"_s));
    if (sheets == 0)
        return;
    if (!session.settings.receiptsPrint())
        return lblnote->setText(u"Receipt printing is off: no bet sheet was printed."_s);
    session.settings.operationLabel = u"Print Bet Sheets"_s;
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
        const Slip sheet = betSheetSlip(
            horsesOf(rows()), session.settings.banner + u' ' + session.settings.raceName(),
            session.settings.betSheetMessage);
        for (int printed = 1; printed <= sheets; ++printed) {
            m_context.printer.print(sheet);
            lblnote->setText(u"Bet sheets printed: "_s + QString::number(printed));
        }
    });
}

void frmhorsesb::returnToMenu()
{
    m_context.navigator.open(u"frmmenub"_s, unsavedNote());
}

CardRows frmhorsesb::rows() const
{
    CardRows rows;
    for (std::size_t row = 0; row < postCount; ++row)
        rows[row] = {txtnumber[row]->text(), txthorse[row]->text(), txtpool[row]->text()};
    return rows;
}

void frmhorsesb::showRows(const CardRows &rows)
{
    for (std::size_t row = 0; row < postCount; ++row) {
        txtnumber[row]->setText(rows[row].number);
        txthorse[row]->setText(rows[row].name);
        txtpool[row]->setText(rows[row].pool);
        txthorse[row]->setCursorPosition(0);
    }
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
    lblnote->setText("Nothing was saved. Pool set to 0 at post "_L1 + names.join(", "_L1));
    return false;
}

// Writes the rows to the race's files and shows them as they are stored. Throws FileError.
void frmhorsesb::save()
{
    Session &session = m_context.session;
    session.horses = horsesOf(rows());
    if (!m_readWhole) {
        // What could not be read is not lost by writing over it.
        session.settings.operationLabel = u"Horses output"_s;
        keepTwinsInSaved(session, RecordFile::Horses, session.settings.currentRace);
        m_readWhole = true;
    }
    saveHorses(session);
    m_saved = rowsOf(session.horses);
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

std::array<QLineEdit *, 3> frmhorsesb::boxesOf(std::size_t row) const
{
    return {txtnumber[row], txthorse[row], txtpool[row]};
}
