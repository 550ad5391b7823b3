#include "ui/clickcell.h"

#include "ui/controls.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

ClickCell::ClickCell(QWidget *parent)
    : TextCell(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void ClickCell::setMark(const Mark &mark)
{
    if (m_mark == mark)
        return;
    m_mark = mark;
    setTone(this, mark.tone);
    QFont font;
    if (mark.isBold)
        font.setBold(true);
    setFont(font);
    update();
}

void ClickCell::setHint(const QString &hint)
{
    m_hint = hint;
    update();
}

void ClickCell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), palette().base());
    QStyleOptionFrame frame;
    frame.initFrom(this);
    style()->drawPrimitive(QStyle::PE_FrameLineEdit, &frame, &painter, this);
    drawText(painter);
    const bool isMarked = m_mark.tone != Tone::None && m_mark.isFramed;
    painter.setPen(palette().color(QPalette::Text));
    if (!m_hint.isEmpty()) {
        QFont small = font();
        small.setPointSizeF(small.pointSizeF() * 0.7);
        small.setBold(false);
        painter.setFont(small);
        painter.drawText(inside(), Qt::AlignLeft | Qt::AlignTop, m_hint);
    }
    if (isMarked) {
        painter.setPen(QPen(toneColors(m_mark.tone).edge, 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        painter.setFont(font());
        painter.drawText(inside().adjusted(inside().left(), 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, m_mark.sign);
    }
    if (hasFocus()) {
        const int gap = isMarked ? 4 : 1; // beside the mark's own frame
        painter.setPen(QPen(palette().color(QPalette::Text), 2, Qt::DashLine));
        painter.drawRect(rect().adjusted(gap, gap, -gap, -gap));
    }
}

void ClickCell::mousePressEvent(QMouseEvent *event)
{
    setFocus(Qt::MouseFocusReason);
    if (event->button() == Qt::LeftButton && isEnabled())
        emit clicked();
}

void ClickCell::mouseDoubleClickEvent(QMouseEvent *event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && isEnabled())
        emit doubleClicked();
}

void ClickCell::keyPressEvent(QKeyEvent *event)
{
    // A key held down is one press.
    const bool space = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
    if (space && !event->isAutoRepeat())
        emit clicked();
    else if (!space)
        event->ignore();
}

ClickCell *makeCell(QWidget *parent, const QString &name, const QString &toolTip)
{
    return named(new ClickCell(parent), name, toolTip);
}
