#pragma once

#include "payoff/parts/calculatorwindow.h"
#include "payoff/parts/payform.h"
#include "payoff/winnerledger.h"
#include "ui/navigator.h"

#include <optional>

// The pay-winners screen: the finishers and payoffs of a race, its winning bettors, and paying them
// one by one.
class frmpaywinnersb : public PayForm
{
    Q_OBJECT

public:
    explicit frmpaywinnersb(const ScreenContext &context);

    void entered() { showRace(); }

private:
    void connectControls();

    void selectRace(int race);
    void showRace();
    void showSelectedHorse();
    void enterFinisher(Finish finish);
    void setFinisher(Finish finish, int post);
    int finisher(Finish finish) const;

    void calculate(bool is532);
    bool completeFinishers();
    bool mayStartOver(int race);
    void settleAndShow(const RaceResult &result);
    bool hasEveryBet();
    void useTrackPayoffs();
    std::optional<float> trackPayoff(Combination combination) const;
    void showSettlement(const Settlement &settlement);
    void listWinners(const Settlement &settlement);
    void clearCalculation();

    void payWinner();
    void showPayment(const QString &name, const Payment &payment);
    void keepSlip(const QString &name, const Payment &payment);
    void showPaidTotals();

    void leave();
    QString printSlips(); // returns a note

    ScreenContext m_context;

    WinnerLedger m_ledger;
    std::optional<CombinationAmounts> m_track; // the track's payoffs per $1, while they are used
    std::optional<bool> m_printPayoffs;        // the answer, once it was asked in this visit
    RaceResult m_result;                       // of the last calculation
    BetTable m_settledBets;                    // of the last calculation, or accepted since
    CalculatorWindow m_calculator;
};
