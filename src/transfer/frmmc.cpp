#include "transfer/frmmc.h"

#include "common/event/session.h"
#include "common/print/format.h"
#include "transfer/addedtable.h"
#include "ui/celltable.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/prompts.h"
#include "ui/wrappedbutton.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Where a step is taken.
enum class Role { Main, Satellite, All };

// A step that is only told has no button; a transfer's button opens its drive choice.
struct Step
{
    QString name;
    QString text;
    Role role = Role::All;
    QString screen = {};
};

// The steps in the order of an evening; a step without a name begins a group of them.
QList<Step> steps()
{
    return {
        {{}, u"Before the races"_s},
        {u"lblstep_1"_s, u"1. Enter Horses and Bettor names on the main computer"_s, Role::Main},
        {u"lblstep_2"_s, u"2. Insert a thumb drive in the main computer"_s, Role::Main},
        {u"cmdsavebh"_s,
         u"3. Click here  to Save Bettors, Horses from main computer to thumb drive"_s, Role::Main,
         u"frmdrive"_s},
        {u"lblstep_4"_s,
         u"4. Insert the thumb drive from the main computer  in a satellite computer"_s,
         Role::Satellite},
        {u"cmdloadbh"_s,
         u"5. Click here to Load Bettors, Horses on satellite computers from thumb drive. Repeat "
         "this step for each satellite computer"_s,
         Role::Satellite, u"frmsatdrv"_s},
        {{}, u"During the races"_s},
        {u"cmdreturn"_s, u"6. Click here to return to Menu in Multiple Computer mode"_s},
        {u"lblstep_7"_s, u"7. Bets are entered on all computers"_s},
        {{}, u"After each race"_s},
        {u"lblstep_8"_s,
         u"8. After the race load bets from each satellite computer to a thumb drive. "
         "A thumb drive will only hold bets for one computer. If you only have one "
         "thumb drive, be sure to load the bets to the main computer after each load "
         "of bets to a thumb drive."_s,
         Role::Satellite},
        {u"cmdsavebets"_s,
         u"9. Click here to Save Bets from satellite computers to a thumb drive"_s, Role::Satellite,
         u"frmsatun"_s},
        {u"lblstep_10"_s, u"10. Insert the thumb drive with bets into the main computer"_s,
         Role::Main},
        {u"cmdaddbets"_s,
         u"11. Click here to Add New Bets to the main computer from a thumb drive. Repeat steps "
         "10. and 11. for each satellite computer."_s,
         Role::Main, u"frmmainld"_s},
    };
}

const QString whatFor =
    u"For several computers that take bets without a network: a thumb drive carries horses and "
    "bettors to the satellites, and their bets back to the main computer, which pays."_s;

const QString roleIsNotSaved =
    u"IMPORTANT: Multiple computer status is not saved if you exit the \n"
    "program. You must return to this screen and exit in Multiple Computer \n"
    "mode to re-establish Multiple Computer status."_s;

const QString mainRole = u"Main Computer - Bettor Adds \npermitted - Bettor changes not \n"
                         "permitted - Horse changes not \npermitted"_s;
const QString satelliteRole = u"Satellite Computer - All changes to \nHorses or Bettors is "
                              "disabled - send \nall new bettors to the main computer"_s;

} // namespace

frmmc::frmmc(const ScreenContext &context)
    : m_context(context)
{
    build();
    connect(cmdreturn, &QPushButton::clicked, this, &frmmc::returnMultiple);
    connect(cmdsing, &QPushButton::clicked, this, &frmmc::returnSingle);
    showAddedBets();
}

frmmc::~frmmc()
{
    delete m_driveChoice;
}

// The computers side by side, each below what it may do; what all of them do goes across.
void frmmc::build()
{
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->addWidget(makeLabel(this, u"lblwhatfor"_s, whatFor, {}, true));
    layout->addLayout(buildRoles());
    QGridLayout *group = nullptr;
    for (const Step &step : steps()) {
        if (step.name.isEmpty()) {
            auto *frame = new QGroupBox(step.text, this);
            group = new QGridLayout(frame);
            group->setContentsMargins(9, 4, 9, 6);
            group->setColumnStretch(0, 1);
            group->setColumnStretch(1, 1);
            layout->addWidget(frame);
            continue;
        }
        QWidget *made = makeStep(step.name, step.text, step.screen);
        const int column = step.role == Role::Satellite ? 1 : 0;
        int row = 0;
        while (group->itemAtPosition(row, column))
            ++row;
        group->addWidget(made, row, column, 1, step.role == Role::All ? 2 : 1);
    }
    setTip(cmdreturn, roleIsNotSaved);
    layout->addWidget(makeHeading(this, u"lblimportant"_s, roleIsNotSaved));
    cmdsing =
        makeButton(this, u"cmdsing"_s, u"Click here to return to Menu in Single Computer mode"_s);
    layout->addWidget(cmdsing, 0, Qt::AlignLeft);

    grdadded = new QTableWidget(this);
    grdadded->setObjectName(u"grdadded"_s);
    grdadded->setAccessibleName(u"Bets added, by race"_s);
    grdadded->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdadded->setTabKeyNavigation(false);
    layout->addWidget(grdadded, 1);
    lblnote = makeNoteLine(this);
    layout->addStretch();
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmmc::buildRoles()
{
    auto *roles = new QHBoxLayout;
    for (const auto &[name, role] :
         {std::pair{u"txtmain"_s, mainRole}, {u"txtsat"_s, satelliteRole}}) {
        QLabel *label = makeHeading(this, name, role);
        label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        label->setContentsMargins(9, 0, 0, 0);
        roles->addWidget(label, 1);
    }
    return roles;
}

QWidget *frmmc::makeStep(const QString &name, const QString &text, const QString &screen)
{
    if (name.startsWith("lbl"_L1))
        return makeLabel(this, name, text, {}, true);
    QPushButton *button = makeWrappedButton(this, name, text);
    if (screen.isEmpty())
        cmdreturn = button;
    else
        connect(button, &QPushButton::clicked, this, [this, screen] { openDrive(screen); });
    return button;
}

void frmmc::openDrive(const QString &screen)
{
    delete m_driveChoice;
    m_driveChoice = m_context.navigator.openBeside(screen);
    connect(m_driveChoice, &QObject::destroyed, this, &frmmc::showAddedBets);
}

void frmmc::showAddedBets()
{
    const QList<AddedBets> &races = m_context.session.addedBets;
    grdadded->setVisible(!races.isEmpty());
    const AddedBetsTable table = addedBetsTable(races);
    fillTable(grdadded, table.columns, table.rows, table.columns.size());
    grdadded->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grdadded->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    lblnote->warn(table.note);
}

void frmmc::returnMultiple()
{
    Settings &settings = m_context.session.settings;
    if (settings.hasRole()) {
        settings.mainComputer = true;
    } else {
        const bool main = askYesNo(this, u"Is this the main computer?"_s);
        settings.setRole(main, !main);
    }
    m_context.navigator.open(u"frmmenub"_s);
}

void frmmc::returnSingle()
{
    m_context.session.settings.clearRole();
    m_context.navigator.open(u"frmmenub"_s);
}
