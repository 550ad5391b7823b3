#include "ui/folderlists.h"

#include "common/event/session.h"
#include "common/files/folders.h"
#include "ui/emptyhint.h"

#include <QListWidget>
#include <QStyle>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

// What an item stands for: a drive such as "C:", a folder such as "C:\\Trelawn\\".
constexpr int pathRole = Qt::UserRole;

QTreeWidgetItem *addFolder(QTreeWidgetItem *parent, const QString &text, const QString &folder,
                           const QIcon &icon)
{
    auto *item = new QTreeWidgetItem(parent, {text});
    item->setIcon(0, icon);
    item->setData(0, pathRole, folder);
    return item;
}

} // namespace

FolderLists::FolderLists(const Session &session, const QString &drivesName,
                         const QString &foldersName, QWidget *screen)
    : QObject(screen)
    , m_session(session)
    , m_drives(new QListWidget(screen))
    , m_folders(new QTreeWidget(screen))
{
    m_drives->setObjectName(drivesName);
    m_drives->setAccessibleName(u"Drives"_s);
    m_folders->setObjectName(foldersName);
    m_folders->setAccessibleName(u"Folders"_s);
    m_folders->setHeaderHidden(true);
    m_folders->setRootIsDecorated(false);
    m_folders->setItemsExpandable(false);
    m_folders->setExpandsOnDoubleClick(false);
    new EmptyHint(u"Click on a drive that can be read"_s, m_folders);

    // Enter activates an item; so does the second click on a drive, after the first did the work.
    const auto chooseDrive = [this](const QListWidgetItem *item) {
        emit driveChosen(item->data(pathRole).toString());
    };
    connect(m_drives, &QListWidget::itemClicked, this, chooseDrive);
    connect(m_drives, &QListWidget::itemActivated, this, chooseDrive);
    connect(m_folders, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem *item) {
        emit folderChosen(item->data(0, pathRole).toString());
    });
}

void FolderLists::showDrives(const QString &folder)
{
    m_drives->clear();
    for (const Drive &drive : m_session.paths.drives()) {
        const QString root = drive.name + u'\\';
        const QString text = drive.label.isEmpty() ? root : QString(root + u"  "_s + drive.label);
        auto *item = new QListWidgetItem(m_drives->style()->standardIcon(QStyle::SP_DriveHDIcon),
                                         text, m_drives);
        item->setData(pathRole, drive.name);
        if (root.compare(folder.left(3), Qt::CaseInsensitive) == 0)
            m_drives->setCurrentItem(item);
    }
}

void FolderLists::showFolders(const QString &folder)
{
    const QIcon open = m_folders->style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closed = m_folders->style()->standardIcon(QStyle::SP_DirClosedIcon);
    m_folders->clear();
    QTreeWidgetItem *parent = m_folders->invisibleRootItem();
    for (const QString &above : foldersAbove(folder)) {
        const bool isRoot = parent == m_folders->invisibleRootItem();
        parent = addFolder(parent, isRoot ? above : above.section(u'\\', -2, -2), above, open);
    }
    m_folders->setCurrentItem(parent);
    m_folders->expandAll();
    for (const QString &name : foldersInside(m_session.paths, folder))
        addFolder(parent, name, folder + name + u'\\', closed);
    m_folders->expandAll();
    m_folders->scrollToItem(parent);
}

void FolderLists::select(const QString &name)
{
    const QTreeWidgetItem *shown = m_folders->currentItem();
    for (int row = 0; row < shown->childCount(); ++row) {
        if (shown->child(row)->text(0) == name)
            return m_folders->setCurrentItem(shown->child(row));
    }
}
