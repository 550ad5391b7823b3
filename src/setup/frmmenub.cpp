#include "setup/frmmenub.h"

#include "common/event/eventrecords.h"
#include "common/event/networkmode.h"
#include "common/event/racefiles.h"
#include "common/event/roles.h"
#include "common/event/session.h"
#include "setup/clearbets.h"
#include "setup/eventchoices.h"
#include "setup/menurules.h"
#include "setup/restore.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// A group of buttons, each with its help text beside it.
class TaskGroup
{
public:
    // The letters of the buttons are \a scale times as large as others.
    TaskGroup(QWidget *screen, const QString &title, double scale = 1)
        : m_scale(scale)
        , m_box(new QGroupBox(title, screen))
        , m_grid(new QGridLayout(m_box))
    {
        m_grid->setColumnStretch(0, 2);
        m_grid->setColumnStretch(1, 3);
    }

    void add(QPushButton *&button, const QString &name, const QString &caption,
             const QString &toolTip)
    {
        button = makeButton(m_box, name, caption, toolTip);
        scaleText(button, m_scale);
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
        m_grid->addWidget(button, m_grid->rowCount(), 0);
    }

    // A gap before the next button.
    void standApart() { m_grid->setRowMinimumHeight(m_grid->rowCount(), dangerGap); }

    // The help text beside the button added last.
    void explain(QLabel *&label, const QString &name, const QString &text = {})
    {
        label = makeLabel(m_box, name, text, {}, true);
        m_grid->addWidget(label, m_grid->rowCount() - 1, 1);
    }

    QGroupBox *box() const { return m_box; }

private:
    double m_scale;
    QGroupBox *m_box;
    QGridLayout *m_grid;
};

} // namespace

frmmenub::frmmenub(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectScreens();
    connectTasks();
    fill();
    assignAltLetters(this);
    showProgress();
}

void frmmenub::build()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, u"Vefioze"_s,
                           u"The race name can be changed with CHANGE BANNER on the setup "
                           "screen"_s);
    auto *columns = new QHBoxLayout;
    columns->addWidget(buildRace(), 1);
    auto *right = new QVBoxLayout;
    for (QGroupBox *group : {buildFiles(), buildComputers(), buildProgram()})
        right->addWidget(group, 1);
    columns->addLayout(right, 1);
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addLayout(buildHead());
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
}

QLayout *frmmenub::buildHead()
{
    lblrace = makeLabel(this, u"lblrace"_s, {});
    enlarge(lblrace, 2.4);
    lblprogress = makeLabel(this, u"lblprogress"_s, {}, {}, true);
    enlarge(lblprogress, 1.4);
    lblmenu = makeHeading(this, u"lblmenu"_s, u"Make a selection"_s,
                          u"Click on one of the buttons directly below"_s);
    QLabel *lblkeys =
        makeLabel(this, u"lblkeys"_s, u"Another race: Ctrl+PgUp, Ctrl+PgDn, or Setup"_s);
    auto *head = new QGridLayout;
    head->setHorizontalSpacing(20);
    head->addWidget(lblrace, 0, 0, 2, 1);
    head->addWidget(lblprogress, 0, 1, 1, 2);
    head->addWidget(lblmenu, 1, 1);
    head->addWidget(lblkeys, 1, 2, Qt::AlignRight);
    head->setColumnStretch(1, 1);
    return head;
}

QGroupBox *frmmenub::buildRace()
{
    TaskGroup group(this, u"Race"_s, 1.15);
    group.add(cmdenterhorses, u"cmdenterhorses"_s, u"Update Horses"_s,
              u"Add, change, scratch horses for this race"_s);
    group.explain(lblhorses, u"lblhorses"_s);
    group.add(cmdenterbettors, u"cmdenterbettors"_s, u"Update Bettors"_s,
              u"Add, change, delete bettors for this race"_s);
    group.explain(lblbettors, u"lblbettors"_s);
    group.add(cmdbet, u"cmdbet"_s, u"Place a Bet"_s, u"Place bets on this race"_s);
    group.explain(lblbet, u"lblbet"_s);
    group.add(cmdmulti, u"cmdmulti"_s, u"MultiBets"_s, u"Place multi bets on this race"_s);
    group.explain(lblmulti, u"lblmulti"_s,
                  u"Place special bets e.g. Daily Double, Exacta, Trifecta, etc. Each special bet "
                  "type has its own paramutual pool not shared with other pools"_s);
    group.add(cmdpay, u"cmdpay"_s, u"Pay Winners"_s,
              u"Select winning horses, calculate payoffs, and pay winning bettors"_s);
    group.explain(lblwinners, u"lblwinners"_s);
    group.standApart();
    group.add(cmdclearbets, u"cmdclearbets"_s, u"Clear All Bets"_s,
              u"BE CAREFUL - clears all bets for this race"_s);
    warnOf(cmdclearbets);
    group.explain(lblclear, u"lblclear"_s);
    return group.box();
}

QGroupBox *frmmenub::buildFiles()
{
    TaskGroup group(this, u"Files"_s);
    group.add(cmdfix, u"cmdfix"_s, u"Fix Files"_s,
              u"Check files for bad records - repair bad files"_s);
    group.explain(lblfix, u"lblfix"_s,
                  u"Examine contents of Bet, Bettors, and Horses files for potential changes"_s);
    group.add(cmdreports, u"cmdreports"_s, u"Print Reports"_s, {});
    group.standApart();
    group.add(cmdbackup, u"cmdbackup"_s, u"Use Backup Files"_s,
              u"Replace current file with the backup file -use backup if you lose power during a "
              "file update"_s);
    warnOf(cmdbackup);
    group.explain(lblbackup, u"lblbackup"_s,
                  u"Replace current file with the backup file -use backup if you lose power "
                  "during a file update"_s);
    return group.box();
}

QGroupBox *frmmenub::buildComputers()
{
    TaskGroup group(this, u"Computers"_s);
    group.add(cmdmc, u"cmdmc"_s, u"Use Multiple Computers"_s, {});
    group.explain(lblmc, u"lblmc"_s, u"Use bet, bettor, and horse files on this computer only"_s);
    group.add(cmdstartnw, u"cmdstartnw"_s, u"Start Networked Betting"_s, {});
    group.explain(lblnetwork, u"lblnetwork"_s);
    group.add(cmdendnw, u"cmdendnw"_s, u"End Networked Betting"_s, {});
    return group.box();
}

QGroupBox *frmmenub::buildProgram()
{
    TaskGroup group(this, u"Program"_s);
    group.add(cmdsetup, u"cmdsetup"_s, u"Setup"_s, u"Add, change, scratch horses for this race"_s);
    group.explain(lblsetup, u"lblsetup"_s, u"Return to setup screen"_s);
    group.add(cmdboard, u"cmdboard"_s, u"Odds Board"_s,
              u"Show odds, pools and results to the guests, on a second display if there is one"_s);
    group.explain(lblboard, u"lblboard"_s, u"For the guests: odds, pools, results"_s);
    group.add(cmdhelp, u"cmdhelp"_s, u"Help"_s, {});
    group.add(cmdexit, u"cmdexit"_s, u"Exit Program"_s, u"Sayonara, asta la vista, see ya"_s);
    group.explain(lblexit, u"lblexit"_s);
    return group.box();
}

void frmmenub::connectScreens()
{
    Navigator &navigator = m_context.navigator;
    const struct
    {
        QPushButton *button;
        QString screen;
    } screens[] = {
        {cmdenterhorses, u"frmhorsesb"_s},
        {cmdenterbettors, u"frmbettorsb"_s},
        {cmdbet, betSheetScreen(m_context.session.settings)},
        {cmdmulti, u"frmmulti"_s},
        {cmdpay, u"frmpaywinnersb"_s},
        {cmdfix, u"frmfixb"_s},
        {cmdreports, u"frmreportb"_s},
        {cmdmc, u"frmmc"_s},
        {cmdsetup, u"frminitb"_s},
        {cmdhelp, u"frmhelpb"_s},
    };
    connect(cmdmc, &QPushButton::clicked, this, [this] { startWithoutRole(m_context.session); });
    for (const auto &entry : screens) {
        connect(entry.button, &QPushButton::clicked, &navigator,
                [&navigator, screen = entry.screen] { navigator.open(screen); });
    }
    connect(cmdboard, &QPushButton::clicked, &navigator,
            [&navigator] { navigator.showBeside(u"frmboard"_s); });
    connect(cmdexit, &QPushButton::clicked, &navigator, &Navigator::exitProgram);
}

// The tasks that are done on the menu itself.
void frmmenub::connectTasks()
{
    const struct
    {
        QPushButton *button;
        void (frmmenub::*task)();
    } tasks[] = {
        {cmdclearbets, &frmmenub::clearBets},
        {cmdbackup, &frmmenub::useBackups},
        {cmdstartnw, &frmmenub::startNetwork},
        {cmdendnw, &frmmenub::endNetwork},
    };
    for (const auto &entry : tasks) {
        connect(entry.button, &QPushButton::clicked, this, entry.task);
    }
    for (const auto &[key, step] :
         {std::pair(Qt::Key_PageUp, -1), std::pair(Qt::Key_PageDown, 1)}) {
        auto *shortcut = new QShortcut(Qt::CTRL | key, this);
        connect(shortcut, &QShortcut::activated, this,
                [this, by = step] { chooseRace(m_context.session.settings.currentRace + by); });
    }
}

void frmmenub::fill()
{
    Session &session = m_context.session;
    txtbanner->setText(menuBanner(session.settings));
    lblhorses->setText(u"For a new race, enter horses in UPDATE HORSES. You can also CHANGE horse "
                       "information and SCRATCH horses here."_s);
    lblbettors->setText(u"Then enter all bettor names at UPDATE BETTORS - you can also DELETE "
                        "bettor names here"_s);
    lblbet->setText(u"When all horses and bettors are entered you are ready to PLACE A BET on this "
                    "race"_s);
    lblwinners->setText(u"After the race enter winning horses, calculate payoffs, and pay winning "
                        "bettors at PAY WINNERS"_s);
    lblclear->setText(u"BE CAREFUL - Clears all bets on this race - Prints a list of all bets in "
                      "the bet files. Should also be used to refund bets on this race"_s);
    lblexit->setText(u"Click EXIT PROGRAM to leave this program , saving all horses, bettors, and "
                     "bets"_s);
    setCaption(cmdclearbets, clearBetsCaption(session.settings));
    lblnetwork->setText(networkStatus(session.settings));
    cmdstartnw->setEnabled(!session.settings.isNetworked());
    cmdendnw->setEnabled(session.settings.isNetworked());
}

// What cannot be read is told when its screen is opened.
void frmmenub::showProgress()
{
    Session &session = m_context.session;
    lblrace->setText(u"Race "_s + QString::number(session.settings.currentRace));
    try {
        const RaceProgress progress = raceProgress(session);
        lblprogress->setText(progressText(progress));
        QPushButton *const buttons[] = {cmdenterhorses, cmdmc,  cmdenterbettors,
                                        cmdbet,         cmdpay, cmdsetup}; // by step
        const MenuStep step = nextStep(progress, session.settings.isSatelliteComputer());
        buttons[std::size_t(step)]->setFocus();
    } catch (const FileError &error) {
        lblprogress->setText(error.description() + u": "_s + error.label());
        cmdenterhorses->setFocus();
    }
}

// As a click on the race on the setup screen.
void frmmenub::chooseRace(int race)
{
    if (race < 1 || race > raceCount)
        return;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { changeRace(m_context.session, race); });
    m_context.navigator.reopen();
}

void frmmenub::entered()
{
    Session &session = m_context.session;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { createMissingBetsBackup(session); });
}

void frmmenub::clearBets()
{
    Session &session = m_context.session;
    if (!askYesNoCarefully(this, u"Clear/Refund "_s + session.settings.raceName() + u" Bets?"_s))
        return;
    lblnote->clear();
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        session.bettors = readBettors(session);
        bool printWanted = true;
        clearStraightBets(printWanted);
        clearMultibets(printWanted);
    });
    showProgress();
}

// Asks whether refunds are printed; the answer serves the multibets too.
void frmmenub::clearStraightBets(bool &printWanted)
{
    Session &session = m_context.session;
    const RaceStakes stakes = straightStakes(session);
    if (stakes.total == 0)
        return showMessage(this, u"Bets already cleared"_s, u"Clear bets"_s);
    printWanted = askYesNo(this, u"Print refunds?"_s, u"Clear Bets"_s);
    if (refundAndDelete(RecordFile::Bets, stakes, printWanted))
        showMessage(this, session.settings.raceName() + u" Bet file cleared"_s,
                    u"Clear bet file"_s);
}

void frmmenub::clearMultibets(bool printWanted)
{
    Session &session = m_context.session;
    const RaceStakes stakes = multibetStakes(session);
    if (stakes.total == 0)
        return showMessage(this, u"Multibets already cleared"_s, u"Clear bets"_s);
    if (refundAndDelete(RecordFile::Multibets, stakes, printWanted)) {
        showMessage(this, session.settings.raceName() + u" multibet file cleared"_s,
                    u"Clear bet file"_s);
    }
}

// The list of refunds comes between the copies and the deletion: bets that are gone without it
// could not be paid back.
bool frmmenub::refundAndDelete(RecordFile file, const RaceStakes &stakes, bool printWanted)
{
    Session &session = m_context.session;
    bool isListed = false;
    const auto listRefunds = [&] {
        const PrintTask task{
            .label = u"Print Refunds"_s,
            .style = ErrorStyle::DescriptionAndLabel,
            .gate = PrintGate::Receipts,
        };
        const Slip refunds = raceRefunds(session, file, stakes);
        if (printWanted) {
            const Printed printed =
                printOrList(this, m_context, task, refunds, u"The refund list"_s);
            lblnote->add(printed.note, printed.kind());
        }
        isListed = printWanted;
    };
    bool deleted = true;
    const auto twinFailed =
        errorOfTwin([&] { deleted = clearRaceFile(session, file, stakes, listRefunds); });
    if (!deleted) {
        showMessage(
            this,
            u"Another computer changed the bets meanwhile. Nothing was cleared: "_s
                + (isListed ? u"discard the list of refunds and clear again"_s : u"clear again"_s),
            u"Clear bets"_s);
        return false;
    }
    if (stakes.damaged > 0)
        lblnote->add(u"Damaged lines that could not be refunded, kept in Saved: "_s
                         + QString::number(stakes.damaged),
                     NoteKind::Warning);
    if (twinFailed)
        throw FileError(*twinFailed);
    return true;
}

void frmmenub::useBackups()
{
    Session &session = m_context.session;
    lblnote->clear();
    for (const RestoreChoice &choice : restoreChoices()) {
        if (!askYesNoCarefully(this, choice.question, u"Backup"_s))
            continue;
        if (!trapErrors(this, ErrorStyle::DescriptionAndLabel,
                        [&] { lblnote->add(restoreFromTwin(session, choice.file)); }))
            return;
        showProgress();
        showMessage(this, choice.confirmation, u"Backup"_s);
    }
}

void frmmenub::startNetwork()
{
    m_context.session.settings.networkMode = NetworkMode::Off;
    switch (askYesNoCancel(this, u"Is this the master computer?"_s)) {
    case Choice::Yes:
        return becomeMaster();
    case Choice::No:
        return joinMaster();
    case Choice::Cancel:
        return;
    }
}

void frmmenub::becomeMaster()
{
    Session &session = m_context.session;
    const QString name = networkNameOf(QSysInfo::machineHostName());
    showMessage(this, u"Master computer name is "_s + name
                          + u" Make a note - you will need to enter this name on satellite "
                            "computers"_s);
    try {
        const QString note = startAsMaster(session, name);
        m_context.navigator.open(u"frmmenub"_s, note);
    } catch (const FileError &error) {
        if (!isShareMissing(error)) {
            showFileError(this, error, ErrorStyle::DescriptionAndLabel);
            lblnote->warn(u"Network mode is off. If the file res in "_s
                          + session.settings.eventDirectory
                          + u" is damaged, delete it there and start again."_s);
            return;
        }
        showMessage(this, u"Network not available - ending network mode"_s);
        lblnote->warn(u"The event directory is now "_s + session.settings.eventDirectory
                      + u". Share that folder and start again, or choose the directory on the "
                        "setup screen."_s);
    }
}

void frmmenub::joinMaster()
{
    const QString master =
        askText(this, u"Enter master computer name"_s, u"Networked Input"_s).trimmed();
    if (master.isEmpty())
        return;
    try {
        const QString note = startAsSatellite(m_context.session, master);
        m_context.navigator.open(u"frmmenub"_s, note);
    } catch (const FileError &error) {
        showMessage(this, u"Invalid master computer name"_s);
        lblnote->warn(error.description() + u": "_s + shareFolder(master));
    }
}

void frmmenub::endNetwork()
{
    Session &session = m_context.session;
    bool reached = true;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { reached = endNetworkMode(session); });
    // After a failure this computer is wholly in or wholly out; the menu says which.
    m_context.navigator.open(u"frmmenub"_s,
                             reached ? QString()
                                     : u"The shared folder could not be reached. This computer "
                                       "uses its own files again."_s,
                             NoteKind::Warning);
}
