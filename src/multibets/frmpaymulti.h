#pragma once

#include "multibets/multisettle.h"
#include "multibets/parts/multibetscreen.h"

class ClickCell;
class PaidList;
class QLineEdit;
class QPushButton;

// Settles the multibets of one type of one race: the pool, the house cut, the winning tickets or
// the refunds.
class frmpaymulti : public MultibetScreen
{
    Q_OBJECT

public:
    explicit frmpaymulti(const ScreenContext &context);

    void entered();

private:
    void build();
    QWidget *buildTypeAndGrid();
    QWidget *buildFigures();
    QWidget *buildWinners();
    void connectControls();
    void fill();

    void chooseRace(int race);
    void chooseType(const QString &code);
    void setHousePercent(int percent);
    void findWinners();
    void clearOutputs();
    void showSettlement(const MultibetSettlement &settled);
    QString missingWinners(const MultibetType &type) const;
    int winnerOf(int line) const;
    void markPaid();
    void paySelected();
    void printList();

    QList<MultibetPayment> m_payments; // what the last lines of lstbets stand for

    ClickCell *txtpercent;
    QLineEdit *txtpool;
    QLineEdit *txthouse;
    QLineEdit *txttpay;
    QLineEdit *txttotal;
    QLineEdit *txtpay;
    PaidList *lstbets;
    QPushButton *cmdpaid;
    QPushButton *cmdenterwin;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
};
