#include "ui/accessible.h"

#include "common/print/format.h"
#include "ui/clickcell.h"
#include "ui/controls.h"
#include "ui/undisturbed.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QRadioButton>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Nothing acts behind a box.
bool mayAct(const QWidget *widget)
{
    const QWidget *box = QApplication::activeModalWidget();
    return widget->isEnabled() && (!Undisturbed::isAny() || (box && box->isAncestorOf(widget)));
}

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
        if (mayAct(m_cell))
            emit m_cell->clicked();
    }

private:
    ClickCell *m_cell;
};

// What a grid says in a place that nobody presses.
class AccessibleText : public QAccessibleWidget
{
public:
    explicit AccessibleText(TextCell *cell)
        : QAccessibleWidget(cell, QAccessible::StaticText)
        , m_cell(cell)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        QStringList name{m_cell->accessibleName(), m_cell->text()};
        name.removeAll(QString());
        return name.join(u", "_s);
    }

private:
    TextCell *m_cell;
};

QAccessible::Role roleOf(const QAbstractButton *button)
{
    if (qobject_cast<const QRadioButton *>(button))
        return QAccessible::RadioButton;
    return button->isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

// A button that stays down would usually only look different when assistive technology presses it:
// nobody would be told of a click.
class AccessibleButton : public QAccessibleWidget
{
public:
    explicit AccessibleButton(QAbstractButton *button)
        : QAccessibleWidget(button, roleOf(button))
        , m_button(button)
    {
    }

    QAccessible::Role role() const override { return roleOf(m_button); }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name && m_button->accessibleName().isEmpty()
                   ? QString(m_button->text()).remove(u'&')
                   : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.checkable = m_button->isCheckable(); // which may have been said after the making
        state.checked = m_button->isChecked();
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names{pressAction()};
        if (m_button->isCheckable())
            names += toggleAction();
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString &name) override
    {
        if (name != pressAction() && name != toggleAction())
            return QAccessibleWidget::doAction(name);
        if (mayAct(m_button))
            m_button->click();
    }

private:
    QAbstractButton *m_button;
};

QAccessibleInterface *accessibleOf(const QString &, QObject *object)
{
    if (auto *cell = qobject_cast<ClickCell *>(object))
        return new AccessibleCell(cell);
    if (auto *cell = qobject_cast<TextCell *>(object))
        return new AccessibleText(cell);
    if (object->inherits("QPushButton") || object->inherits("QRadioButton")
        || object->inherits("QCheckBox"))
        return new AccessibleButton(static_cast<QAbstractButton *>(object));
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
