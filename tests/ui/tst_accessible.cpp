#include "kit/screentest.h"
#include "multibets/multiraces.h"

#include <QAccessible>

// What a screen reader finds, and presses.
class tst_accessible : public MultibetTest
{
    Q_OBJECT

private slots:
    void cellsAreButtons()
    {
        begin();
        setHorses(3, 3);
        event->writeTwins(u"Horses Race1"_s,
                          horseRecords(cardOf({{1, 0, u"1A"_s, u"SECOND WIND"_s}})));
        Rows<QString, QString, QString, QString> rows;
        rows("bet cell", u"frmsheetb"_s, u"txtnumber_21"_s,
             u"SECOND WIND, number 1A, win, no bet"_s, u"SECOND WIND, number 1A, win, 1 dollar"_s);
        rows("preset", u"frmsheetb"_s, u"txtone_3"_s, u"Make bet amount $5"_s, {});
        rows("add cell", u"frmsheetb"_s, u"txtamt_0"_s, u"Add 0.25 dollars"_s, {});
        rows("amount", u"frmsheetb"_s, u"txtbetamt"_s, u"Bet amount, 1 dollar"_s,
             u"Bet amount, 2 dollars"_s);
        rows("sign", u"frmsheetb"_s, u"txtplus"_s, u"Sign, plus"_s, u"Sign, minus"_s);
        rows("add cell of multibets", u"frmmulti"_s, u"txtamt_3"_s, u"Add 10 dollars"_s, {});
        rows("clearing cell", u"frmmulti"_s, u"txtclearamt"_s, u"Clear Bet Amount"_s, {});
        rows("post", u"frmmulti"_s, cellName(2, 3),
             u"Post 3: number 3 HORSE 3, line 2, not selected"_s,
             u"Post 3: number 3 HORSE 3, line 2, selected"_s);
        rows("house percent", u"frmpaymulti"_s, u"txtpercent"_s, u"House Percent, 0"_s,
             u"House Percent, 1"_s);
        for (const auto &[row, name, cell, before, after] : rows) {
            open(name);
            if (name != "frmsheetb"_L1)
                chooseRace(3);
            QAccessibleInterface *found =
                QAccessible::queryAccessibleInterface(child<QWidget>(screen(), cell));
            QCOMPARE(found->role(), QAccessible::Button);
            QCOMPARE(found->text(QAccessible::Name), before);
            QAccessibleActionInterface *actions = found->actionInterface();
            QCOMPARE(actions->actionNames().value(0), QAccessibleActionInterface::pressAction());
            actions->doAction(QAccessibleActionInterface::pressAction());
            QCOMPARE(found->text(QAccessible::Name), after.isEmpty() ? before : after);
        }
    }

    void noteIsItsName()
    {
        begin();
        open(u"frmpaymulti"_s);
        press(u"cmdpaid"_s);
        const QAccessibleInterface *note =
            QAccessible::queryAccessibleInterface(child<QLabel>(screen(), u"lblnote"_s));
        QCOMPARE(note->text(QAccessible::Name), u"Select the line of a ticket first."_s);
        QCOMPARE(note->role(), QAccessible::AlertMessage);
    }

    // Nothing is pressed on a screen behind a box.
    void notBehindABox()
    {
        begin();
        open(u"frmpaymulti"_s);
        QTimer::singleShot(0, this, [this] {
            QAccessible::queryAccessibleInterface(child<QWidget>(screen(), u"txtpercent"_s))
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::pressAction());
            QApplication::activeModalWidget()->close();
        });
        event->boxes.rest();
        press(u"cmdenterwin"_s);
        QCOMPARE(text(u"txtpercent"_s), u"0"_s);
    }
};

TRELAWN_TEST(tst_accessible)
#include "tst_accessible.moc"
