#include "ui/paidlist.h"

#include "ui/controls.h"

#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr int amountRole = Qt::UserRole + 1;
constexpr int paidRole = Qt::UserRole + 2;

const QString tick = u"\u2713"_s;

class LinePainter : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyleOptionViewItem line = option;
        initStyleOption(&line, index);
        const QString text = std::exchange(line.text, {});
        QStyle *style = line.widget ? line.widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &line, painter, line.widget);

        const QFontMetrics &metrics = line.fontMetrics;
        const int gap = metrics.horizontalAdvance(u' ');
        QRect place = line.rect.adjusted(gap, 0, -gap, 0);
        painter->save();
        painter->setFont(line.font);
        painter->setPen(line.palette.color(
            line.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
        if (!index.data(paidRole).toString().isEmpty())
            painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter, tick);
        place.setLeft(place.left() + metrics.horizontalAdvance(tick) + gap);
        const QString amount = index.data(amountRole).toString();
        painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter, amount);
        if (!amount.isEmpty())
            place.setRight(place.right() - metrics.horizontalAdvance(amount) - 2 * gap);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                          metrics.elidedText(text, Qt::ElideRight, place.width()));
        painter->restore();
    }
};

} // namespace

PaidList::PaidList(QWidget *parent)
    : QListWidget(parent)
{
    setItemDelegate(new LinePainter(this));
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QListWidgetItem *PaidList::makeLine(const QString &text, const QString &amount)
{
    auto *item = new QListWidgetItem(text);
    item->setData(amountRole, amount);
    mark(item, {});
    return item;
}

void PaidList::mark(QListWidgetItem *item, const QString &paid)
{
    const QString amount = item->data(amountRole).toString();
    QStringList spoken{item->text(), amount, paid};
    spoken.removeAll(QString());
    item->setData(paidRole, paid);
    item->setData(Qt::AccessibleTextRole, spoken.join(u", "_s));
    const QString tip = item->text() + u' ' + paid;
    item->setToolTip(paid.isEmpty() ? QString() : u"<span>"_s + tip.toHtmlEscaped() + u"</span>"_s);
}

bool PaidList::isMarked(const QListWidgetItem *item)
{
    return !item->data(paidRole).toString().isEmpty();
}
