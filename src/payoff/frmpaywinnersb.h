#pragma once

#include "payoff/parts/paydesk.h"

#include <optional>

// The pay-winners screen: the finishers and payoffs of a race, its winning bettors, and paying them
// one by one.
class frmpaywinnersb : public PayDesk
{
    Q_OBJECT

public:
    explicit frmpaywinnersb(const ScreenContext &context);

    void entered() { showRace(); }

private:
    void connectControls();

    void selectRace(int race);
    void showRace();
    void showHistory();
    void fillAsBefore();
    void showSelectedHorse();
    void enterFinisher(Finish finish);
    QPushButton *firstFreeFinish();
    void setFinisher(Finish finish, int post);
    int finisher(Finish finish) const;

    void calculate(bool is532);
    bool completeFinishers();
    bool mayStartOver(int race);
    bool maySettle(const RaceResult &result);
    void settleAndShow(const RaceResult &result);
    bool hasEveryBet() override;
    void useTrackPayoffs();
    std::optional<float> trackPayoff(Combination combination) const;
    void showSettlement(const Settlement &settlement);
    void showRacePayoffs();
    void listWinners(const Settlement &settlement);
    void clearCalculation();

    void leave();

    std::optional<CashEntry> m_before; // how the race was settled before, when it was opened
    std::optional<CombinationAmounts> m_track; // the track's payoffs per $1, while they are used
    RaceResult m_result;                       // of the last calculation
    BetTable m_settledBets;                    // of the last calculation, or accepted since
};
