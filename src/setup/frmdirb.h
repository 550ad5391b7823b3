#pragma once

#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class FolderLists;
class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTreeWidget;

// Chooses the drive and folder of the event, and makes new folders.
class frmdirb : public QWidget
{
    Q_OBJECT

public:
    explicit frmdirb(const ScreenContext &context);

    void entered() { showFolders(); }

private:
    void build();
    void connectControls();
    void showFolders();
    void driveChosen(const QString &drive);
    void folderChosen(const QString &folder);
    void createNew();
    QLayout *lists();
    QLayout *newDirectory();

    ScreenContext m_context;
    FolderLists *m_folders;
    QListWidget *Drive1;
    QTreeWidget *Dir1;
    QLineEdit *txtdir;
    QLineEdit *txtdrivedir;
    QLabel *Text3;
    QPushButton *cmdnew;
    QPushButton *cmdreturn;
    QLabel *lblhint;
    NoteLine *lblnote;
};
