#include "setup/frminitb.h"

#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/event/racefiles.h"
#include "common/event/session.h"
#include "setup/clearevent.h"
#include "setup/eventchoices.h"
#include "setup/eventfolders.h"
#include "setup/startup.h"
#include "ui/listkeys.h"
#include "ui/noteline.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"
#include "ui/undisturbed.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString howToBegin()
{
    static const QStringList texts{
        u"Each horse race event can have from 1 to 12 races. Each race has its own Bet and Horse "
        "files. Start by clicking on a Race number. The Bettor file is the same for all Races."_s,
        u"If this is a new event, you should Clear All Bet Files and Horse Files. Don't clear "
        "Bettor files if they will be used for your next event"_s,
        u"Click on a button to change bet receipt printing, bet payoff rounding."_s,
        u"Check the drive\\path information. Use the defaults displayed unless they conflict with "
        "other files."_s,
        u"Check the banner. A banner is displayed on every screen to identify which race you are "
        "betting. The program will add the race number automatically."_s,
        u"TRELAWN was designed to use a display size of 1024 x 768. This setting can be changed at "
        "Control Panel, Display, Settings."_s,
        u"Move the mouse pointer to a button/field to display information about changing the "
        "button value"_s};
    return texts.join(u'\n');
}

// Four controls in two equal columns whose buttons share the group's height.
void placeInSquare(QGroupBox *group, const std::array<QWidget *, 4> &controls)
{
    auto *grid = new QGridLayout(group);
    for (int i = 0; i < 4; ++i) {
        QWidget *control = controls[std::size_t(i)];
        control->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
        grid->addWidget(control, i / 2, i % 2);
        grid->setColumnStretch(i % 2, 1);
    }
}

} // namespace

frminitb::frminitb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    completeSettings(m_context.session.settings);
    showSettings();
    assignAltLetters(this);
    cmdok->setFocus();
}

template<typename Work>
bool frminitb::trap(Work work)
{
    return trapErrors(this, ErrorStyle::DescriptionAndLabel, work);
}

void frminitb::build()
{
    lbltitle = makeHeading(this, u"lbltitle"_s, u"TRELAWN"_s);
    scaleText(lbltitle, 1.8);
    txtbanner = makeBanner(this, u"txtbanner"_s, {},
                           u"Names this event and identifies which race is betting. Can be changed "
                           "on the setup screen"_s);
    m_races = makeRaceOptions(this,
                              u"Establishes which race is betting. Uses  bet file and horses file "
                              "for the selected race number"_s,
                              6);

    for (QAbstractButton *option : m_races.group->buttons())
        scaleText(option, 1.2);

    auto *head = new QHBoxLayout;
    head->addWidget(lbltitle);
    head->addWidget(txtbanner, 1);
    auto *settings = new QVBoxLayout;
    settings->addWidget(m_races.frame, 2);
    settings->addWidget(buildEvent(), 3);
    settings->addWidget(buildPrinting(), 3);
    settings->addWidget(buildNewEvent(), 3);
    auto *middle = new QHBoxLayout;
    middle->addLayout(settings, 3);
    middle->addWidget(buildInstructions(), 2);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addLayout(middle, 1);
    layout->addLayout(buildFoot());
}

QWidget *frminitb::buildEvent()
{
    auto *group = new QGroupBox(u"Event"_s, this);
    QLabel *lblbanner1 = makeLabel(group, u"lblbanner1"_s, u"CHANGE BANNER"_s);
    txtbanner1 = makeField(
        group, u"txtbanner1"_s,
        u"Change banner text for this event by highlighting the text, changing the text, and "
        "pressing enter - banner and race number are displayed on each screen to identify which "
        "race is being bet"_s);
    lblbanner1->setBuddy(txtbanner1);
    lblfiles = makeLabel(group, u"lblfiles"_s, u"BETS\\HORSES\\BETTOR FILES DRIVE\\PATH"_s);
    txtfiles = makeDisplay(group, u"txtfiles"_s,
                           u"Current Drive/Path for storing Horses, Bettors, and Bets files-Change "
                           "by clicking Change Drive/Path"_s);
    lblfiles->setBuddy(txtfiles);
    Command1 = makeButton(group, u"Command1"_s, u"Change Drive/Path"_s,
                          u"Change drive/path information for all files"_s);
    auto *grid = new QGridLayout(group);
    grid->addWidget(lblbanner1, 0, 0, 1, 2, Qt::AlignBottom);
    grid->addWidget(txtbanner1, 1, 0, 1, 2);
    grid->addWidget(lblfiles, 2, 0, 1, 2, Qt::AlignBottom);
    grid->addWidget(txtfiles, 3, 0);
    grid->addWidget(Command1, 3, 1);
    grid->setColumnStretch(0, 1);
    return group;
}

QWidget *frminitb::buildPrinting()
{
    auto *group = new QGroupBox(u"Printing and payoffs"_s, this);
    cmdprint = makeButton(group, u"cmdprint"_s, {},
                          u"Click to change between printing and not printing bet receipts"_s);
    cmdrecptfont = makeButton(group, u"cmdrecptfont"_s, u"Change Receipt Font"_s);
    cmdround = makeButton(group, u"cmdround"_s, {},
                          u"Click to change bet payoff rounding to .01,.10,.25,.50,1.00"_s);
    lblfont = makeLabel(group, u"lblfont"_s, {});
    lblfont->setAlignment(Qt::AlignCenter);
    placeInSquare(group, {cmdprint, cmdrecptfont, cmdround, lblfont});
    return group;
}

QWidget *frminitb::buildNewEvent()
{
    auto *group = new QGroupBox(u"New event"_s, this);
    cmdbets = makeButton(group, u"cmdbets"_s, u"Clear ALL Bet Files"_s,
                         u"*** BE CAREFUL ***Clears all bets for ALL races - clear a single bet "
                         "file and refund bets from the menu screen"_s);
    cmdhorses = makeButton(
        group, u"cmdhorses"_s, u"Clear All Horse Files"_s,
        u"Clear all Horse files. Horse are entered/changed  on the Horses update screen"_s);
    cmdbettors = makeButton(
        group, u"cmdbettors"_s, u"Clear Bettors File"_s,
        u"Clears all names in the bettor file. Don't clear if you want to use the same bettor "
        "names in the next round - bettor names are entered/changed on the bettor update screen"_s);
    for (QPushButton *button : {cmdbets, cmdhorses, cmdbettors})
        warnOf(button);
    cmdimpext = makeButton(group, u"cmdimpext"_s, u"Import external files"_s,
                           u"Allow replacement of all Horse files and merging Bettors and Bets "
                           "files - allows use of multiple computers to take bets and then combine "
                           "files for one payoff"_s);
    for (QPushButton *button : {cmdbets, cmdhorses, cmdbettors, cmdimpext})
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
    auto *grid = new QGridLayout(group);
    grid->addWidget(cmdimpext, 0, 0, 1, 3);
    grid->setRowMinimumHeight(1, dangerGap);
    grid->addWidget(cmdbets, 2, 0);
    grid->addWidget(cmdhorses, 2, 1);
    grid->addWidget(cmdbettors, 2, 2);
    return group;
}

QWidget *frminitb::buildInstructions()
{
    auto *group = new QGroupBox(u"Instructions"_s, this);
    lblinst = makeLabel(group, u"lblinst"_s, howToBegin(), {}, true);
    scaleText(lblinst, 1.15);
    lblinst->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(lblinst);
    return group;
}

QLayout *frminitb::buildFoot()
{
    txtsetup = makeDisplay(this, u"txtsetup"_s);
    txtsetup->setText(u"Set display resolution to 1024 x 768 to see full screen. Select Control "
                      "Panel, Display, Settings to make this change"_s);
    txtsetup->setAccessibleName(u"Display size"_s);
    lblnote = makeNoteLine(this);
    cmdok = makeButton(this, u"cmdok"_s, u"GO TO MENU"_s,
                       u"If all information on this screen is OK, start program execution"_s);
    standOut(cmdok);
    cmdok->setAutoDefault(true);
    cmdpractice =
        makeButton(this, u"cmdpractice"_s, u"Practice"_s,
                   u"An event of its own to practise with, guided by a lesson; this event "
                   "stays as it is"_s);
    cmdhelp = makeButton(this, u"cmdhelp"_s, u"Help"_s);
    cmdexit = makeButton(this, u"cmdexit"_s, u"EXIT PROGRAM"_s,
                         u"Leave the program saving all information"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdok);
    buttons->addStretch();
    buttons->addWidget(cmdpractice);
    buttons->addWidget(cmdhelp);
    buttons->addWidget(cmdexit);
    auto *layout = new QVBoxLayout;
    layout->addWidget(txtsetup);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    return layout;
}

void frminitb::connectControls()
{
    connect(m_races.group, &QButtonGroup::idClicked, this, &frminitb::changeRaceTo);
    connect(txtbanner1, &QLineEdit::returnPressed, this, &frminitb::takeBanner);
    connect(txtbanner1, &QLineEdit::textEdited, this, &frminitb::showNote);
    connect(cmdprint, &QPushButton::clicked, this, &frminitb::switchReceipts);
    connect(cmdrecptfont, &QPushButton::clicked, this, &frminitb::askReceiptFont);
    connect(cmdround, &QPushButton::clicked, this, [this] {
        stepRounding(m_context.session.settings);
        setCaption(cmdround, roundingCaption(m_context.session.settings));
    });
    connect(cmdbets, &QPushButton::clicked, this, &frminitb::clearBetFiles);
    connect(cmdhorses, &QPushButton::clicked, this, &frminitb::clearHorseFiles);
    connect(cmdbettors, &QPushButton::clicked, this, &frminitb::clearBettorsFile);
    connect(cmdok, &QPushButton::clicked, this, &frminitb::goToMenu);
    connect(cmdexit, &QPushButton::clicked, this, [this] {
        if (settleTypedBanner())
            m_context.navigator.exitProgram();
    });

    const std::pair<QPushButton *, QString> screens[] = {{Command1, u"frmdirb"_s},
                                                         {cmdimpext, u"frmimportb"_s},
                                                         {cmdpractice, u"frmpractice"_s},
                                                         {cmdhelp, u"frmhelpb"_s}};
    for (const auto &[button, name] : screens) {
        connect(button, &QPushButton::clicked, this, [this, screen = name] {
            if (settleTypedBanner())
                m_context.navigator.open(screen);
        });
    }
}

void frminitb::showSettings()
{
    const Settings &settings = m_context.session.settings;
    txtbanner->setText(settings.bannerAndRace());
    txtbanner1->setText(settings.banner);
    txtfiles->setText(settings.eventDirectory);
    lblfont->setText(fontCaption(settings));
    setCaption(cmdprint, receiptsCaption(settings));
    setCaption(cmdround, roundingCaption(settings));
    m_races.group->button(settings.currentRace)->setChecked(true);
    showNote();
}

void frminitb::entered()
{
    if (!m_context.session.settings.started)
        startRun();
}

void frminitb::startRun()
{
    Session &session = m_context.session;
    Settings &settings = session.settings;
    settings.started = true;
    if (isTooNarrow())
        showMessage(this, u"Display size must be set to 1024 x 768"_s);
    settings.betsCleared = false;
    settings.banner.clear();
    settings.eventDirectory.clear();
    if (!askInitDrive()) {
        Undisturbed::afterwards(this, [this] { m_context.navigator.exitProgram(); });
        return;
    }
    bool whole = false;
    if (trap([&] { whole = readOrCreateInit(session); }) && !whole) {
        showMessage(this, u"Init is damaged - defaults are used for what cannot be read"_s,
                    settings.operationLabel);
    }
    sizeTables(session);
    showSettings();
    const bool printer =
        askYesNo(this, u"Is a printer attached to this computer? 'No' disables all printing."_s,
                 u"Printer Attached?"_s);
    settings.setReceiptPrinting(printer);
    settings.printerAttached = printer;
    trap([&] { m_note = resetEventDirectory(session, !whole); });
    showSettings();
}

// False when there is no drive to work on, and the operator gave up.
bool frminitb::askInitDrive()
{
    Session &session = m_context.session;
    QString &drive = session.settings.initDrive;
    for (;;) {
        if (drive.isEmpty()) {
            const QString answer = askText(
                this, u"Enter Init drive location - C, D, or E or press enter to use the C drive"_s,
                u"Init Drive"_s, u"C"_s);
            if (!isInitDriveAnswer(answer)) {
                showMessage(this, u"Invalid Init Drive - please re-enter"_s);
                continue;
            }
            drive = answer + u':';
        }
        bool isMistyped = false;
        const auto makeFolder = [&] {
            try {
                makeInitFolder(session);
            } catch (const FileError &error) {
                isMistyped = error.number() == ErrorNumber::BadFileName;
                throw;
            }
        };
        if (trap(makeFolder))
            return true;
        drive.clear();
        if (!isMistyped
            && askYesNoCarefully(this, u"No files can be kept on this drive. Leave the program?"_s,
                                 u"Init Drive"_s))
            return false;
    }
}

bool frminitb::isTooNarrow() const
{
    const QScreen *display = QGuiApplication::primaryScreen();
    return isDisplayTooNarrow(qRound(display->size().width() * display->devicePixelRatio()));
}

void frminitb::changeRaceTo(int race)
{
    if (!settleTypedBanner())
        return keepOption(m_races.group, m_context.session.settings.currentRace);
    trap([&] { changeRace(m_context.session, race); });
    showSettings();
}

bool frminitb::takeBanner()
{
    const bool saved = trap([&] { changeBanner(m_context.session, txtbanner1->text()); });
    txtbanner->setText(m_context.session.settings.bannerAndRace());
    if (!saved) {
        showNote();
        return false;
    }
    showSettings();
    showMessage(this, u"Banner information changed"_s, u"Setup"_s);
    return true;
}

bool frminitb::isBannerTyped() const
{
    return txtbanner1->text() != m_context.session.settings.banner;
}

// A banner that was typed without Enter is taken as Enter takes it, or dropped, as the operator
// says. False when the screen must stay as it is.
bool frminitb::settleTypedBanner()
{
    if (!isBannerTyped())
        return true;
    switch (
        askYesNoCancel(this, u"Change the banner to "_s + txtbanner1->text() + u'?', u"Setup"_s)) {
    case Choice::Yes:
        return takeBanner();
    case Choice::No:
        showSettings();
        return true;
    case Choice::Cancel:
        break;
    }
    txtbanner1->setFocus();
    return false;
}

void frminitb::showNote()
{
    const bool unsaved = isBannerTyped();
    QStringList notes{lastDirectoryNote(m_context.session.settings), m_note};
    notes.removeAll(QString());
    lblnote->setText(unsaved ? u"Press Enter in the banner text to change the banner."_s
                             : notes.join(u'\n'));
}

void frminitb::switchReceipts()
{
    trap([&] { switchReceiptPrinting(m_context.session); });
    setCaption(cmdprint, receiptsCaption(m_context.session.settings));
}

void frminitb::askReceiptFont()
{
    Settings &settings = m_context.session.settings;
    const QString answer =
        askText(this, u"Enter receipt font size - options are 8, 10, 12, or 14"_s,
                u"Receipt font size"_s, settings.receiptFontSize);
    if (!setReceiptFontSize(settings, answer))
        showMessage(this, u"Invalid font size entered"_s);
}

void frminitb::clearBetFiles()
{
    if (refusesToClear())
        return;
    if (askOkCancel(this, u"Clear and initialize ALL Bet files?"_s, u"Initialize"_s))
        clearFiles(&clearAllBets, u"All Bet files cleared and initialized"_s, u"Initialize Bets"_s);
}

void frminitb::clearBettorsFile()
{
    if (refusesToClear() || refusesBeforeBets(u"Clear Bettors"_s))
        return;
    if (askOkCancel(this, u"Clear and initialize Bettor file?"_s, u"Initialize"_s))
        clearFiles(
            [](Session &session, const Progress &) { return clearBettors(session, u"-Setup"_s); },
            u"Bettor file cleared and initialized"_s, u"Initialize Bettor"_s);
}

void frminitb::clearHorseFiles()
{
    if (refusesToClear() || refusesBeforeBets(u"Clear Horses"_s))
        return;
    if (askOkCancel(this, u"Clear and initialize Horses file?"_s, u"Initialize"_s))
        clearFiles(&clearAllHorses, u"All Horse files cleared and initialized"_s,
                   u"Initialize Players"_s);
}

bool frminitb::refusesToClear()
{
    const QString refusal = clearRefusal(m_context.session.settings);
    if (refusal.isEmpty())
        return false;
    m_note = refusal;
    showNote();
    return true;
}

bool frminitb::refusesBeforeBets(const QString &title)
{
    if (m_context.session.settings.betsWereCleared())
        return false;
    showMessage(this, u"Must clear Bets first"_s, title);
    return true;
}

void frminitb::clearFiles(int (*clear)(Session &, const Progress &), const QString &done,
                          const QString &title)
{
    int kept = 0;
    const bool isCleared = trap([&] {
        ProgressBox box(this, u"Clearing ..."_s, ProgressBox::Ending::OnlyWhenDone);
        kept = clear(m_context.session, box.progress());
    });
    if (!isCleared)
        return;
    m_note = kept == 0 ? QString()
                       : "Copies of the old files in the folder Saved: "_L1 + QString::number(kept);
    showNote();
    showMessage(this, done, title);
}

void frminitb::goToMenu()
{
    if (!settleTypedBanner())
        return;
    QString note;
    const bool isThere = trap([&] {
        ProgressBox box(this, u"Creating the files of the event ..."_s,
                        ProgressBox::Ending::OnlyWhenDone);
        note = CreateEventFiles(m_context.session, box.progress());
    });
    if (isThere) {
        m_context.session.settings.lastEventDirectory.clear();
        m_context.navigator.open(u"frmmenub"_s, note);
        return;
    }
    showMessage(this, u"Make sure drive and directory names are valid-try using default names"_s,
                u"Menu"_s);
}
