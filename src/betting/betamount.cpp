#include "betting/betamount.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

QString clearAmountCaption()
{
    return u"Clear Bet Amount"_s;
}

void BetAmount::press(const QString &cellText)
{
    if (cellText == clearAmountCaption()) {
        m_value = 0;
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
