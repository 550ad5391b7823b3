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

    // The presets, and the key that presses the one at \a index.
    static constexpr int presetCount = 6;
    static Qt::Key presetKey(int index) { return Qt::Key(Qt::Key_F2 + index); }

    // What a click on preset \a index (0 to 5) does.
    void pressPreset(int index);

    // What keys do: make sign and amount negative or positive, type the amount, take the last
    // typed key back.
    void setSign(bool minus);
    void type(QChar key);
    void takeBack();

    // The next key typed begins a new amount.
    void endTyping() { m_amount.endTyping(); }

private:
    void build(const QString &signToolTip);
    void showAmount(const char *pattern = "$#,##0.00");
    void flipSign();

    BetAmount m_amount;
    ClickCell *txtbetamt;
    ClickCell *txtplus;
};
