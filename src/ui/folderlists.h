#pragma once

#include <QObject>
#include <QString>

class QListWidget;
class QTreeWidget;
struct Session;

// The two lists of a screen that chooses a folder: the drives, and the folders on the way to the
// folder chosen with those inside it. A drive is chosen by a click or Enter, a folder by a double
// click or Enter.
class FolderLists : public QObject
{
    Q_OBJECT

public:
    FolderLists(const Session &session, const QString &drivesName, const QString &foldersName,
                QWidget *screen);

    QListWidget *drives() const { return m_drives; }
    QTreeWidget *folders() const { return m_folders; }

    // Lists the drives there are now, that of \a folder selected.
    void showDrives(const QString &folder);

    // Shows the way to \a folder and what is inside it. Throws FileError when that cannot be read;
    // the way is shown then all the same.
    void showFolders(const QString &folder);

    // Selects the folder \a name inside the one shown.
    void select(const QString &name);

signals:
    void driveChosen(const QString &drive);   // "C:"
    void folderChosen(const QString &folder); // "C:\Trelawn\"

private:
    const Session &m_session;
    QListWidget *m_drives;
    QTreeWidget *m_folders;
};
