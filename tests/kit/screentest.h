#pragma once

#include "kit/testkit.h"

// A test of a screen: an event, and what an operator does on the screen that is open. When a test
// function ends, its event does, and the boxes that were expected are checked.
class ScreenTest : public QObject
{
    Q_OBJECT

protected:
    // A new event; the one before ends.
    void begin(bool withFiles = true)
    {
        event.reset();
        event = std::make_unique<TestEvent>(withFiles);
    }

    void open(const QString &name) { event->open(name); }
    QWidget *screen() { return event->current(); }

    // Controls of the open screen by object name: a button, a field, a label, a list.
    void press(const QString &name) { clickButton(screen(), name); }
    void type(const QString &name, const QString &typed) { typeInto(screen(), name, typed); }
    void select(const QString &name, const QString &item) { selectInList(screen(), name, item); }
    QString text(const QString &name) { return fieldText(screen(), name); }
    QString label(const QString &name) { return labelText(screen(), name); }
    QStringList list(const QString &name) { return listTexts(screen(), name); }

    void expect(const QString &box, const QString &title = u"TRELAWN"_s, Answer answer = Answer::Ok)
    {
        event->boxes.expect(box, title, answer);
    }
    void expectInput(const QString &box, const QString &title, const QString &typed)
    {
        event->boxes.expectInput(box, title, typed);
    }

    // Presses a button and answers the last box that comes of it.
    void press(const QString &name, const QString &box, const QString &title = u"TRELAWN"_s,
               Answer answer = Answer::Ok)
    {
        expect(box, title, answer);
        press(name);
    }

    std::unique_ptr<TestEvent> event;

private slots:
    void cleanup() { event.reset(); }
};
