#pragma once

#include "transfer/importevent.h"
#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class FolderLists;
class QCheckBox;
class QGroupBox;
class QLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTableWidget;
class QTreeWidget;

// Imports horses, bettors and bets of another computer from any folder.
class frmimportb : public QWidget
{
    Q_OBJECT

public:
    explicit frmimportb(const ScreenContext &context);

    void entered() { showFolder(m_folder); }

private:
    void build();
    QLayout *buildFolder();
    QLayout *buildChoice();
    QWidget *buildResult();
    void connectControls();
    void showFolder(const QString &folder);
    ImportChoice choice() const;
    void importFiles();
    bool carryOut(const ImportChoice &choice, ImportPlan &plan);
    bool askAboutBetsOnFile(ImportPlan &plan);
    void showResult(const ImportPlan &plan);

    ScreenContext m_context;
    QString m_folder; // backslash form, ends in a backslash
    FolderLists *m_folders;
    QListWidget *lstdrive;
    QTreeWidget *lstfolder;
    QListWidget *lstfile;
    QLineEdit *txtfolder;
    QPushButton *cmdrefresh;
    QCheckBox *chkhorses;
    QCheckBox *chkbettors;
    QCheckBox *chkbets;
    QPushButton *cmdimport;
    QPushButton *cmdreturn;
    QGroupBox *fraresult;
    QTableWidget *grdimport;
    QListWidget *lstnames;
    NoteLine *lblnote;
};
