#pragma once

#include "repair/recordlist.h"
#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QAbstractButton;
class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;
class RecordListModel;

// The Fix Files screen: the record files of the event in a grid, bad records flagged, single
// records removed.
class frmfixb : public QWidget
{
    Q_OBJECT

public:
    explicit frmfixb(const ScreenContext &context);

private:
    void build();
    QWidget *buildButtons();
    QWidget *buildSorting();
    void connectControls();

    void display(Listing listing);
    void show(const RecordList &list);
    void emptyGrid();
    void sortGrid();
    void updateButtons();
    const RecordRow *selectedRecord() const;
    void removeSelected();
    void removeBettor();
    void putBack();
    void print();

    ScreenContext m_context;
    RecordListModel *m_model;
    QLineEdit *txtbanner;
    QButtonGroup *optflight;
    QLabel *lblheading;
    QTableView *grdfix;
    QPushButton *cmdupdate;
    QPushButton *cmdremmulti;
    QPushButton *cmdrbettor;
    QPushButton *cmdputback;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
    QCheckBox *chkasc;
    QCheckBox *chkdes;
    QCheckBox *chkalp;
    QCheckBox *chknum;
    NoteLine *lblnote;
};
