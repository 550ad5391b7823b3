#include "common/event/horses.h"
#include "kit/testkit.h"
#include "screens.h"
#include "ui/mainwindow.h"

#include <QLabel>
#include <QListWidget>
#include <QSet>

using namespace Qt::StringLiterals;

// What every screen of the program promises, whatever it is for.
class tst_screens : public QObject
{
    Q_OBJECT

private slots:
    void everyScreen_data();
    void everyScreen();
    void longNames_data() { everyScreen_data(); }
    void longNames();
};

void tst_screens::everyScreen_data()
{
    QTest::addColumn<QString>("closeButton");
    for (const ScreenEntry &entry : allScreens())
        QTest::newRow(qPrintable(entry.name)) << entry.closeButton;
}

void tst_screens::everyScreen()
{
    QFETCH(QString, closeButton);
    TestEvent event;
    BoxRobot robot; // refuses the boxes of a screen that asks on opening
    event.session.settings.currentRace = 12;
    QWidget *screen = event.open(QString::fromLatin1(QTest::currentDataTag()));
    robot.allCame(); // what a screen asks on opening is refused
    screen->window()->resize(1016, 690);
    QCoreApplication::processEvents();
    QVERIFY2(screen->width() <= screen->parentWidget()->width()
                 && screen->height() <= screen->parentWidget()->height(),
             "does not fit the smallest display");
    QVERIFY(!screen->window()->windowTitle().isEmpty());
    QVERIFY(child<QAbstractButton>(screen, closeButton)->isVisible());
    child<QLabel>(screen, u"lblnote"_s);
    QSet<QKeySequence> letters;
    for (const auto *button : screen->findChildren<QAbstractButton *>()) {
        if (button->shortcut().isEmpty())
            continue;
        QVERIFY2(!letters.contains(button->shortcut()), qPrintable(button->objectName()));
        letters.insert(button->shortcut());
    }
    // Whoever cannot see the screen hears what a cell is for.
    for (const auto *field : screen->findChildren<QLineEdit *>()) {
        if (field->focusPolicy() & Qt::TabFocus)
            QVERIFY2(!field->accessibleName().isEmpty() || !field->toolTip().isEmpty(),
                     qPrintable(field->objectName()));
    }
}

// Names of any length leave every screen as wide as it is.
void tst_screens::longNames()
{
    const QString name(150, u'W');
    const auto screenFor = [](TestEvent &event, const QString &text) {
        HorseTable horses;
        for (int post = 1; post <= postCount; ++post)
            horses.post(post) = {post, 0, QString::number(post), text};
        event.write(u"Horses Race1"_s, horseRecords(horses));
        event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"" + text.toUtf8() + "\"\r\n");
        event.session.settings.banner = text;
        event.session.settings.lastEventDirectory = u"D:\\"_s + text;
        QWidget *screen = event.open(QString::fromLatin1(QTest::currentDataTag()));
        for (auto *list : screen->findChildren<QListWidget *>()) {
            list->setCurrentRow(list->count() - 1);
            if (list->currentItem() && list->objectName() == "lstentries"_L1)
                emit list->itemClicked(list->currentItem());
        }
        child<QLabel>(screen, u"lblnote"_s)->setText(text);
        QCoreApplication::processEvents();
        return screen;
    };
    TestEvent plain;
    BoxRobot robot;
    const int width = screenFor(plain, u"W"_s)->minimumSizeHint().width();
    TestEvent event;
    QCOMPARE(screenFor(event, name)->minimumSizeHint().width(), width);
}

TRELAWN_TEST(tst_screens)
#include "tst_screens.moc"
