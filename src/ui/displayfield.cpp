#include "ui/displayfield.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

DisplayField::DisplayField(QWidget *parent)
    : QLineEdit(parent)
{
    setReadOnly(true);
    setFocusPolicy(Qt::ClickFocus);
}

void DisplayField::paintEvent(QPaintEvent *event)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    constexpr int gap = 2; // that a field leaves beside its text
    const QRect inside = style()
                             ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                             .adjusted(gap, 0, -gap, 0);
    const int needed = fontMetrics().horizontalAdvance(text());
    if (needed <= inside.width() || hasFocus())
        return QLineEdit::paintEvent(event);

    constexpr double smallest = 0.5; // of the field's letters
    QFont smaller = font();
    smaller.setPointSizeF(font().pointSizeF() * std::max(smallest, 0.99 * inside.width() / needed));
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    painter.setFont(smaller);
    style()->drawItemText(
        &painter, inside, int(alignment() | Qt::AlignVCenter), palette(), isEnabled(),
        painter.fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()), QPalette::Text);
}
