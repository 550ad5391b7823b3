#include "ui/listkeys.h"

#include "ui/undisturbed.h"

#include <QButtonGroup>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>

namespace {

class EnterPress : public QObject
{
public:
    EnterPress(QListWidget *list, const std::function<QPushButton *()> &button)
        : QObject(list)
        , m_button(button)
    {
        list->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        const auto modifiers = key->modifiers() & ~Qt::KeypadModifier;
        if (!isEnter || modifiers != Qt::NoModifier)
            return false;
        QPushButton *button = key->isAutoRepeat() ? nullptr : m_button();
        if (button)
            button->click();
        return true;
    }

private:
    std::function<QPushButton *()> m_button;
};

} // namespace

void pressOnEnter(QListWidget *list, const std::function<QPushButton *()> &button)
{
    new EnterPress(list, button);
}

void keepOption(QButtonGroup *group, int id)
{
    QAbstractButton *option = group->button(id);
    option->setChecked(true);
    // An arrow key gives the focus to the option that it chose when all else is done.
    Undisturbed::afterwards(option, [option] { option->setFocus(); });
}
