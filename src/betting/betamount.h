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
    void set(float dollars);

    // Adds, or subtracts while the sign shows "-".
    void step(float dollars);

    // A press on an add-amount cell: steps by the number it shows; one that shows "Clear Bet
    // Amount" sets the amount to 0 and the sign to "+".
    void press(const QString &cellText);

    // Turns the sign and negates the amount.
    void flipSign();

    // Makes sign and amount both negative or both positive.
    void setSign(bool minus);

    // Types the amount: a digit or the decimal point. The first one after the end of typing begins
    // a new amount; one that would make more than 99999.99, or cents of cents, is not taken.
    void type(QChar key);

    // Takes the last typed key back; without any left the amount is the one before typing.
    void takeBack();

    void endTyping() { m_typed.clear(); }

private:
    void showTyped();

    QString m_typed;
    float m_beforeTyping = 0;
    float m_value = 1;
    bool m_minus = false;
};
