#include "ui/accessible.h"

#include "common/print/format.h"
#include "ui/controls.h"
#include "ui/undisturbed.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

class AccessibleCell : public QAccessibleWidget
{
public:
    explicit AccessibleCell(ClickCell *cell)
        : QAccessibleWidget(cell, QAccessible::Button)
        , m_cell(cell)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && m_cell->accessibleName().isEmpty()
                   ? m_cell->text()
                   : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override
    {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name != pressAction())
            return QAccessibleWidget::doAction(name);
        if (m_cell->isEnabled() && !Undisturbed::isAny())
            emit m_cell->clicked();
    }

private:
    ClickCell *m_cell;
};

QAccessibleInterface *accessibleOf(const QString &, QObject *object)
{
    if (auto *cell = qobject_cast<ClickCell *>(object))
        return new AccessibleCell(cell);
    if (auto *label = qobject_cast<QLabel *>(object); label && label->objectName() == "lblnote"_L1)
        return new QAccessibleWidget(label, QAccessible::AlertMessage);
    return nullptr;
}

} // namespace

void installAccessibility()
{
    QAccessible::installFactory(&accessibleOf);
}

void announce(QLabel *label)
{
    label->setAccessibleName(label->text());
    QAccessibleEvent alert(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

QString spokenDollars(double dollars)
{
    const QString amount = plainNumber(float(std::abs(dollars)));
    return (dollars < 0 ? u"minus "_s : QString()) + amount
           + (amount == "1"_L1 ? " dollar"_L1 : " dollars"_L1);
}
