#include "betting/frmbettorsb.h"

#include "betting/bettorlist.h"
#include "betting/bettorrefund.h"
#include "common/event/eventrecords.h"
#include "common/event/roles.h"
#include "common/event/session.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A frame at a place of the grid, with its controls one below the other.
QVBoxLayout *makeFrame(QWidget *parent, QGridLayout *grid, int row, int column, int rows = 1)
{
    auto *frame = new QGroupBox(parent);
    grid->addWidget(frame, row, column, rows, 1);
    return new QVBoxLayout(frame);
}

// True for a key that types: one that yields a character, Enter, Backspace or Escape.
bool isTyping(const QKeyEvent &key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Backspace:
    case Qt::Key_Escape:
        return true;
    default:
        return !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
               && !key.text().isEmpty() && key.text().front().isPrint();
    }
}

} // namespace

frmbettorsb::frmbettorsb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    txtbanner->setText(m_context.session.settings.bannerAndRace());
}

void frmbettorsb::build()
{
    txtbanner =
        makeBanner(this, u"txtbanner"_s, {}, u"Race name - can be changed on setup screen"_s);
    QLabel *Label1 = makeHeading(this, u"Label1"_s, u"ADD A BETTOR"_s);
    QLabel *Label4 = makeLabel(this, u"Label4"_s, u"NEW BETTOR NAME"_s);
    txtbettorname = makeField(this, u"txtbettorname"_s,
                              u"Enter bettor name to be added here and press 'Enter'"_s);
    txtbettorname->setAccessibleName(u"New bettor name"_s);
    QLabel *lblenter = makeLabel(this, u"lblenter"_s,
                                 u"Enter bettor name as LASTNAME-FIRSTNAME and press enter.\n\n"
                                 "Separate LASTNAME-FIRSTNAME with a dash e.g. SMITH-JOHN.\n\n"
                                 "Names are displayed in alphabetical sequence."_s,
                                 {}, true);

    QLabel *Label3 = makeHeading(this, u"Label3"_s, u"BETTOR LIST"_s);
    cbobettornames = new QListWidget(this);
    cbobettornames->setObjectName(u"cbobettornames"_s);
    cbobettornames->setAccessibleName(u"Bettor list"_s);
    cbobettornames->setUniformItemSizes(true);
    lblcount = makeLabel(this, u"lblcount"_s, {});

    QLabel *Label2 = makeHeading(this, u"Label2"_s, u"DELETE A BETTOR"_s);
    QLabel *lblcombo = makeLabel(this, u"lblcombo"_s,
                                 u"Use the scroll bar to move through list.\n\n"
                                 "Click on name to be deleted.\n\n"
                                 "Click 'DELETE A BETTOR' to delete a bettor name.\n\n"
                                 "Click CLEAR ALL BETTORS to delete all bettors."_s,
                                 {}, true);
    lblselected = makeLabel(this, u"lblselected"_s, {}, {}, true);
    cmddelete = makeButton(this, u"cmddelete"_s, u"DELETE A BETTOR"_s,
                           u"Delete selected bettor, returning any bets"_s);
    cmdclearbettors = makeButton(this, u"cmdclearbettors"_s, u"CLEAR ALL BETTORS"_s,
                                 u"Clear all bettors - must clear all bets first"_s);
    warnOf(cmddelete);
    warnOf(cmdclearbettors);
    cmdbetsheet =
        makeButton(this, u"cmdbetsheet"_s, u"Return to Bet Sheet"_s, u"Return to Bet Sheet"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"MAIN MENU"_s, u"Return to main menu"_s);
    lblnote = makeNoteLine(this);

    // Names are read across the table, so they stand out.
    scaleText(txtbettorname, 1.2);
    scaleText(cbobettornames, 1.2);

    auto *grid = new QGridLayout(this);
    grid->addWidget(txtbanner, 0, 0, 1, 2);
    QVBoxLayout *adding = makeFrame(this, grid, 1, 0);
    adding->addWidget(Label1);
    adding->addWidget(Label4);
    adding->addWidget(txtbettorname);
    adding->addSpacing(adding->spacing());
    adding->addWidget(lblenter);
    adding->addStretch();
    QVBoxLayout *deleting = makeFrame(this, grid, 2, 0);
    deleting->addWidget(Label2);
    deleting->addWidget(lblcombo);
    deleting->addStretch();
    deleting->addWidget(lblselected);
    auto *dropping = new QHBoxLayout;
    dropping->addWidget(cmddelete);
    dropping->addSpacing(dangerGap);
    dropping->addWidget(cmdclearbettors);
    deleting->addLayout(dropping);
    QVBoxLayout *listing = makeFrame(this, grid, 1, 1, 2);
    listing->addWidget(Label3);
    listing->addWidget(cbobettornames, 1);
    auto *leaving = new QHBoxLayout;
    leaving->addWidget(lblcount, 1);
    leaving->addWidget(cmdbetsheet, 1);
    leaving->addWidget(cmdreturn, 1);
    listing->addLayout(leaving);
    grid->setRowStretch(2, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(lblnote, 3, 0, 1, 2);

    assignAltLetters(this);
    txtbettorname->setFocus();
}

void frmbettorsb::connectControls()
{
    connect(txtbettorname, &QLineEdit::textEdited, this, &frmbettorsb::showPlaceOf);
    connect(txtbettorname, &QLineEdit::returnPressed, this, &frmbettorsb::add);
    connect(cmddelete, &QPushButton::clicked, this, &frmbettorsb::deleteSelected);
    connect(cmdclearbettors, &QPushButton::clicked, this, &frmbettorsb::clearAll);
    connect(cmdbetsheet, &QPushButton::clicked, this,
            [this] { leaveTo(betSheetScreen(m_context.session.settings)); });
    connect(cmdreturn, &QPushButton::clicked, this, [this] { leaveTo(u"frmmenub"_s); });
    connect(cbobettornames, &QListWidget::itemSelectionChanged, this, &frmbettorsb::showSelected);
    cbobettornames->installEventFilter(this);
}

void frmbettorsb::load()
{
    Session &session = m_context.session;
    session.bettors = BettorTable(session.settings.bettorLimit);
    m_loaded = trapErrors(this, ErrorStyle::NumberAndDescription,
                          [&] { session.bettors = readBettors(session); });
    m_asRead = session.bettors;
    fillList();
}

void frmbettorsb::fillList()
{
    const BettorTable &bettors = m_context.session.bettors;
    txtbettorname->setEnabled(m_loaded);
    cmddelete->setEnabled(m_loaded);
    m_addedNames.clear();
    m_deletedNames = 0;
    cbobettornames->clear();
    cbobettornames->addItems(bettors.sortedNames());
    showCount();
    lblnote->add(standingNote(), NoteKind::Warning);
    if (m_loaded)
        txtbettorname->setFocus();
}

void frmbettorsb::showCount()
{
    lblcount->setText("Bettors: "_L1 + QString::number(cbobettornames->count()));
}

// What holds as long as this list does.
QString frmbettorsb::standingNote() const
{
    return m_loaded ? bettorListNote(m_context.session.bettors)
                    : u"The bettor list was not read, so leaving this screen saves nothing"_s;
}

// Tells what a deletion would mean: who is selected, and where that bettor has bets.
void frmbettorsb::showSelected()
{
    const auto selected = cbobettornames->selectedItems();
    const QString name = selected.isEmpty() ? QString() : selected.front()->text();
    const int number = m_context.session.bettors.numberOf(name);
    const QString races = number == 0 ? QString() : racesWithBets(m_context.session, number, true);
    lblselected->setText(number == 0 ? QString()
                                     : name + ": number "_L1 + QString::number(number)
                                           + ", bets "_L1 + (races.isEmpty() ? u"none"_s : races));
}

// Scrolls the list to the names that begin like the one being typed, so that a bettor who is there
// already, perhaps in another spelling, is seen.
void frmbettorsb::showPlaceOf(const QString &typed)
{
    const QString key = searchKey(typed);
    for (int row = 0; row < cbobettornames->count(); ++row) {
        if (searchKey(cbobettornames->item(row)->text()).startsWith(key)) {
            cbobettornames->scrollToItem(cbobettornames->item(row), QListWidget::PositionAtTop);
            return;
        }
    }
}

void frmbettorsb::add()
{
    if (txtbettorname->text().trimmed().isEmpty())
        return;
    lblnote->warn(standingNote());
    Session &session = m_context.session;
    const QString name = bettorNameFor(txtbettorname->text());
    txtbettorname->setText(name);
    if (session.bettors.slotOf(name) != 0)
        return showMessage(this, u"Duplicate bettor name"_s, u"Name error"_s);
    const QString reason = noPlaceReason(session.bettors, session.settings.bettorLimit);
    if (!reason.isEmpty())
        return showMessage(this, reason, u"Bettors"_s);

    const int number = addBettor(session.bettors, name);
    m_addedNames.append(name);
    m_saveFailed = false;
    const auto row = int(session.bettors.sortedNames().indexOf(name));
    cbobettornames->insertItem(row, name);
    cbobettornames->scrollToItem(cbobettornames->item(row), QAbstractItemView::PositionAtCenter);
    showCount();
    const QString races = racesWithBets(session, number, true);
    if (!races.isEmpty()) {
        lblnote->add("The new bettor's number "_L1 + QString::number(number)
                         + " has bets already: "_L1 + races,
                     NoteKind::Warning);
    }
    showMessage(this, name + " added"_L1, u"Bettors"_s);
    txtbettorname->clear();
}

void frmbettorsb::deleteSelected()
{
    lblnote->warn(standingNote());
    const Session &session = m_context.session;
    if (sharesBettors(session.settings))
        return showMessage(this, u"Bettor delete not permitted in multiple computer mode"_s);
    const auto selected = cbobettornames->selectedItems();
    if (selected.isEmpty())
        return showMessage(this, u"Select bettor from list first"_s);
    const QString name = selected.front()->text();
    if (name == anyBettorName())
        return showMessage(this, u"Can't delete AnyBettor"_s);
    if (!askOkCancel(this, "Delete "_L1 + name, u"Bettors"_s))
        return;
    if (session.bettors.slotOf(name) == 0)
        return showMessage(this, u"Bettor name not found"_s, u"Delete Bettor"_s);
    takeOut(name, session.bettors.numberOf(name));
}

void frmbettorsb::takeOut(const QString &name, int number)
{
    Session &session = m_context.session;
    float refund = 0;
    std::optional<FileError> twinFailed;
    if (!trapErrors(this, ErrorStyle::NumberAndDescription, [&] {
            twinFailed = errorOfTwin([&] { lblnote->add(takeOutBets(session, number, refund)); });
        }))
        return;
    // Bets that left the file are owed to the bettor, even when the backup file failed.
    if (!twinFailed) {
        markBettorDeleted(session.bettors, name);
        m_saveFailed = false;
        if (m_addedNames.removeAll(name) == 0)
            ++m_deletedNames;
        qDeleteAll(cbobettornames->selectedItems());
        cbobettornames->setCurrentRow(-1);
        showCount();
        const QString races = racesWithBets(session, number, false);
        if (!races.isEmpty()) {
            lblnote->add("Bettor number "_L1 + QString::number(number) + " of "_L1 + name
                             + " still has bets: "_L1 + races,
                         NoteKind::Warning);
        }
    }
    const PrintTask task{
        .label = u"Refund Bets"_s,
        .style = ErrorStyle::NumberAndDescription,
        .gate = PrintGate::Receipts,
    };
    const Slip slip = bettorRefundSlip(name, refund);
    if (refund != 0) {
        const Printed printed = printOrList(this, m_context, task, slip, u"The refund list"_s);
        lblnote->add(printed.note, printed.kind());
    } else if (session.settings.receiptsPrint()) {
        const Printed printed = printSlip(this, m_context, task, slip);
        lblnote->add(printed.note, printed.kind());
    }
    if (twinFailed)
        showFileError(this, *twinFailed, ErrorStyle::NumberAndDescription);
}

void frmbettorsb::clearAll()
{
    lblnote->warn(standingNote());
    Session &session = m_context.session;
    if (sharesBettors(session.settings))
        return showMessage(this, u"Bettor clear not permitted in multiple computer mode"_s);
    if (!session.settings.betsWereCleared())
        return showMessage(this, u"Must clear Bets first"_s, session.settings.operationLabel);
    if (!askOkCancel(this, u"Clear and initialize Bettor file?"_s, u"Initialize"_s))
        return;
    if (!trapErrors(this, ErrorStyle::NumberAndDescription, [&] { clearBettorList(session); }))
        return;
    m_loaded = true;
    m_asRead = session.bettors;
    lblnote->clear();
    fillList();
    showMessage(this, u"Bettor file cleared and initialized"_s, u"Initialize Bettor"_s);
}

bool frmbettorsb::eventFilter(QObject *object, QEvent *event)
{
    if (object == cbobettornames && event->type() == QEvent::KeyPress
        && isTyping(*static_cast<QKeyEvent *>(event))) {
        rejectTyping();
        return true;
    }
    return QWidget::eventFilter(object, event);
}

void frmbettorsb::rejectTyping()
{
    showMessage(this, u"Must select bettor name from drop down list"_s, u"Bettor name"_s);
    m_context.navigator.reopen(lostChanges(), NoteKind::Warning);
}

// What leaving without saving means; empty when nothing was changed.
QString frmbettorsb::lostChanges() const
{
    QStringList lost;
    if (!m_addedNames.isEmpty()) {
        lost.append("Additions not saved and lost: "_L1 + QString::number(m_addedNames.size())
                    + " ("_L1 + m_addedNames.mid(0, 5).join(u", "_s)
                    + (m_addedNames.size() > 5 ? ", ...)"_L1 : ")"_L1));
    }
    if (m_deletedNames > 0) {
        lost.append("Deleted names not saved and listed again: "_L1
                    + QString::number(m_deletedNames));
    }
    if (isNameTyped())
        lost.append("Name not added: "_L1 + txtbettorname->text());
    return lost.join(u"; "_s);
}

bool frmbettorsb::isNameTyped() const
{
    const QString typed = txtbettorname->text().trimmed();
    return m_loaded && !typed.isEmpty()
           && m_context.session.bettors.slotOf(bettorNameFor(typed)) == 0;
}

// A name that was typed without Enter is added as Enter adds it, or dropped, as the operator says.
// False when the screen must stay.
bool frmbettorsb::settleTypedName()
{
    if (!isNameTyped())
        return true;
    switch (askYesNoCancel(this, "Add "_L1 + bettorNameFor(txtbettorname->text()) + u'?',
                           u"Bettors"_s)) {
    case Choice::Yes:
        add();
        return txtbettorname->text().isEmpty();
    case Choice::No:
        txtbettorname->clear();
        return true;
    case Choice::Cancel:
        break;
    }
    txtbettorname->setFocus();
    return false;
}

// What nobody changed is not written. When the files refuse the changes, a second press leaves
// without them.
void frmbettorsb::leaveTo(const QString &screen)
{
    if (!settleTypedName())
        return;
    QString note = lostChanges();
    const auto save = [&] { note = saveBettors(m_context.session, m_asRead); };
    if (m_loaded && !note.isEmpty() && !m_saveFailed) {
        m_saveFailed = !trapErrors(this, ErrorStyle::NumberAndDescription, save);
        if (m_saveFailed)
            return lblnote->add(u"The list was not saved. Pressing again leaves without saving."_s,
                                NoteKind::Warning);
    } else if (m_saveFailed) {
        try {
            save(); // what stood in the way may be gone
        } catch (const FileError &error) {
            if (error.aftermath() == Aftermath::MainChanged)
                note = u"The list was saved, its backup was not."_s;
        }
    }
    m_context.navigator.open(screen, note, NoteKind::Warning);
}
