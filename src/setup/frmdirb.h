#pragma once

#include "ui/navigator.h"

#include <QWidget>

class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// Chooses the drive and folder of the event, and makes new folders.
class frmdirb : public QWidget
{
    Q_OBJECT

public:
    explicit frmdirb(const ScreenContext &context);

private:
    void build();
    void connectControls();
    void showDrives();
    void showFolders();
    void driveChosen(const QListWidgetItem *item);
    void folderChosen(const QTreeWidgetItem *item);
    void createNew();
    QLayout *lists();
    QLayout *newDirectory();

    ScreenContext m_context;
    QListWidget *Drive1;
    QTreeWidget *Dir1;
    QLineEdit *txtdir;
    QLineEdit *txtdrivedir;
    QLabel *Text3;
    QPushButton *cmdnew;
    QPushButton *cmdreturn;
    QLabel *lblhint;
    QLabel *lblnote;
};
