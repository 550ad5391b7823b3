#include "ui/undisturbed.h"

#include <QAbstractButton>
#include <QApplication>
#include <QButtonGroup>
#include <QEvent>
#include <QList>
#include <QSignalBlocker>
#include <QWindow>

namespace {

QList<Undisturbed *> openOnes; // boxes and waits, the one that is asked last

// What a widget belongs to: the list of a field's completions stands alone, and serves the field.
const QObject *ownerOf(const QObject *object)
{
    const auto *widget = qobject_cast<const QWidget *>(object);
    return widget && !widget->parent() ? widget->focusProxy() : object->parent();
}

bool isInside(const QObject *object, const QWidget *box)
{
    while (object && object != box)
        object = ownerOf(object);
    return object && box;
}

// Whether something is done by the event, or will be by what it begins.
bool acts(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

// Ends the press that animateClick put off: the button's own timer ends it, unheard and without
// effect on what is checked.
void endPress(QAbstractButton *button, QEvent *timer)
{
    QButtonGroup *group = button->group();
    QAbstractButton *checked = group ? group->checkedButton() : nullptr;
    const bool wasChecked = button->isChecked();
    const QSignalBlocker quietButton(button);
    const QSignalBlocker quietGroup(group);
    static_cast<QObject *>(button)->event(timer);
    if (checked)
        checked->setChecked(true);
    else
        button->setChecked(wasChecked);
}

} // namespace

Undisturbed::Undisturbed(const QWidget *box)
    : m_box(box)
{
    openOnes.append(this);
    QCoreApplication::instance()->installEventFilter(this);
}

Undisturbed::~Undisturbed()
{
    openOnes.removeOne(this);
}

void Undisturbed::afterwards(QObject *context, const std::function<void()> &work)
{
    const auto unlessAsked = [context, work] {
        if (!isAny())
            return work();
        QObject::connect(openOnes.last(), &QObject::destroyed, context,
                         [context, work] { afterwards(context, work); });
    };
    QMetaObject::invokeMethod(context, unlessAsked, Qt::QueuedConnection);
}

bool Undisturbed::isAny()
{
    return !openOnes.isEmpty();
}

bool Undisturbed::eventFilter(QObject *object, QEvent *event)
{
    if (this != openOnes.last()) // the box on top decides for all
        return false;
    if (event->type() == QEvent::Timer) {
        auto *button = qobject_cast<QAbstractButton *>(object);
        if (!button || isInside(button, m_box))
            return false;
        endPress(button, event);
        return true;
    }
    // The window of a widget only passes on what reaches the widget.
    if (!acts(event->type()) || qobject_cast<QWindow *>(object) || isInside(object, m_box))
        return false;
    event->ignore();
    return true;
}
