#include "ui/textlists.h"

#include "ui/controls.h"

#include <QListWidget>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class UniformLines : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void setLongest(const QString &line) { m_longest = line; }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const int margin = option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin,
                                                               &option, option.widget)
                           + 1;
        return {option.fontMetrics.horizontalAdvance(m_longest) + 2 * margin,
                QStyledItemDelegate::sizeHint(option, index).height()};
    }

private:
    QString m_longest;
};

} // namespace

QFont fixedPitchFont(double pointSize)
{
    QFont font(u"Courier New"_s);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    if (pointSize > 0)
        font.setPointSizeF(pointSize);
    return font;
}

void setUniformLines(QListView *list, const QStringList &lines)
{
    const auto shorter = [](const QString &one, const QString &other) {
        return one.size() < other.size();
    };
    const auto longest = std::ranges::max_element(lines, shorter);
    auto *delegate = dynamic_cast<UniformLines *>(list->itemDelegate());
    if (!delegate) {
        delegate = new UniformLines(list);
        list->setItemDelegate(delegate);
        list->setUniformItemSizes(true);
    }
    delegate->setLongest(longest == lines.end() ? QString() : *longest);
}

QListWidget *makeList(QWidget *parent, const QString &name, const QString &accessibleName,
                      const QString &toolTip)
{
    auto *list = named(new QListWidget(parent), name, toolTip);
    list->setAccessibleName(accessibleName);
    list->setFont(fixedPitchFont());
    list->setUniformItemSizes(true);
    return list;
}
