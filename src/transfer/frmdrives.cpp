#include "transfer/frmdrives.h"

#include "common/event/session.h"
#include "common/print/format.h"
#include "transfer/thumbdrive.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString multibetsStay = u"Multibet files are not imported/exported"_s;

// "This satellite still holds 63 bets of $512.00 and 4 multibets. ...", or nothing.
QString heldBetsQuestion(Session &session)
{
    const HeldBets held = heldBets(session);
    if (!held.areThere())
        return {};
    return "This satellite still holds "_L1 + counted(std::size_t(held.bets), u"bet"_s) + " of "_L1
           + formatMoney(held.dollars) + " and "_L1
           + counted(std::size_t(held.multibets), u"multibet"_s)
           + ".\n\nAre they of an older event? Yes moves them to Saved, so that they are not sent "
             "to the main computer. No keeps them."_L1;
}

auto load(BetsHeld betsHeld)
{
    return [betsHeld](Session &session, const QString &drive, const Progress &progress) {
        loadHorsesAndBettors(session, drive, betsHeld, progress);
    };
}

} // namespace

DriveChoice::DriveChoice(const ScreenContext &context, DriveTransfer transfer)
    : m_context(context)
    , m_transfer(std::move(transfer))
{
    build();
    connect(lstdrive, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { choose(item->data(Qt::UserRole).toString()); });
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *enter = new QShortcut(key, lstdrive, {}, {}, Qt::WidgetShortcut);
        connect(enter, &QShortcut::activated, this, [this] {
            if (const QListWidgetItem *item = lstdrive->currentItem())
                choose(item->data(Qt::UserRole).toString());
        });
    }
    connect(cmdrefresh, &QPushButton::clicked, this, &DriveChoice::listDrives);
    connect(cmdreturn, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
    listDrives();
    lstdrive->setFocus();
}

void DriveChoice::build()
{
    QLabel *lblstep = makeHeading(this, u"lblstep"_s, m_transfer.heading);
    QLabel *lblchoose =
        makeLabel(this, u"lblchoose"_s, u"Click the thumb drive, or press Enter on it"_s);
    lstdrive = new QListWidget(this);
    lstdrive->setObjectName(u"lstdrive"_s);
    lstdrive->setAccessibleName(u"Drives"_s);
    scaleText(lstdrive, 1.3);
    cmdrefresh = makeButton(this, u"cmdrefresh"_s, u"Look Again"_s,
                            u"List the drives again, after a thumb drive was put in"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s);
    lblnote = makeNoteLine(this);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdrefresh);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblstep);
    layout->addWidget(lblchoose);
    layout->addWidget(lstdrive, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

void DriveChoice::listDrives()
{
    lstdrive->clear();
    lstdrive->addItem(QString());
    for (const Drive &drive : m_context.session.paths.drives()) {
        auto *item =
            new QListWidgetItem(QString(drive.name + "  "_L1 + drive.label).trimmed(), lstdrive);
        item->setData(Qt::UserRole, drive.name);
    }
    lstdrive->setCurrentRow(0);
}

void DriveChoice::choose(const QString &drive)
{
    if (!takeRole())
        return;
    if (m_transfer.tellsMultibets)
        showMessage(this, multibetsStay);
    if (drive.isEmpty())
        return showMessage(this, u"No thumb drive selected"_s);
    if (runTransfer(drive)) {
        showMessage(this, m_transfer.done);
        close();
    }
}

bool DriveChoice::takeRole()
{
    const bool main = m_transfer.onMainComputer;
    const bool agreed =
        askYesNo(this, main ? u"Is this the main computer"_s : u"Is this a satellite computer?"_s);
    if (!agreed) {
        showMessage(this, main ? u"Only permitted on main computer"_s
                               : u"Only permitted on satellite computer"_s);
        return false;
    }
    m_context.session.settings.setRole(main, !main);
    return true;
}

bool DriveChoice::runTransfer(const QString &drive)
{
    return trapErrors(
        this, m_context.session, ErrorStyle::NumberAndDescription, m_transfer.operation, [&] {
            const auto &run = askAboutBets() ? m_transfer.runWithoutBets : m_transfer.run;
            ProgressBox box(this, m_transfer.heading, ProgressBox::Ending::OnlyWhenDone);
            run(m_context.session, drive, box.progress());
        });
}

bool DriveChoice::askAboutBets()
{
    const QString question =
        m_transfer.betsQuestion ? m_transfer.betsQuestion(m_context.session) : QString();
    return !question.isEmpty() && askYesNo(this, question);
}

frmdrive::frmdrive(const ScreenContext &context)
    : DriveChoice(context,
                  {u"Save Bettors and Horses to a thumb drive"_s, true, true, u"Export"_s,
                   u"All Horses and Bettors written to thumb drive"_s, &saveHorsesAndBettors})
{
}

frmsatdrv::frmsatdrv(const ScreenContext &context)
    : DriveChoice(context, {u"Load Bettors and Horses from a thumb drive"_s, false, true,
                            u"Export"_s, u"All Horses and Bettors written to satellite computer"_s,
                            load(BetsHeld::Stay), &heldBetsQuestion, load(BetsHeld::GoToSaved)})
{
}

frmsatun::frmsatun(const ScreenContext &context)
    : DriveChoice(context,
                  {u"Save this satellite's Bets to a thumb drive"_s, false, false, u"Export"_s,
                   u"Satellite computer Bets written to thumb drive"_s, &saveSatelliteBets})
{
}

frmmainld::frmmainld(const ScreenContext &context)
    : DriveChoice(context, {u"Add a satellite's Bets from a thumb drive"_s, true, false,
                            u"Import Bets"_s, u"Satellite computer bets added to main computer"_s,
                            [](Session &session, const QString &drive, const Progress &progress) {
                                session.addedBets = addSatelliteBets(session, drive, progress);
                            }})
{
}
