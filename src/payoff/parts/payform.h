#pragma once

#include "common/event/racepayoffs.h"

#include <QWidget>

#include <array>

class NoteLine;
class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class CombinationGrid;
class PaidList;

// The form of the pay-winners screen: its controls, their places and what they call.
class PayForm : public QWidget
{
    Q_OBJECT

protected:
    PayForm();

    // The win, place and show horse's post; the amounts of the three horses and in all.
    std::array<QLineEdit *, finishCount> finishFields() const;
    std::array<QLineEdit *, finishCount + 1> totalFields() const;
    void setTotalCaptions(const QString &heading, const std::array<QString, 4> &captions);

    QLineEdit *txtbanner;
    QButtonGroup *optrace;
    QLineEdit *txthorse;
    QListWidget *lsthorses;
    QPushButton *cmdwinner;
    QPushButton *cmdplace;
    QPushButton *cmdshow;
    QLineEdit *txtwinhorse;
    QLineEdit *txtplacehorse;
    QLineEdit *txtshowhorse;
    std::array<QLabel *, finishCount> lblfinish;

    QLineEdit *txthousepct;
    QLineEdit *txthousetot;
    QPushButton *cmdsame; // visible for a race that was settled before
    QPushButton *cmdpayoff;
    QPushButton *cmd532;
    QPushButton *cmdtrack;
    QPushButton *cmdusing;
    QLabel *lblpays;
    CombinationGrid *payoffs;
    QLabel *lblrace2; // the race's $2 payoffs, also while the fields show a bettor's amounts
    QLabel *lbltotals;
    std::array<QLabel *, finishCount + 1> lbltotal;
    QLineEdit *txtwintotal;
    QLineEdit *txtplacetotal;
    QLineEdit *txtshowtotal;
    QLineEdit *txttotaltotal;

    PaidList *lstwinners;
    QPushButton *cmdpay;
    QPushButton *cmdundo;
    QLabel *lblowed;
    QLineEdit *txtwinnername;
    QLineEdit *txtfactor;
    QLabel *lbltotalr; // what txttotalr shows: PAY or PAID
    QLineEdit *txttotalr;

    QLineEdit *txtbet;
    QLineEdit *txtpaid;
    QLineEdit *txtrounded;
    QPushButton *cmdreturn;
    QStackedWidget *guidance; // before and after the calculation
    QLabel *lblhouse;         // how far $BET and $PAID may differ
    NoteLine *lblnote;

private:
    void makeFields();
    void makeButtons();
    void build();
    QWidget *buildFinish();
    QWidget *buildPayoffs();
    QWidget *buildWinners();
    QWidget *buildTotals();
    QLayout *buildGuidance();
};
