#pragma once

#include "multibets/multisettle.h"
#include "multibets/parts/multibetscreen.h"

class ClickCell;
class QLineEdit;
class QListWidget;
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
    void printList();

    ClickCell *txtpercent;
    QLineEdit *txtpool;
    QLineEdit *txthouse;
    QLineEdit *txttpay;
    QLineEdit *txttotal;
    QLineEdit *txtpay;
    QListWidget *lstbets;
    QPushButton *cmdenterwin;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
};
