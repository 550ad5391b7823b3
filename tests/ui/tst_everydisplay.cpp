#include "common/event/display.h"
#include "kit/testkit.h"
#include "practice/parts/practicepanel.h"
#include "practice/practice.h"
#include "screens.h"
#include "ui/controls.h"
#include "ui/fittedarea.h"
#include "ui/scaling.h"
#include "ui/textcell.h"

// Every screen on every display: whole, readable, and as large as there is room for.
class tst_everydisplay : public QObject
{
    Q_OBJECT

private slots:
    void wholeAndReadable_data();
    void wholeAndReadable();
    void operatorsChoice();
};

namespace {

QString nameOf(const QWidget *widget)
{
    return widget->objectName().isEmpty() ? QString::fromLatin1(widget->metaObject()->className())
                                          : widget->objectName();
}

// Why the text of the widget cannot be read; empty when it can.
QString clippedText(const QWidget *widget)
{
    const QFontMetrics metrics = widget->fontMetrics();
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        if (label->text().isEmpty())
            return {};
        if (qobject_cast<const ShortLabel *>(widget)) // dots are no fault
            return label->height() < metrics.height() ? u"is cut"_s : QString();
        if (label->wordWrap())
            return label->heightForWidth(label->width()) > label->height() ? u"wraps"_s : QString();
        return label->width() < label->sizeHint().width() || label->height() < metrics.height()
                   ? u"is cut"_s
                   : QString();
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
        if (button->hasHeightForWidth()) // wraps
            return button->heightForWidth(button->width()) > button->height() ? u"is cut"_s
                                                                              : QString();
        const QSize text = metrics.size(Qt::TextShowMnemonic, button->text());
        const bool option = qobject_cast<const QPushButton *>(widget) == nullptr;
        const int sign = option ? metrics.height() : 0;
        return button->width() < text.width() + sign || button->height() < text.height()
                   ? u"is cut"_s
                   : QString();
    }
    if (const auto *group = qobject_cast<const QGroupBox *>(widget))
        return group->width() < metrics.horizontalAdvance(group->title()) ? u"is cut"_s : QString();
    if (const auto *header = qobject_cast<const QHeaderView *>(widget)) {
        for (int i = 0; header->orientation() == Qt::Horizontal && i < header->count(); ++i) {
            const QString text = header->model()->headerData(i, Qt::Horizontal).toString();
            if (header->sectionSize(i) < metrics.size(0, text).width())
                return u"heading "_s + text;
        }
    }
    const bool isField =
        qobject_cast<const QLineEdit *>(widget) || qobject_cast<const TextCell *>(widget);
    if (isField && widget->height() < metrics.height())
        return u"too low"_s;
    return {};
}

// What is wrong below the widget: outside of it, clipped, or over another.
QStringList faults(const QWidget *parent)
{
    QStringList found;
    QList<const QWidget *> seen;
    for (const QObject *child : parent->children()) {
        const auto *widget = qobject_cast<const QWidget *>(child);
        if (!widget || !widget->isVisible() || widget->isWindow())
            continue;
        const QString name = nameOf(widget);
        if (!parent->rect().contains(widget->geometry()))
            found << name + u" is outside"_s;
        if (const QString why = clippedText(widget); !why.isEmpty())
            found << name + u' ' + why;
        if (widget->font().pointSizeF() < 0.75 * houseFont(letterFactor(widget)).pointSizeF())
            found << name + u" has small letters"_s;
        for (const QWidget *other : seen) {
            if (other->geometry().intersects(widget->geometry()))
                found << name + u" over "_s + nameOf(other);
        }
        seen << widget;
        // What scrolls by itself is a list.
        const bool list = qobject_cast<const QAbstractScrollArea *>(widget);
        for (const auto *header :
             list ? widget->findChildren<QHeaderView *>() : QList<QHeaderView *>()) {
            if (const QString why = clippedText(header); !why.isEmpty())
                found << name + u' ' + why;
        }
        if (!list && !qobject_cast<const QLineEdit *>(widget)
            && !qobject_cast<const QComboBox *>(widget))
            found << faults(widget);
    }
    return found;
}

} // namespace

void tst_everydisplay::wholeAndReadable_data()
{
    QTest::addColumn<QSize>("display");
    QTest::addColumn<double>("letters"); // at least, on a screen that has room
    QTest::newRow("least") << QSize(800, 500) << 0.5;
    QTest::newRow("laptop") << QSize(1366, 768) / 1.5 << 0.5;
    QTest::newRow("usual") << QSize(1024, 768) << 1.0;
    QTest::newRow("large") << QSize(1920, 1080) << 1.35;
}

void tst_everydisplay::wholeAndReadable()
{
    QFETCH(QSize, display);
    QFETCH(double, letters);
    for (const auto &[horses, isPractice] :
         {std::pair(12, false), {postCount, false}, {12, true}}) {
        TestEvent event;
        BoxRobot robot;
        HorseTable card;
        for (int post = 1; post <= horses; ++post)
            card.post(post) = {post, 0, QString::number(post), u"GALLOPING GOURMET"_s};
        MainWindow *window = event.navigator().window();
        if (isPractice) {
            enterPractice(event.session);
            window->setStrip(new PracticePanel({event.session, event.navigator(), event.printer}));
        }
        event.writeTwins(u"Horses Race1"_s, horseRecords(card));
        window->resize(display);
        QStringList found;
        int screens = 0;
        for (const ScreenEntry &entry : allScreens()) {
            const QWidget *screen = event.open(entry.name);
            robot.allCame(); // what a screen asks on opening is refused
            if (!screen || screen->objectName() != entry.name)
                continue;
            ++screens;
            window->resize(display);
            QCoreApplication::processEvents();
            QStringList here = faults(screen);
            if (screen->size() != window->area()->size() || window->size() != display)
                here << u"not whole"_s;
            if (isPractice)
                here << faults(window->strip());
            if (letterFactor(screen) < (isPractice ? 0.94 : 1) * letters) // for the strip
                here << u"letters of "_s + QString::number(letterFactor(screen));
            for (const QString &fault : here)
                found << entry.name + u": "_s + fault;
        }
        QVERIFY(screens >= 16); // the others are windows beside, or refuse
        QVERIFY2(found.isEmpty(),
                 qPrintable(QString::number(horses) + u" horses\n"_s + found.join(u'\n')));
    }
}

// The choice counts on every screen and in the next run, and no choice takes the screen apart.
void tst_everydisplay::operatorsChoice()
{
    TestEvent event;
    QWidget *screen = event.open(u"frmmenub"_s);
    screen->window()->resize(1024, 768);
    const double usual = letterFactor(screen);
    QTest::keyClick(screen, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(letterFactor(screen) < usual);
    const double smaller = letterFactor(event.open(u"frmdirb"_s));
    QVERIFY(smaller < usual);
    QVERIFY(event.read(u"Display"_s).startsWith("0.9"));
    for (int i = 0; i < 30; ++i)
        QTest::keyClick(event.current(), Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(letterFactor(event.current()) > usual);
    QCOMPARE(faults(event.current()), QStringList());
    QVERIFY(labelText(event.current(), u"lblnote"_s).contains(u"do not fit"_s));
    QTest::keyClick(event.current(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(letterFactor(event.current()), usual);
    for (const char *unusable : {"", "large", "nan", "1e9"}) {
        event.write(u"Display"_s, unusable);
        QVERIFY2(readLetters(event.session) == 1 || readLetters(event.session) == 3, unusable);
    }
    QTest::keyClick(event.current(), Qt::Key_F11);
    QVERIFY(event.current()->window()->isFullScreen());
    QTest::keyClick(event.current(), Qt::Key_F11);
    QVERIFY(!event.current()->window()->isFullScreen());

    event.write(u"Display"_s, "0.91\r\n");
    Navigator nextRun(event.session, event.printer, allScreens());
    nextRun.open(u"frmdirb"_s);
    QCoreApplication::processEvents();
    nextRun.window()->resize(1024, 768);
    QCoreApplication::processEvents();
    QCOMPARE(letterFactor(nextRun.current()), smaller);
}

TRELAWN_TEST(tst_everydisplay)
#include "tst_everydisplay.moc"
