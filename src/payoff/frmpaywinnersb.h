#pragma once

#include "common/slip.h"
#include "payoff/settle.h"
#include "payoff/winnerslips.h"
#include "ui/navigator.h"

#include <QMap>
#include <QWidget>

class QBoxLayout;
class QButtonGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;

// The pay-winners screen: the finishers and payoffs of a race, its winning bettors, and paying them
// one by one.
class frmpaywinnersb : public QWidget
{
    Q_OBJECT

public:
    explicit frmpaywinnersb(const ScreenContext &context);

private:
    void build();
    QWidget *buildFinish();
    QWidget *buildPayoffs();
    QWidget *buildWinners();
    QWidget *buildTotals();
    QLayout *buildGuidance();
    void connectControls();

    void selectRace(int race);
    void showRace();
    void enterFinisher(Finish finish);
    void setFinisher(Finish finish, int post);
    int finisher(Finish finish) const;

    void calculate(bool is532);
    bool completeFinishers();
    bool mayStartOver();
    void useTrackPayoffs();
    bool isUntouched(Ticket ticket) const;
    std::optional<float> trackPayoff(Ticket ticket) const;
    void showSettlement(const Settlement &settlement);
    void listWinners(const Settlement &settlement);
    void clearCalculation();

    void payWinner();
    void showPayment(const QString &name, const Payment &payment);
    void keepSlip(const QString &name, const Payment &payment);
    void showPaidTotals();

    void noteUnpaid();
    void leave();
    bool printSlips();

    std::array<QLineEdit *, ticketCount> payoffFields() const;
    std::array<QLineEdit *, finishCount> finishFields() const;
    std::array<QLineEdit *, finishCount + 1> totalFields() const;
    void showPayoffField(Ticket ticket, const QString &text);
    void setTotalCaptions(const QString &heading, const std::array<QString, 4> &captions);

    ScreenContext m_context;

    // Of the calculation that stands.
    std::vector<WinningBettor> m_winners;
    std::array<QString, ticketCount> m_shown; // what the program last put into the payoff fields
    float m_owed = 0;
    float m_owedRounded = 0;
    float m_paid = 0;
    float m_paidRounded = 0;
    int m_paidCount = 0;
    QList<SlipLine> m_raceSlips; // of the bettors paid from it

    std::optional<TicketAmounts> m_track; // the track's payoffs per $1, while they are used

    // Of this visit of the screen.
    std::optional<bool> m_printPayoffs; // the answer, once it was asked
    QList<SlipLine> m_slips;            // of races paid before
    QMap<int, QString> m_unpaid;        // by race: who was left unpaid

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
    QLineEdit *txtwinwin;
    QLineEdit *txtwinplace;
    QLineEdit *txtwinshow;
    QLineEdit *txtplaceplace;
    QLineEdit *txtplaceshow;
    QLineEdit *txtshowshow;
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
