#pragma once

#include "betting/betamount.h"

#include <QWidget>

class ClickCell;

// The amount controls of a bet sheet: the current amount and its sign, presets and steps.
class BetAmountPanel : public QWidget
{
    Q_OBJECT

public:
    explicit BetAmountPanel(const QString &signToolTip, QWidget *parent = nullptr);

    float amount() const { return m_amount.value(); }

    // What a click on preset \a index (0 to 5) does.
    void pressPreset(int index);

    // Clicks the sign if it does not show \a minus yet.
    void turnSign(bool minus);

private:
    void build(const QString &signToolTip);
    void showAmount(const char *pattern = "$#,##0.00");
    void flipSign();

    BetAmount m_amount;
    ClickCell *txtbetamt;
    ClickCell *txtplus;
};
