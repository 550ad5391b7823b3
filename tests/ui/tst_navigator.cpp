#include "kit/testkit.h"
#include "ui/controls.h"
#include "ui/mainwindow.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

// Opening, leaving and closing screens.
class tst_navigator : public QObject
{
    Q_OBJECT

private slots:
    void openAndLeave();
    void initialFocus();
    void reopen();
    void beside();
    void closeBox();
    void exitProgram();
};

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

class Fixture
{
public:
    Fixture()
        : navigator(event.session, event.printer,
                    {entry(u"frmmenu"_s, u"Menu"_s), entry(u"frmwork"_s, u"Work"_s)})
    {
    }

    QWidget *open(const QString &name, const QString &note = {})
    {
        navigator.open(name, note);
        if (!QTest::qWaitForWindowActive(navigator.window()))
            qFatal("the window does not become active");
        return navigator.current();
    }

    TestEvent event{false};
    Navigator navigator;

private:
    static ScreenEntry entry(const QString &name, const QString &title)
    {
        return {name, title, u"cmdreturn"_s,
                [](const ScreenContext &context) -> QWidget * { return new Form(context); }};
    }
};

} // namespace

void tst_navigator::openAndLeave()
{
    Fixture fixture;
    Navigator &navigator = fixture.navigator;
    QVERIFY(!navigator.current() && navigator.currentName().isEmpty());
    const QPointer<QWidget> menu = fixture.open(u"frmmenu"_s);
    QCOMPARE(menu->objectName(), u"frmmenu"_s);
    QCOMPARE(navigator.window()->windowTitle(), u"Menu"_s);
    QWidget *work = fixture.open(u"frmwork"_s, u"2 names unpaid"_s);
    QCOMPARE(labelText(work, u"lblnote"_s), u"2 names unpaid"_s);
    QCOMPARE(navigator.previousName(), u"frmmenu"_s);
    QCOMPARE(navigator.window()->windowTitle(), u"Work"_s);
    QTRY_VERIFY(menu.isNull()); // the screen left is gone
    clickButton(work, u"cmdreturn"_s);
    QCOMPARE(navigator.currentName(), u"frmmenu"_s);
    QCOMPARE(labelText(navigator.current(), u"lblnote"_s), QString());
}

// The control that a screen gave the focus while it was built has it when it is shown.
void tst_navigator::initialFocus()
{
    Fixture fixture;
    for (const QString &name : {u"frmmenu"_s, u"frmwork"_s}) {
        fixture.open(name);
        QVERIFY(QApplication::focusWidget());
        QCOMPARE(QApplication::focusWidget()->objectName(), u"txtsecond"_s);
        QVERIFY(fixture.navigator.current()->isAncestorOf(QApplication::focusWidget()));
    }
}

void tst_navigator::reopen()
{
    Fixture fixture;
    fixture.open(u"frmmenu"_s);
    typeInto(fixture.open(u"frmwork"_s), u"txtfirst"_s, u"abc"_s);
    fixture.navigator.reopen();
    QCOMPARE(fieldText(fixture.navigator.current(), u"txtfirst"_s), QString());
    QCOMPARE(fixture.navigator.currentName(), u"frmwork"_s);
    QCOMPARE(fixture.navigator.previousName(), u"frmmenu"_s);
}

void tst_navigator::beside()
{
    Fixture fixture;
    QWidget *menu = fixture.open(u"frmmenu"_s);
    const QPointer<QWidget> work = fixture.navigator.openBeside(u"frmwork"_s);
    QVERIFY(work->isWindow() && work->isVisible() && !work->isModal());
    QCOMPARE(work->windowTitle(), u"Work"_s);
    QCOMPARE(fixture.navigator.current(), menu);
    typeInto(menu, u"txtfirst"_s, u"both are usable"_s);
    work->close();
    QTRY_VERIFY(work.isNull());
}

void tst_navigator::closeBox()
{
    Fixture fixture;
    QWidget *work = fixture.open(u"frmwork"_s);
    child<QPushButton>(work, u"cmdreturn"_s)->setEnabled(false);
    QVERIFY(!fixture.navigator.window()->close());
    QCOMPARE(fixture.navigator.current(), work); // what the button refuses, the box refuses
    child<QPushButton>(work, u"cmdreturn"_s)->setEnabled(true);
    QVERIFY(!fixture.navigator.window()->close());
    QCOMPARE(fixture.navigator.currentName(), u"frmmenu"_s);
    QVERIFY(fixture.navigator.window()->isVisible());
}

void tst_navigator::exitProgram()
{
    Fixture fixture;
    fixture.open(u"frmmenu"_s);
    fixture.navigator.openBeside(u"frmwork"_s);
    fixture.navigator.exitProgram();
    QVERIFY(!fixture.navigator.window()->isVisible());
}

TRELAWN_TEST(tst_navigator)
#include "tst_navigator.moc"
