#include "setup/frmdirb.h"

#include "common/session.h"
#include "setup/eventfolders.h"
#include "ui/controls.h"
#include "ui/prompts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// What a list item stands for: a drive such as "C:", a folder such as "C:\Trelawn\".
constexpr int pathRole = Qt::UserRole;

QListWidgetItem *addItem(QListWidget *list, const QIcon &icon, const QString &text,
                         const QString &path)
{
    auto *item = new QListWidgetItem(icon, text, list);
    item->setData(pathRole, path);
    return item;
}

QListWidget *makeList(QWidget *parent, const QString &name, const QString &accessibleName)
{
    auto *list = new QListWidget(parent);
    list->setObjectName(name);
    list->setAccessibleName(accessibleName);
    return list;
}

// "C:\" of a folder's path, or the shared folder of a network path.
QString rootOf(const QString &folder)
{
    const QStringList folders = foldersAbove(folder);
    return folders.isEmpty() ? folder : folders.first();
}

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
    showFolders();
    Dir1->setFocus();
}

void frmdirb::build()
{
    auto *columns = new QHBoxLayout;
    columns->setSpacing(18);
    columns->addLayout(leftSide(), 3);
    columns->addLayout(rightSide(), 2);
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *frmdirb::leftSide()
{
    QLabel *driveLabel = makeHeading(this, u"lbldrive"_s, u"Click on desired drive below"_s);
    Drive1 = makeList(this, u"Drive1"_s, u"Drives"_s);
    txtdir = makeDisplay(this, u"txtdir"_s);
    txtdir->setText(u"Double Click on desired directory below"_s);
    txtdir->setFrame(false);
    txtdir->setFocusPolicy(Qt::NoFocus);
    QFont bold = txtdir->font();
    bold.setBold(true);
    txtdir->setFont(bold);
    Dir1 = makeList(this, u"Dir1"_s, u"Folders"_s);

    auto *layout = new QVBoxLayout;
    layout->addWidget(driveLabel);
    layout->addWidget(Drive1, 1);
    layout->addWidget(txtdir);
    layout->addWidget(Dir1, 3);
    return layout;
}

QLayout *frmdirb::rightSide()
{
    QLabel *pathLabel = makeHeading(this, u"lbldrivedir"_s, u"Current drive/path"_s);
    txtdrivedir = makeDisplay(this, u"txtdrivedir"_s);
    txtdrivedir->setAccessibleName(u"Current drive/path"_s);
    QFont large = txtdrivedir->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.3);
    txtdrivedir->setFont(large);

    Text3 = new QPlainTextEdit(this);
    Text3->setObjectName(u"Text3"_s);
    Text3->setReadOnly(true);
    Text3->setFocusPolicy(Qt::NoFocus);
    Text3->setAccessibleName(u"Instructions"_s);
    Text3->setPlainText(u"To create a new directory\n"
                        u"> Double click on the parent directory\n"
                        u"> Click Create New Directory\n"
                        u"> Enter the new directory name without a backslash"_s);
    cmdnew = makeButton(this, u"cmdnew"_s, u"Create New Directory"_s,
                        u"Double click on the parent directory for the new directory and click "
                        u"Create New Directory"_s);
    lblhint = makeLabel(this, u"lblhint"_s, {}, {}, true);
    lblhint->setFont(large);
    lblhint->setStyleSheet(u"color: #a02000"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return to Setup"_s, u"Return to main menu"_s);

    auto *layout = new QVBoxLayout;
    layout->addWidget(pathLabel);
    layout->addWidget(txtdrivedir);
    layout->addSpacing(18);
    layout->addWidget(Text3, 1);
    layout->addWidget(cmdnew);
    layout->addSpacing(12);
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
    connect(Dir1, &QListWidget::itemActivated, this, &frmdirb::folderChosen);
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
        auto *item = addItem(Drive1, style()->standardIcon(QStyle::SP_DriveHDIcon),
                             drive.label.isEmpty() ? root : QString(root + u"  "_s + drive.label),
                             drive.name);
        if (root.compare(chosen, Qt::CaseInsensitive) == 0)
            Drive1->setCurrentItem(item);
    }
}

// The folders on the way to the event directory, and those inside it.
void frmdirb::showFolders()
{
    const Session &session = m_context.session;
    const QString &directory = session.settings.eventDirectory;
    txtdrivedir->setText(directory);
    lblhint->clear();
    Dir1->clear();
    const QStringList above = foldersAbove(directory);
    QString indent;
    for (const QString &folder : above) {
        const QString name = folder == rootOf(directory) ? folder : lastName(folder);
        auto *item =
            addItem(Dir1, style()->standardIcon(QStyle::SP_DirOpenIcon), indent + name, folder);
        indent += u"    "_s;
        Dir1->setCurrentItem(item);
    }
    trapErrors(this, m_context.session, ErrorStyle::DescriptionAndLabel, [&] {
        for (const QString &name : foldersInside(session, directory)) {
            addItem(Dir1, style()->standardIcon(QStyle::SP_DirClosedIcon), indent + name,
                    directory + name + u'\\');
        }
    });
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

void frmdirb::folderChosen(const QListWidgetItem *item)
{
    const QString folder = item->data(pathRole).toString();
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
        for (int row = 0; row < Dir1->count(); ++row) {
            if (Dir1->item(row)->data(pathRole).toString() == parent + name + u'\\')
                Dir1->setCurrentRow(row);
        }
        Dir1->setFocus();
        lblhint->setText(name
                         + u" is not the event directory yet: double click on it to make it "
                           u"so"_s);
    });
}
