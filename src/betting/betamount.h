#pragma once

#include <QString>

QString clearAmountCaption(); // "Clear Bet Amount"

// The current bet amount of a bet sheet, in dollars, and its sign switch.
class BetAmount
{
public:
    float value() const { return m_value; }
    bool isMinus() const { return m_minus; }
    QString sign() const { return m_minus ? QStringLiteral("-") : QStringLiteral("+"); }

    // A preset sets the amount, whatever the sign shows.
    void set(float dollars) { m_value = dollars; }

    // Adds, or subtracts while the sign shows "-".
    void step(float dollars) { m_value += m_minus ? -dollars : dollars; }

    // A press on an add-amount cell: steps by the number it shows; one that shows "Clear Bet
    // Amount" sets the amount to 0 and the sign to "+".
    void press(const QString &cellText);

    // Turns the sign and negates the amount.
    void flipSign();

private:
    float m_value = 1;
    bool m_minus = false;
};
