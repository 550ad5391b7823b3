#include "ui/fittingfield.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

void FittingField::paintEvent(QPaintEvent *event)
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    constexpr int gap = 2; // that a field leaves beside its text
    const QRect inside = style()
                             ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                             .adjusted(gap, 0, -gap, 0);
    if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= inside.width())
        return QLineEdit::paintEvent(event);

    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    QFont smaller = font();
    const double smallest = smaller.pointSizeF() / 2;
    do {
        smaller.setPointSizeF(smaller.pointSizeF() * 0.97);
        painter.setFont(smaller);
    } while (smaller.pointSizeF() > smallest
             && painter.fontMetrics().horizontalAdvance(text()) > inside.width());
    style()->drawItemText(
        &painter, inside, int(alignment() | Qt::AlignVCenter), palette(), isEnabled(),
        painter.fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()), QPalette::Text);
}
