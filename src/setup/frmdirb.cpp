#include "setup/frmdirb.h"

#include "common/session.h"
#include "setup/eventfolders.h"
#include "ui/controls.h"
#include "ui/prompts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// What an item stands for: a drive such as "C:", a folder such as "C:\\Trelawn\\".
constexpr int pathRole = Qt::UserRole;

QString lastName(const QString &folder)
{
    return folder.section(u'\\', -2, -2);
}

} // namespace

frmdirb::frmdirb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    showDrives();
    Dir1->setFocus();
    // A failure is shown once the screen can be seen.
    QTimer::singleShot(0, this, &frmdirb::showFolders);
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
    Drive1 = new QListWidget(this);
    Drive1->setObjectName(u"Drive1"_s);
    Drive1->setAccessibleName(u"Drives"_s);
    txtdir = makeDisplay(this, u"txtdir"_s);
    txtdir->setText(u"Double Click on desired directory below"_s);
    txtdir->setFrame(false);
    txtdir->setFocusPolicy(Qt::NoFocus);
    txtdir->setStyleSheet(u"background: transparent; font-weight: bold"_s);
    Dir1 = new QTreeWidget(this);
    Dir1->setObjectName(u"Dir1"_s);
    Dir1->setAccessibleName(u"Folders"_s);
    Dir1->setHeaderHidden(true);
    Dir1->setRootIsDecorated(false);
    Dir1->setItemsExpandable(false);
    Dir1->setExpandsOnDoubleClick(false);

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
    auto *group = new QGroupBox(u"New directory"_s, this);
    Text3 = makeLabel(group, u"Text3"_s,
                      u"To create a new directory\n"
                      "> Double click on the parent directory\n"
                      "> Click Create New Directory\n"
                      "> Enter the new directory name without a backslash"_s);
    cmdnew = makeButton(group, u"cmdnew"_s, u"Create New Directory"_s,
                        u"Double click on the parent directory for the new directory and click "
                        "Create New Directory"_s);
    lblhint = makeHeading(this, u"lblhint"_s, {});
    lblhint->setWordWrap(true);
    QFont large = lblhint->font();
    large.setPointSizeF(large.pointSizeF() * 1.3);
    lblhint->setFont(large);
    lblhint->setStyleSheet(u"color: #a02000"_s);
    auto *inside = new QVBoxLayout(group);
    inside->setSpacing(12);
    inside->addWidget(Text3);
    inside->addWidget(cmdnew);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return to Setup"_s, u"Return to main menu"_s);

    auto *layout = new QVBoxLayout;
    layout->addWidget(group);
    layout->addWidget(lblhint, 1, Qt::AlignTop);
    layout->addWidget(cmdreturn);
    return layout;
}

void frmdirb::connectControls()
{
    // A press of Enter activates an item; so does a double click, which is told apart for drives,
    // where the first click has done the work.
    connect(Drive1, &QListWidget::itemClicked, this, &frmdirb::driveChosen);
    connect(Drive1, &QListWidget::itemActivated, this, &frmdirb::driveChosen);
    connect(Dir1, &QTreeWidget::itemActivated, this, &frmdirb::folderChosen);
    connect(cmdnew, &QPushButton::clicked, this, &frmdirb::createNew);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frminitb"_s); });
}

void frmdirb::showDrives()
{
    const QString chosen = m_context.session.settings.eventDirectory.left(3);
    Drive1->clear();
    for (const Drive &drive : m_context.session.paths.drives()) {
        const QString root = drive.name + u'\\';
        const QString text = drive.label.isEmpty() ? root : QString(root + u"  "_s + drive.label);
        auto *item =
            new QListWidgetItem(style()->standardIcon(QStyle::SP_DriveHDIcon), text, Drive1);
        item->setData(pathRole, drive.name);
        if (root.compare(chosen, Qt::CaseInsensitive) == 0)
            Drive1->setCurrentItem(item);
    }
}

// The folders on the way to the event directory, and those inside it.
void frmdirb::showFolders()
{
    const QString &directory = m_context.session.settings.eventDirectory;
    txtdrivedir->setText(directory);
    lblhint->clear();
    Dir1->clear();
    QTreeWidgetItem *parent = Dir1->invisibleRootItem();
    const auto addFolder = [&](const QString &text, const QString &folder,
                               QStyle::StandardPixmap icon) {
        auto *item = new QTreeWidgetItem(parent, {text});
        item->setIcon(0, style()->standardIcon(icon));
        item->setData(0, pathRole, folder);
        return item;
    };
    for (const QString &folder : foldersAbove(directory)) {
        const bool isRoot = parent == Dir1->invisibleRootItem();
        parent = addFolder(isRoot ? folder : lastName(folder), folder, QStyle::SP_DirOpenIcon);
    }
    Dir1->setCurrentItem(parent);
    m_context.session.settings.operationLabel = u"Directory-Open"_s;
    trapErrors(this, m_context.session, ErrorStyle::DescriptionAndLabel, [&] {
        for (const QString &name : foldersInside(m_context.session, directory))
            addFolder(name, directory + name + u'\\', QStyle::SP_DirClosedIcon);
    });
    Dir1->expandAll();
    Dir1->scrollToItem(Dir1->currentItem());
}

void frmdirb::driveChosen(const QListWidgetItem *item)
{
    const QString drive = item->data(pathRole).toString();
    Session &session = m_context.session;
    if (!trapErrors(this, session, ErrorStyle::DescriptionAndLabel,
                    [&] { chooseDrive(session, drive); }))
        showDrives();
    showFolders();
}

void frmdirb::folderChosen(const QTreeWidgetItem *item)
{
    const QString folder = item->data(0, pathRole).toString();
    Session &session = m_context.session;
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel,
               [&] { chooseFolder(session, folder); });
    showFolders();
}

void frmdirb::createNew()
{
    const QString name = askText(this, u"Enter new directory name"_s, u"Directory"_s).trimmed();
    if (name.isEmpty())
        return;
    Session &session = m_context.session;
    const QString parent = session.settings.eventDirectory;
    trapErrors(this, session, ErrorStyle::DescriptionAndLabel, [&] {
        createFolder(session, parent, name);
        showFolders();
        const QTreeWidgetItem *shown = Dir1->currentItem();
        for (int row = 0; row < shown->childCount(); ++row) {
            if (shown->child(row)->text(0) == name)
                Dir1->setCurrentItem(shown->child(row));
        }
        Dir1->setFocus();
        lblhint->setText(name
                         + u" is not the event directory yet: double click on it to make it "
                           u"so"_s);
    });
}
