#include "kit/testkit.h"
#include "ui/controls.h"

namespace {

class Form : public QWidget
{
public:
    explicit Form(const ScreenContext &context)
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(makeField(this, u"txtfirst"_s));
        auto *second = makeField(this, u"txtsecond"_s);
        layout->addWidget(second);
        auto *leave = makeButton(this, u"cmdreturn"_s, u"RETURN"_s);
        layout->addWidget(leave);
        layout->addWidget(makeNoteLine(this));
        connect(leave, &QPushButton::clicked, this,
                [&navigator = context.navigator] { navigator.open(u"frmmenu"_s); });
        second->setFocus();
    }
};

ScreenEntry entry(const QString &name, const QString &title)
{
    return {name, title, u"cmdreturn"_s,
            [](const ScreenContext &context) -> QWidget * { return new Form(context); }};
}

} // namespace

// Opening, leaving and closing screens.
class tst_navigator : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEvent> event;
    std::unique_ptr<Navigator> navigator;

    QWidget *open(const QString &name, const QString &note = {})
    {
        navigator->open(name, note);
        if (!QTest::qWaitForWindowActive(navigator->window()))
            qFatal("the window does not become active");
        return navigator->current();
    }

private slots:
    void init()
    {
        event = std::make_unique<TestEvent>(false);
        navigator = std::make_unique<Navigator>(
            event->session, event->printer,
            std::vector{entry(u"frmmenu"_s, u"Menu"_s), entry(u"frmwork"_s, u"Work"_s)});
    }
    void cleanup()
    {
        navigator.reset();
        event.reset();
    }

    void openAndLeave()
    {
        QVERIFY(!navigator->current() && navigator->currentName().isEmpty());
        const QPointer<QWidget> menu = open(u"frmmenu"_s);
        QCOMPARE(menu->objectName(), u"frmmenu"_s);
        QCOMPARE(navigator->window()->windowTitle(), u"Menu"_s);
        QWidget *work = open(u"frmwork"_s, u"2 names unpaid"_s);
        QCOMPARE(labelText(work, u"lblnote"_s), u"2 names unpaid"_s);
        QCOMPARE(navigator->previousName(), u"frmmenu"_s);
        QCOMPARE(navigator->window()->windowTitle(), u"Work"_s);
        QTRY_VERIFY(menu.isNull()); // the screen left is gone
        // What was given the focus while the screen was built has it.
        QCOMPARE(QApplication::focusWidget(), child<QWidget>(work, u"txtsecond"_s));
        typeInto(work, u"txtfirst"_s, u"abc"_s);
        navigator->reopen();
        QCOMPARE(fieldText(navigator->current(), u"txtfirst"_s), QString());
        QCOMPARE(navigator->currentName(), u"frmwork"_s);
        QCOMPARE(navigator->previousName(), u"frmmenu"_s);
        clickButton(navigator->current(), u"cmdreturn"_s);
        QCOMPARE(navigator->currentName(), u"frmmenu"_s);
        QCOMPARE(labelText(navigator->current(), u"lblnote"_s), QString());
    }

    void beside()
    {
        QWidget *menu = open(u"frmmenu"_s);
        const QPointer<QWidget> work = navigator->openBeside(u"frmwork"_s);
        QVERIFY(work->isWindow() && work->isVisible() && !work->isModal());
        QCOMPARE(work->windowTitle(), u"Work"_s);
        QCOMPARE(navigator->current(), menu);
        typeInto(menu, u"txtfirst"_s, u"both are usable"_s);
        work->close();
        QTRY_VERIFY(work.isNull());
        navigator->openBeside(u"frmwork"_s);
        navigator->exitProgram();
        QVERIFY(!navigator->window()->isVisible());
    }

    // What the screen's button refuses, the close box refuses.
    void closeBox()
    {
        QWidget *work = open(u"frmwork"_s);
        child<QPushButton>(work, u"cmdreturn"_s)->setEnabled(false);
        QVERIFY(!navigator->window()->close());
        QCOMPARE(navigator->current(), work);
        child<QPushButton>(work, u"cmdreturn"_s)->setEnabled(true);
        QVERIFY(!navigator->window()->close());
        QCOMPARE(navigator->currentName(), u"frmmenu"_s);
        QVERIFY(navigator->window()->isVisible());
    }
};

TRELAWN_TEST(tst_navigator)
#include "tst_navigator.moc"
