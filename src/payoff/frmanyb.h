#pragma once

#include "common/event/racepayoffs.h"
#include "payoff/anybettor.h"
#include "ui/navigator.h"

#include <QWidget>

#include <array>

class NoteLine;
class QGridLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;

// The calculator beside the pay-winners screen: what the paper slips bet under AnyBettor pay.
// Nothing of it goes into the race's files or totals; the cash journal says what was paid.
class frmanyb : public QWidget
{
    Q_OBJECT

public:
    explicit frmanyb(const ScreenContext &context);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void build();
    QGroupBox *buildSlip();
    QGroupBox *buildBettor();
    QGroupBox *buildGrandTotals();
    void connectControls();

    void clearAll();
    void showRace();
    void clearSlip();
    void showTotals();
    void calculate();
    void addSlip();
    void payBettor();

    std::array<QLineEdit *, combinationCount> amountFields() const;

    ScreenContext m_context;
    AnyBettorTotals m_totals;

    QLineEdit *txtbanner;
    QLineEdit *txtwinnername;
    QLineEdit *txtwinhorse;
    QLineEdit *txtplacehorse;
    QLineEdit *txtshowhorse;
    QLineEdit *txtwinwin;
    QLineEdit *txtwinplace;
    QLineEdit *txtwinshow;
    QLineEdit *txtplaceplace;
    QLineEdit *txtplaceshow;
    QLineEdit *txtshowshow;
    QLineEdit *txtwintotal;
    QLineEdit *txtplacetotal;
    QLineEdit *txtshowtotal;
    QLineEdit *txttotaltotal;
    QLineEdit *txttotalbet;
    QLineEdit *txtfactor;
    QLineEdit *txttotaldue;
    QLineEdit *txttotalpaid;
    QLineEdit *txtpaidr;
    QPushButton *cmdcalc;
    QPushButton *cmdadd;
    QPushButton *cmdpay;
    QPushButton *cmdclear;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
