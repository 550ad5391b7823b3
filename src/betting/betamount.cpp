#include "betting/betamount.h"

#include "common/print/format.h"

#include <QRegularExpression>

#include <cmath>

using namespace Qt::StringLiterals;

QString clearAmountCaption()
{
    return u"Clear Bet Amount"_s;
}

void BetAmount::set(float dollars)
{
    endTyping();
    m_value = dollars;
}

void BetAmount::step(float dollars)
{
    endTyping();
    m_value += m_minus ? -dollars : dollars;
}

void BetAmount::press(const QString &cellText)
{
    if (cellText == clearAmountCaption()) {
        set(0);
        m_minus = false;
        return;
    }
    step(float(numericValue(cellText)));
}

void BetAmount::flipSign()
{
    m_minus = !m_minus;
    m_value = m_value == 0 ? 0 : -m_value;
}

void BetAmount::setSign(bool minus)
{
    m_minus = minus;
    const float size = std::abs(m_value);
    m_value = minus && size != 0 ? -size : size;
}

void BetAmount::type(QChar key)
{
    static const QRegularExpression amount(u"^\\d{0,5}(\\.\\d{0,2})?$"_s);
    const QString typed = m_typed + key;
    if (!amount.match(typed).hasMatch())
        return;
    if (m_typed.isEmpty())
        m_beforeTyping = m_value;
    m_typed = typed;
    showTyped();
}

void BetAmount::takeBack()
{
    if (m_typed.isEmpty())
        return;
    m_typed.chop(1);
    if (m_typed.isEmpty()) {
        m_value = m_beforeTyping;
        setSign(m_minus);
    } else {
        showTyped();
    }
}

void BetAmount::showTyped()
{
    m_value = float(numericValue(m_typed));
    setSign(m_minus);
}
