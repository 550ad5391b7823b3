#include "transfer/frmimportb.h"

#include "common/event/session.h"
#include "common/files/folders.h"
#include "ui/celltable.h"
#include "ui/controls.h"
#include "ui/emptyhint.h"
#include "ui/folderlists.h"
#include "ui/noteline.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString boxTitle = u"Import"_s;

const QString whyImport =
    u"Brings the files of another computer or event into this one, so that there is one list of "
    "bettors and one payoff. Choose the drive and the folder that hold its files, check what to "
    "take, and press IMPORT."_s;

// The folder that the event directory lies in: the usual place of other events.
QString folderBeside(const QString &eventDirectory)
{
    const QStringList folders = foldersAbove(eventDirectory);
    return folders.size() < 2 ? eventDirectory : folders[folders.size() - 2];
}

QString namesOf(const ImportChoice &choice)
{
    QStringList names;
    if (choice.horses)
        names << u"Horses"_s;
    if (choice.bettors)
        names << u"Bettors"_s;
    if (choice.bets)
        names << u"Bets"_s;
    return names.join(", "_L1);
}

} // namespace

frmimportb::frmimportb(const ScreenContext &context)
    : m_context(context)
    , m_folder(folderBeside(context.session.settings.eventDirectory))
{
    build();
    connectControls();
    m_folders->showDrives(m_folder);
    lstdrive->setFocus();
}

void frmimportb::build()
{
    auto *above = new QHBoxLayout;
    above->setSpacing(18);
    above->addLayout(buildFolder(), 3);
    above->addLayout(buildChoice(), 2);
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeLabel(this, u"lblwhatfor"_s, whyImport, {}, true));
    layout->addLayout(above, 1);
    layout->addWidget(buildResult(), 1);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmimportb::buildFolder()
{
    m_folders = new FolderLists(m_context.session, u"lstdrive"_s, u"lstfolder"_s, this);
    lstdrive = m_folders->drives();
    lstfolder = m_folders->folders();
    lstfile = new QListWidget(this);
    lstfile->setObjectName(u"lstfile"_s);
    lstfile->setAccessibleName(u"Files that can be imported"_s);
    lstfile->setSelectionMode(QAbstractItemView::NoSelection);
    new EmptyHint(u"None here: choose another folder"_s, lstfile);
    txtfolder = makeDisplay(this, u"txtfolder"_s);
    txtfolder->setAccessibleName(u"Folder to import from"_s);
    cmdrefresh = makeButton(this, u"cmdrefresh"_s, u"Look Again"_s,
                            u"List the drives and files again, after a thumb drive was put in"_s);

    auto *drives = new QVBoxLayout;
    drives->addWidget(makeHeading(this, u"lbldrive"_s, u"Click on the drive"_s));
    drives->addWidget(lstdrive, 1);
    drives->addWidget(cmdrefresh, 0, Qt::AlignLeft);
    auto *folders = new QVBoxLayout;
    folders->addWidget(makeHeading(this, u"lblfolder"_s, u"Double click on the folder"_s));
    folders->addWidget(lstfolder, 1);
    auto *files = new QVBoxLayout;
    files->addWidget(makeHeading(this, u"lblfile"_s, u"Files there"_s));
    files->addWidget(lstfile, 1);
    auto *lists = new QHBoxLayout;
    lists->addLayout(drives, 3);
    lists->addLayout(folders, 4);
    lists->addLayout(files, 3);
    auto *layout = new QVBoxLayout;
    layout->addLayout(lists, 1);
    layout->addWidget(txtfolder);
    return layout;
}

QLayout *frmimportb::buildChoice()
{
    auto *group = new QGroupBox(u"What to import"_s, this);
    chkhorses = makeCheck(group, u"chkhorses"_s, u"Horses"_s,
                          u"The horses of each race replace those on this computer"_s);
    chkbettors = makeCheck(group, u"chkbettors"_s, u"Bettors"_s,
                           u"Names that are not in the list here are added to it"_s);
    chkbets = makeCheck(group, u"chkbets"_s, u"Bets"_s,
                        u"The bets of each race are added to those on this computer"_s);
    cmdimport = makeButton(group, u"cmdimport"_s, u"IMPORT"_s,
                           u"Import the files checked from the folder shown"_s);
    standOut(cmdimport);
    QLabel *lblimport = makeLabel(
        group, u"lblimport"_s,
        u"Horses replace the horses here. Bettors and bets are added: a bettor of the same name "
        "is the same person and keeps the number here, everybody else gets a new number. Multibets "
        "are not imported. Copies of the files as they were go to Saved."_s,
        {}, true);
    auto *checks = new QHBoxLayout;
    for (QCheckBox *check : {chkhorses, chkbettors, chkbets})
        checks->addWidget(check);
    auto *inside = new QVBoxLayout(group);
    inside->setSpacing(12);
    inside->addLayout(checks);
    inside->addWidget(lblimport);
    inside->addWidget(cmdimport);
    inside->addStretch();
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return to Setup"_s);
    auto *layout = new QVBoxLayout;
    layout->addWidget(group, 1);
    layout->addWidget(cmdreturn);
    return layout;
}

QWidget *frmimportb::buildResult()
{
    fraresult = new QGroupBox(u"Imported"_s, this);
    fraresult->setObjectName(u"fraresult"_s);
    fraresult->hide();
    grdimport = new QTableWidget(fraresult);
    grdimport->setObjectName(u"grdimport"_s);
    grdimport->setAccessibleName(u"What was imported, by race"_s);
    grdimport->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdimport->setTabKeyNavigation(false);
    const QStringList columns = importTable({}).columns;
    grdimport->setColumnCount(int(columns.size()));
    grdimport->setHorizontalHeaderLabels(columns);
    grdimport->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grdimport->horizontalHeader()->setStretchLastSection(true);
    grdimport->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstnames = new QListWidget(fraresult);
    lstnames->setObjectName(u"lstnames"_s);
    lstnames->setAccessibleName(u"Names that were here already, and new names"_s);
    auto *layout = new QHBoxLayout(fraresult);
    layout->addWidget(grdimport, 3);
    layout->addWidget(lstnames, 1);
    return fraresult;
}

void frmimportb::connectControls()
{
    connect(m_folders, &FolderLists::driveChosen, this,
            [this](const QString &drive) { showFolder(drive + u'\\'); });
    connect(m_folders, &FolderLists::folderChosen, this, &frmimportb::showFolder);
    connect(cmdrefresh, &QPushButton::clicked, this, [this] {
        m_folders->showDrives(m_folder);
        showFolder(m_folder);
    });
    connect(cmdimport, &QPushButton::clicked, this, &frmimportb::importFiles);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frminitb"_s); });
}

void frmimportb::showFolder(const QString &folder)
{
    Session &session = m_context.session;
    m_folder = folder;
    txtfolder->setText(folder);
    lstfile->clear();
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, u"Import input"_s, [&] {
        m_folders->showFolders(folder);
        lstfile->addItems(importableFiles(session, folder));
    });
}

ImportChoice frmimportb::choice() const
{
    return {chkhorses->isChecked(), chkbettors->isChecked(), chkbets->isChecked()};
}

void frmimportb::importFiles()
{
    const ImportChoice chosen = choice();
    const QString names = namesOf(chosen);
    if (names.isEmpty())
        return showMessage(this, u"Check Horses, Bettors or Bets first"_s, boxTitle);
    if (!askOkCancel(this, u"Import "_s + names + u" from "_s + m_folder + u'?', boxTitle))
        return;
    ImportPlan plan;
    if (carryOut(chosen, plan))
        showResult(plan);
}

bool frmimportb::carryOut(const ImportChoice &choice, ImportPlan &plan)
{
    Session &session = m_context.session;
    const auto showingProgress = [this](const auto &work) {
        ProgressBox box(this, u"Import from "_s + m_folder, ProgressBox::Ending::OnlyWhenDone);
        return work(box.progress());
    };
    bool wanted = true;
    const bool whole = trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        plan =
            showingProgress([&](auto tell) { return planImport(session, m_folder, choice, tell); });
        if (!plan.refusal.isEmpty())
            return;
        wanted = askAboutBetsOnFile(plan);
        if (!wanted)
            return lblnote->setText(u"Nothing was imported."_s);
        plan.refusal =
            showingProgress([&](auto tell) { return carryOutImport(session, plan, tell); });
    });
    if (whole && !plan.refusal.isEmpty())
        showMessage(this, plan.refusal, boxTitle);
    return whole && wanted && plan.refusal.isEmpty();
}

// Bets that are on file already are added again only on purpose. False when nothing shall be
// imported.
bool frmimportb::askAboutBetsOnFile(ImportPlan &plan)
{
    const QStringList races = plan.racesOnFile();
    if (races.isEmpty())
        return true;
    const QString question = u"Some of these bets are on file here already.\n"_s + races.join(u'\n')
                             + u"\nAdd only the new ones? No adds all."_s;
    const Choice choice = askYesNoCancel(this, question, boxTitle);
    if (choice == Choice::Yes)
        plan.leaveOutBetsOnFile();
    return choice != Choice::Cancel;
}

void frmimportb::showResult(const ImportPlan &plan)
{
    const ImportTable table = importTable(plan.races);
    fillTable(grdimport, table.columns, table.rows, table.columns.size() - 1);
    lstnames->clear();
    for (const QString &name : plan.duplicates)
        lstnames->addItem(u"duplicate: "_s + name);
    for (const QString &name : plan.added)
        lstnames->addItem(u"new: "_s + name);
    fraresult->show();
    lblnote->setText(importSummary(plan),
                     plan.note.isEmpty() ? NoteKind::Plain : NoteKind::Warning);
}
