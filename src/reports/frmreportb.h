#pragma once

#include "reports/eventreports.h"
#include "ui/navigator.h"

#include <QWidget>

#include <functional>

class NoteLine;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStringListModel;

// Reports of the event's records: seen in a list, printed, or saved for other programs.
class frmreportb : public QWidget
{
    Q_OBJECT

public:
    explicit frmreportb(const ScreenContext &context);

    void entered() { showReport(); }

private:
    void build();
    QGroupBox *buildKinds();
    QGroupBox *buildSorting();
    QGroupBox *buildTill();
    QLayout *buildButtons();
    void connectControls();

    ReportKind kind() const;
    void chooseRace(int race);
    void showReport();
    void showTill();
    void enterSoFar();
    void closeTill();
    bool enter(bool close);
    void showFontSize();
    void changeFont();
    void print();
    void saveAs(const QString &filter, const QString &suffix, const QString &label,
                const std::function<QByteArray()> &content);
    QByteArray pdf();

    ScreenContext m_context;
    Report m_report;
    ReportLines m_lines;

    QLineEdit *txtbanner;
    QButtonGroup *optreport;
    QGroupBox *fraround;
    QButtonGroup *optrace;
    QCheckBox *chkall;
    QGroupBox *frasort;
    QCheckBox *chkalp;
    QCheckBox *chknum;
    QCheckBox *chkasc;
    QCheckBox *chkdes;
    QGroupBox *fratill; // in the place of races and sorting while the till report is shown
    QLineEdit *txtfloat;
    QLineEdit *txtcounted;
    QLabel *lbldifference;
    QPushButton *cmdsofar;
    QPushButton *cmdclosetill;
    QLabel *lblhousepct;
    QLineEdit *txthousepct;
    QListView *lstreport;
    QStringListModel *m_model;
    QLabel *lblfont;
    QPushButton *cmdfont;
    QPushButton *cmdprint;
    QPushButton *cmdcsv;
    QPushButton *cmdpdf;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
