#include "ui/scaling.h"

#include "ui/controls.h"
#include "ui/fittedarea.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QSpacerItem>
#include <QVariant>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double drawnPoints = 10;
constexpr double leastFactor = 0.5;
constexpr double stepsOfFactor = 40; // of a factor of 1
constexpr char sizesProperty[] = "drawnSizes";
constexpr char lettersProperty[] = "drawnLetters";

// Sizes of one object as they were drawn, and as they were set last. A size that is another by now
// was changed by its screen, at the factor of that time.
struct DrawnSizes
{
    QList<double> drawn;
    QList<double> set;

    void scale(const QList<double> &now, double from, double to)
    {
        const bool known = set.size() == now.size();
        if (!known)
            drawn = set = now;
        for (qsizetype i = 0; i < now.size(); ++i) {
            if (!known || std::abs(now[i] - set[i]) > 0.01)
                drawn[i] = now[i] / from;
            set[i] = drawn[i] * to;
        }
    }
};

class Rescaling
{
public:
    Rescaling(double from, double to)
        : m_from(from)
        , m_to(to)
    {
    }

    void run(QWidget *root)
    {
        collect(root);
        QList<double> letters;
        for (QWidget *widget : m_widgets)
            letters.append(ownLetters(widget));
        root->setFont(houseFont(m_to));
        for (qsizetype i = 0; i < m_widgets.size(); ++i)
            scaleWidget(m_widgets[i], letters[i]);
        // All that layouts remember of their widgets' sizes is out of date.
        for (QWidget *widget : m_widgets) {
            if (widget->layout()) {
                widget->layout()->invalidate();
                widget->updateGeometry();
            }
        }
        if (root->layout())
            root->layout()->invalidate();
    }

private:
    void collect(QWidget *parent)
    {
        if (parent->layout())
            scaleLayout(parent->layout());
        for (QObject *child : parent->children()) {
            auto *widget = qobject_cast<QWidget *>(child);
            if (!widget || widget->isWindow())
                continue;
            m_widgets.append(widget);
            collect(widget);
        }
    }

    QList<int> scaled(QObject *object, const QList<int> &now)
    {
        auto sizes = object->property(sizesProperty).value<DrawnSizes>();
        sizes.scale(QList<double>(now.begin(), now.end()), m_from, m_to);
        QList<int> to;
        for (double &size : sizes.set) {
            size = std::round(size);
            to.append(int(size));
        }
        object->setProperty(sizesProperty, QVariant::fromValue(sizes));
        return to;
    }

    // The points of letters that a widget has of its own, at the factor to come; 0 when it has
    // those of its parent.
    double ownLetters(QWidget *widget) const
    {
        if (!widget->testAttribute(Qt::WA_SetFont))
            return 0;
        auto sizes = widget->property(lettersProperty).value<DrawnSizes>();
        sizes.scale({widget->font().pointSizeF()}, m_from, m_to);
        widget->setProperty(lettersProperty, QVariant::fromValue(sizes));
        return sizes.set.first();
    }

    void scaleWidget(QWidget *widget, double letters)
    {
        if (letters > 0) {
            QFont font = widget->font();
            font.setPointSizeF(letters);
            widget->setFont(font);
        }
        scaleLimits(widget);
        if (auto *header = qobject_cast<QHeaderView *>(widget))
            scaleHeader(header);
    }

    void scaleLimits(QWidget *widget)
    {
        const QSize least = widget->minimumSize();
        const QSize most = widget->maximumSize();
        if (least.isNull() && most == QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX))
            return;
        const auto limit = [](int size) { return size == QWIDGETSIZE_MAX ? 0 : size; };
        const QList<int> to = scaled(
            widget, {least.width(), least.height(), limit(most.width()), limit(most.height())});
        const auto noLimit = [](int size) { return size == 0 ? QWIDGETSIZE_MAX : size; };
        widget->setMinimumSize(to[0], to[1]);
        widget->setMaximumSize(most.width() == 0 ? 0 : noLimit(to[2]),
                               most.height() == 0 ? 0 : noLimit(to[3]));
        refitCharacters(widget);
    }

    void scaleHeader(QHeaderView *header)
    {
        QList<int> now{header->defaultSectionSize(), header->minimumSectionSize()};
        const bool hasOwnSizes = header->orientation() == Qt::Horizontal;
        for (int i = 0; hasOwnSizes && i < header->count(); ++i)
            now.append(header->sectionSize(i));
        const QList<int> to = scaled(header, now);
        header->setMinimumSectionSize(to[1]);
        header->setDefaultSectionSize(to[0]);
        for (int i = 0; hasOwnSizes && i < header->count(); ++i)
            header->resizeSection(i, to[i + 2]);
    }

    // Margins and gaps, whether the screen gave them or the style.
    void scaleLayout(QLayout *layout)
    {
        const QMargins margins = layout->contentsMargins();
        QList<int> now{margins.left(), margins.top(), margins.right(), margins.bottom()};
        auto *grid = qobject_cast<QGridLayout *>(layout);
        if (grid) {
            now << grid->horizontalSpacing() << grid->verticalSpacing();
            for (int column = 0; column < grid->columnCount(); ++column)
                now << grid->columnMinimumWidth(column);
            for (int row = 0; row < grid->rowCount(); ++row)
                now << grid->rowMinimumHeight(row);
        } else {
            now << layout->spacing();
        }
        for (int i = 0; i < layout->count(); ++i) {
            if (QSpacerItem *spacer = layout->itemAt(i)->spacerItem())
                now << spacer->sizeHint().width() << spacer->sizeHint().height();
        }
        const QList<int> to = scaled(layout, now);
        auto next = to.begin();
        const int left = *next++;
        const int top = *next++;
        const int right = *next++;
        layout->setContentsMargins(left, top, right, *next++);
        if (grid) {
            grid->setHorizontalSpacing(*next++);
            grid->setVerticalSpacing(*next++);
            for (int column = 0, columns = grid->columnCount(); column < columns; ++column)
                grid->setColumnMinimumWidth(column, *next++);
            for (int row = 0, rows = grid->rowCount(); row < rows; ++row)
                grid->setRowMinimumHeight(row, *next++);
        } else {
            layout->setSpacing(*next++);
        }
        for (int i = 0; i < layout->count(); ++i) {
            QLayoutItem *item = layout->itemAt(i);
            if (QSpacerItem *spacer = item->spacerItem()) {
                const int width = *next++;
                const QSizePolicy policy = spacer->sizePolicy();
                spacer->changeSize(width, *next++, policy.horizontalPolicy(),
                                   policy.verticalPolicy());
            } else if (item->layout()) {
                scaleLayout(item->layout());
            }
        }
        layout->invalidate();
    }

    double m_from;
    double m_to;
    QList<QWidget *> m_widgets;
};

void layOut(QWidget *widget)
{
    if (widget->layout())
        widget->layout()->activate();
    for (QObject *child : widget->children()) {
        auto *inside = qobject_cast<QWidget *>(child);
        if (inside && !inside->isWindow())
            layOut(inside);
    }
}

} // namespace

Q_DECLARE_METATYPE(DrawnSizes)

QFont houseFont(double factor)
{
    QFont font(u"Liberation Sans"_s);
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(drawnPoints * factor);
    return font;
}

double letterFactor(const QWidget *widget)
{
    while (widget && !widget->isWindow() && !qobject_cast<const FittedArea *>(widget))
        widget = widget->parentWidget();
    return widget ? widget->font().pointSizeF() / drawnPoints : 1;
}

Scaling::Scaling(QWidget *root, QWidget *content)
    : m_root(root)
    , m_content(content)
{
}

void Scaling::apply(double factor)
{
    if (factor == m_factor)
        return;
    Rescaling(m_factor, factor).run(m_root);
    m_factor = factor;
}

QSize Scaling::needed(const QSize &room) const
{
    const QLayout *layout = m_content->layout();
    if (!layout)
        return m_content->minimumSizeHint().expandedTo({1, 1});
    QSize needed = layout->totalMinimumSize();
    if (layout->hasHeightForWidth()) {
        const int width = std::max(room.width(), needed.width());
        needed.setHeight(std::max(needed.height(), layout->totalMinimumHeightForWidth(width)));
    }
    return needed;
}

double Scaling::possible(const QSize &room) const
{
    const QSize need = needed(room);
    return m_factor
           * std::min(double(room.width()) / need.width(), double(room.height()) / need.height());
}

double Scaling::stepped(double factor)
{
    return std::max(std::floor(factor * stepsOfFactor + 0.001) / stepsOfFactor, leastFactor);
}

void Scaling::fit(const QSize &room, double wish)
{
    const double before = m_factor;
    // The estimate of what fits can be a step too low: for so little the letters are left alone.
    const double most = possible(room);
    const double estimate = stepped(std::min(wish, most));
    const bool isEnough = most < wish && m_factor < wish && estimate >= m_factor
                          && estimate - m_factor < 1.5 / stepsOfFactor;
    if (!isEnough)
        apply(estimate);
    while (m_factor > leastFactor) {
        const double fitting = possible(room);
        if (fitting >= m_factor)
            break;
        apply(stepped(std::min(fitting, m_factor - 1 / stepsOfFactor)));
    }
    if (m_factor != before)
        layOut(m_content);
}
