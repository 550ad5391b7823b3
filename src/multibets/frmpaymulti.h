#pragma once

#include "multibets/multisettle.h"
#include "ui/navigator.h"

#include <QWidget>

class ClickCell;
class PostGrid;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class TypeButtons;
struct MultibetType;

// Settles the multibets of one type of one race: the pool, the house cut, the winning tickets or
// the refunds.
class frmpaymulti : public QWidget
{
    Q_OBJECT

public:
    explicit frmpaymulti(const ScreenContext &context);

private:
    void build();
    QWidget *buildTypeAndGrid();
    QWidget *buildFigures();
    QWidget *buildWinners();
    void connectControls();
    void fill();

    void chooseRace(int race);
    void chooseType(const QString &code);
    void showLegs();
    void setHousePercent(int percent);
    void findWinners();
    void clearOutputs();
    void showSettlement(const MultibetSettlement &settled);
    QString missingWinners(const MultibetType &type) const;
    int winnerOf(int line) const;
    void printList();

    ScreenContext m_context;
    QLineEdit *txtbanner;
    QButtonGroup *m_races;
    TypeButtons *m_types;
    PostGrid *m_grid;
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
    QLabel *lblnote;
};
