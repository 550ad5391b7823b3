#pragma once

#include "payoff/winnerledger.h"
#include "ui/navigator.h"

#include <QWidget>

#include <optional>

class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class TicketGrid;

// The pay-winners screen: the finishers and payoffs of a race, its winning bettors, and paying them
// one by one.
class frmpaywinnersb : public QWidget
{
    Q_OBJECT

public:
    explicit frmpaywinnersb(const ScreenContext &context);

private:
    void makeFields();
    void makeButtons();
    void build();
    QWidget *buildFinish();
    QWidget *buildPayoffs();
    QWidget *buildWinners();
    QWidget *buildTotals();
    QLayout *buildGuidance();
    void connectControls();

    void selectRace(int race);
    void showRace();
    void showSelectedHorse();
    void enterFinisher(Finish finish);
    void setFinisher(Finish finish, int post);
    int finisher(Finish finish) const;

    void calculate(bool is532);
    bool completeFinishers();
    bool mayStartOver();
    void useTrackPayoffs();
    std::optional<float> trackPayoff(Ticket ticket) const;
    void showSettlement(const Settlement &settlement);
    void listWinners(const Settlement &settlement);
    void clearCalculation();

    void payWinner();
    void showPayment(const QString &name, const Payment &payment);
    void keepSlip(const QString &name, const Payment &payment);
    void showPaidTotals();

    void leave();
    bool printSlips();

    std::array<QLineEdit *, finishCount> finishFields() const;
    std::array<QLineEdit *, finishCount + 1> totalFields() const;
    void setTotalCaptions(const QString &heading, const std::array<QString, 4> &captions);

    ScreenContext m_context;

    WinnerLedger m_ledger;
    std::optional<TicketAmounts> m_track; // the track's payoffs per $1, while they are used
    std::optional<bool> m_printPayoffs;   // the answer, once it was asked in this visit

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
    QPushButton *cmdpayoff;
    QPushButton *cmd532;
    QPushButton *cmdtrack;
    QPushButton *cmdusing;
    QLabel *lblpays;
    TicketGrid *payoffs;
    QLabel *lbltotals;
    std::array<QLabel *, finishCount + 1> lbltotal;
    QLineEdit *txtwintotal;
    QLineEdit *txtplacetotal;
    QLineEdit *txtshowtotal;
    QLineEdit *txttotaltotal;

    QListWidget *lstwinners;
    QPushButton *cmdpay;
    QLabel *lblowed;
    QLineEdit *txtwinnername;
    QLineEdit *txtfactor;
    QLineEdit *txttotalr;

    QLineEdit *txtbet;
    QLineEdit *txtpaid;
    QLineEdit *txtrounded;
    QPushButton *cmdreturn;
    QStackedWidget *guidance; // before and after the calculation
    QLabel *lblnote;
};
