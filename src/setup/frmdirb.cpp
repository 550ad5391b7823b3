#include "setup/frmdirb.h"

#include "common/event/session.h"
#include "setup/eventfolders.h"
#include "ui/colors.h"
#include "ui/controls.h"
#include "ui/folderlists.h"
#include "ui/noteline.h"
#include "ui/prompts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmdirb::frmdirb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    m_folders->showDrives(m_context.session.settings.eventDirectory);
    Dir1->setFocus();
}

void frmdirb::build()
{
    txtdrivedir = makeBanner(this, u"txtdrivedir"_s, {});
    txtdrivedir->setAccessibleName(u"Current drive/path"_s);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(18);
    columns->addLayout(lists(), 3);
    columns->addLayout(newDirectory(), 2);
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(makeHeading(this, u"lbldrivedir"_s, u"Current drive/path"_s));
    layout->addWidget(txtdrivedir);
    layout->addSpacing(6);
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmdirb::lists()
{
    m_folders = new FolderLists(m_context.session, u"Drive1"_s, u"Dir1"_s, this);
    Drive1 = m_folders->drives();
    Dir1 = m_folders->folders();
    txtdir = makeDisplay(this, u"txtdir"_s);
    txtdir->setText(u"Double Click on desired directory below"_s);
    enlarge(txtdir, 1);
    txtdir->setFocusPolicy(Qt::NoFocus);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(makeHeading(this, u"lbldrive"_s, u"Click on desired drive below"_s));
    layout->addWidget(Drive1, 2);
    layout->addWidget(txtdir);
    layout->addWidget(Dir1, 5);
    return layout;
}

QLayout *frmdirb::newDirectory()
{
    QLabel *lblwhatfor =
        makeLabel(this, u"lblwhatfor"_s,
                  u"The event directory holds the horses, bettors and bets of one event. Double "
                  "click on the directory of an earlier event to go on with it. Create a new one "
                  "for tonight, so that nothing of another event is mixed in or lost."_s,
                  {}, true);
    auto *group = new QGroupBox(u"New directory"_s, this);
    Text3 = makeLabel(group, u"Text3"_s,
                      u"To create a new directory\n"
                      "> Double click on the parent directory\n"
                      "> Click Create New Directory\n"
                      "> Enter the new directory name without a backslash"_s);
    cmdnew = makeButton(group, u"cmdnew"_s, u"Create New Directory"_s,
                        u"Double click on the parent directory for the new directory and click "
                        "Create New Directory"_s);
    lblhint = makeLabel(this, u"lblhint"_s, {}, {}, true);
    enlarge(lblhint, 1.3);
    setTone(lblhint, Tone::Wrong);
    auto *inside = new QVBoxLayout(group);
    inside->setSpacing(12);
    inside->addWidget(Text3);
    inside->addWidget(cmdnew);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return to Setup"_s, u"Return to main menu"_s);

    auto *layout = new QVBoxLayout;
    layout->addWidget(lblwhatfor);
    layout->addWidget(group);
    layout->addWidget(lblhint, 1, Qt::AlignTop);
    layout->addWidget(cmdreturn);
    return layout;
}

void frmdirb::connectControls()
{
    connect(m_folders, &FolderLists::driveChosen, this, &frmdirb::driveChosen);
    connect(m_folders, &FolderLists::folderChosen, this, &frmdirb::folderChosen);
    connect(cmdnew, &QPushButton::clicked, this, &frmdirb::createNew);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frminitb"_s); });
}

// The folders on the way to the event directory, and those inside it.
void frmdirb::showFolders()
{
    const QString &directory = m_context.session.settings.eventDirectory;
    txtdrivedir->setText(directory);
    lblhint->clear();
    lblnote->setText(lastDirectoryNote(m_context.session.settings));
    trapErrors(this, m_context.session, ErrorStyle::DescriptionAndLabel, u"Directory-Open"_s,
               [&] { m_folders->showFolders(directory); });
}

void frmdirb::driveChosen(const QString &drive)
{
    Session &session = m_context.session;
    if (session.settings.eventDirectory.startsWith(drive, Qt::CaseInsensitive))
        return;
    if (!trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { chooseDrive(session, drive); }))
        m_folders->showDrives(session.settings.eventDirectory);
    showFolders();
}

void frmdirb::folderChosen(const QString &folder)
{
    Session &session = m_context.session;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] { chooseFolder(session, folder); });
    showFolders();
}

void frmdirb::createNew()
{
    const QString name = askText(this, u"Enter new directory name"_s, u"Directory"_s).trimmed();
    if (name.isEmpty())
        return;
    Session &session = m_context.session;
    const QString parent = session.settings.eventDirectory;
    trapErrors(this, ErrorStyle::DescriptionAndLabel, [&] {
        createFolder(session, parent, name);
        showFolders();
        m_folders->select(name);
        Dir1->setFocus();
        lblhint->setText(name
                         + u" is not the event directory yet: double click on it to make it "
                           u"so"_s);
    });
}
