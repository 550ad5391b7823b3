#include "kit/testkit.h"
#include "screens.h"
#include "ui/textcell.h"

// What every screen of the program promises, whatever it is for.
class tst_screens : public QObject
{
    Q_OBJECT

private slots:
    void everyScreen_data()
    {
        QTest::addColumn<QString>("closeButton");
        for (const ScreenEntry &entry : allScreens())
            QTest::newRow(qPrintable(entry.name)) << entry.closeButton;
    }
    void everyScreen()
    {
        QFETCH(QString, closeButton);
        TestEvent event;
        event.session.settings.currentRace = 12;
        QWidget *screen = event.open(QString::fromLatin1(QTest::currentDataTag()));
        event.boxes.allCame(); // what a screen asks on opening is refused
        QVERIFY(!screen->window()->windowTitle().isEmpty());
        QVERIFY(child<QAbstractButton>(screen, closeButton)->isVisible());
        child<QLabel>(screen, u"lblnote"_s);
        QSet<QKeySequence> letters{{}};
        for (const auto *button : screen->findChildren<QAbstractButton *>()) {
            QVERIFY2(button->shortcut().isEmpty() || !letters.contains(button->shortcut()),
                     qPrintable(button->objectName()));
            letters.insert(button->shortcut());
        }
        // Whoever cannot see the screen hears what a cell is for.
        for (const auto *field : screen->findChildren<QWidget *>()) {
            const bool isCell = qobject_cast<const TextCell *>(field);
            if (!isCell && !qobject_cast<const QLineEdit *>(field))
                continue;
            QVERIFY2(!(field->focusPolicy() & Qt::TabFocus) || !field->accessibleName().isEmpty()
                         || !field->toolTip().isEmpty(),
                     qPrintable(field->objectName()));
        }
    }

    // Names of any length leave every screen as wide as it is.
    void longNames_data() { everyScreen_data(); }
    void longNames()
    {
        QList<int> widths;
        for (const QString &text : {u"W"_s, QString(150, u'W')}) {
            TestEvent event;
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
            widths << screen->minimumSizeHint().width();
        }
        QCOMPARE(widths[1], widths[0]);
    }
};

TRELAWN_TEST(tst_screens)
#include "tst_screens.moc"
