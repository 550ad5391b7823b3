#include "ui/textcell.h"

#include "ui/controls.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

TextCell::TextCell(QWidget *parent)
    : QWidget(parent)
{
}

void TextCell::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    update();
    QAccessibleEvent changed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&changed);
}

void TextCell::setAlignment(Qt::Alignment alignment)
{
    m_alignment = alignment;
    update();
}

QSize TextCell::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 8, fontMetrics().height() * 3 / 2};
}

QSize TextCell::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 2, fontMetrics().height() * 5 / 4};
}

QRect TextCell::inside() const
{
    const int gap = fontMetrics().height() / 5;
    return rect().adjusted(gap, 0, -gap, 0);
}

QString TextCell::shortened() const
{
    return fontMetrics().elidedText(m_text, Qt::ElideRight, inside().width());
}

bool TextCell::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && shortened() != m_text) {
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tipText(m_text), this);
        return true;
    }
    return QWidget::event(event);
}

void TextCell::drawText(QPainter &painter) const
{
    if (!m_text.isEmpty())
        style()->drawItemText(&painter, inside(), int(m_alignment | Qt::AlignVCenter), palette(),
                              isEnabled(), shortened(), QPalette::Text);
}

void TextCell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (palette().isBrushSet(QPalette::Active, QPalette::Base))
        painter.fillRect(rect(), palette().base());
    drawText(painter);
}

TextCell *makeTextCell(QWidget *parent, const QString &name, const QString &toolTip)
{
    return named(new TextCell(parent), name, toolTip);
}
