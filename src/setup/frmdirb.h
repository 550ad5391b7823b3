#pragma once

#include "ui/navigator.h"

#include <QWidget>

class QLabel;
class QLayout;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPlainTextEdit;
class QPushButton;

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
    void folderChosen(const QListWidgetItem *item);
    void createNew();
    QLayout *leftSide();
    QLayout *rightSide();

    ScreenContext m_context;
    QListWidget *Drive1;
    QListWidget *Dir1;
    QLineEdit *txtdir;
    QLineEdit *txtdrivedir;
    QPlainTextEdit *Text3;
    QPushButton *cmdnew;
    QPushButton *cmdreturn;
    QLabel *lblhint;
    QLabel *lblnote;
};
