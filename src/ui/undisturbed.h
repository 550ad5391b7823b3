#pragma once

#include <QObject>

#include <functional>

class QAbstractButton;
class QWidget;

// While one lives, nothing of the program acts but \a box and what that opens: no key, click, wheel
// or close box reaches anything else, and a press that was put off comes to nothing. Without a box
// nothing acts at all. Every box and every wait makes one, so whatever was pressed before it dies,
// and the screen that asks is still there, as it was, when the answer comes.
class Undisturbed : public QObject
{
    Q_OBJECT

public:
    explicit Undisturbed(const QWidget *box);
    ~Undisturbed() override;

    // Whether a box or a wait is open.
    static bool isAny();

    // Does something for \a context once the handler at work has come to its end and no box is
    // open.
    static void afterwards(QObject *context, const std::function<void()> &work);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    const QWidget *m_box;
};
