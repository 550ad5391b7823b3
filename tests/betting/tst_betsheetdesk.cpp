#include "common/event/cashjournal.h"
#include "kit/screentest.h"

const QString throwAway = u"The bets on this sheet are not placed. Throw them away?"_s;

// The bet sheet in a hurry: keys, names that are not there, and what must not be lost.
class tst_betsheetdesk : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->writeTwins(u"Horses Race1"_s,
                          "1,0,\"1\",\"SEA HERO\"\r\n2,0,\"2\",\"LIL E TEE\"\r\n");
        event->writeTwins(u"Bettors"_s,
                          "1,\"AnyBettor\"\r\n2,\"SMITH-ANN\"\r\n3,\"TAYLOR-BO\"\r\n");
        open(u"frmsheetb"_s);
        find(u"smith"_s);
    }

    void typedAmounts()
    {
        Rows<QString, QString> rows;
        rows("digits are dollars", u"50"_s, u"$50.00 +"_s);
        rows("cents", u"2.5"_s, u"$2.50 +"_s);
        rows("a comma is a point", u",75"_s, u"$0.75 +"_s);
        rows("no cents of cents, no second point", u"1.2.55"_s, u"$1.25 +"_s);
        rows("the last digit back", u"50<"_s, u"$5.00 +"_s);
        rows("all of them", u"50<<<"_s, u"$1.00 +"_s);
        rows("sign and amount agree", u"5-"_s, u"-$5.00 -"_s);
        rows("and again", u"5-+"_s, u"$5.00 +"_s);
        rows("a negative amount", u"-12"_s, u"-$12.00 -"_s);
        rows("a movement ends the typing", u"5>0"_s, u"$0.00 +"_s);
        rows("a bet ends the typing", u"5 2"_s, u"$2.00 +"_s);
        rows("a preset ends it", u"5p2"_s, u"$2.00 +"_s);
        for (const auto &[row, keys, shown] : rows) {
            open(u"frmsheetb"_s);
            find(u"smith"_s);
            keysIntoGrid(keys);
            QCOMPARE(text(u"txtbetamt"_s) + u' ' + text(u"txtplus"_s), shown);
        }
    }

    void emptyingACell()
    {
        keysIntoGrid(u"5  "_s);
        QCOMPARE(text(u"txtnumber_21"_s) + text(u"txttotaltot"_s), u"1010"_s);
        pressKey(Qt::Key_Delete);
        QCOMPARE(text(u"txtnumber_21"_s) + text(u"txttotaltot"_s), QString());
    }

    // The next name is taken, but nobody bets for it by accident.
    void nobodyOfThatName()
    {
        find(u"smyth"_s);
        QCOMPARE(event->note(), u"No name begins with SMYTH."_s);
        QCOMPARE(label(u"lblselected"_s), u"TAYLOR-BO"_s);
        auto *field = qobject_cast<QLineEdit *>(screen()->window()->focusWidget());
        QVERIFY(field && field->objectName() == u"txtname"_s);
        QCOMPARE(field->selectedText(), u"SMYTH"_s);
        const auto *selected = child<QLabel>(screen(), u"lblselected"_s);
        const QColor doubtful = selected->palette().color(QPalette::WindowText);
        find(u"smi"_s);
        QVERIFY(selected->palette().color(QPalette::WindowText) != doubtful);
        QCOMPARE(event->note(), QString());
    }

    void filledSheetIsKept()
    {
        keysIntoGrid(u"5 "_s);
        for (const char16_t *way : {u"optrace_2", u"cmdmainmenu", u"cmdmulti", u"cmdbettors"}) {
            press(QString::fromUtf16(way), throwAway, u"Bet Sheet"_s, Answer::No);
            QCOMPARE(screen()->objectName(), u"frmsheetb"_s);
            QVERIFY(child<QRadioButton>(screen(), u"optrace_1"_s)->isChecked());
            QCOMPARE(text(u"txttotaltot"_s), u"5"_s);
        }
        auto *race = child<QRadioButton>(screen(), u"optrace_1"_s);
        for (const auto key : {Qt::Key_Right, Qt::Key_Down}) {
            race->setFocus();
            screen()->window()->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(screen()->window()));
            expect(throwAway, u"Bet Sheet"_s, Answer::No);
            pressKey(key);
            QCoreApplication::processEvents();
            QVERIFY(event->boxes.allCame() && race->isChecked());
            QCOMPARE(screen()->window()->focusWidget(), race);
            QCOMPARE(text(u"txttotaltot"_s), u"5"_s);
        }
        expect(throwAway, u"Bet Sheet"_s, Answer::No);
        screen()->window()->close();
        press(u"cmdmainmenu"_s, throwAway, u"Bet Sheet"_s, Answer::Yes);
        QCOMPARE(screen()->objectName(), u"frmmenub"_s);
    }

    void undo()
    {
        keysIntoGrid(u"5 "_s);
        press(u"cmdclrentries"_s);
        QCOMPARE(text(u"txttotaltot"_s), QString());
        child<QWidget>(screen(), u"txtnumber_21"_s)->setFocus();
        pressKey(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(label(u"lbltobeplaced"_s), u"to be placed: $5.00"_s);
        press(u"cmdclrentries"_s);
        keysIntoGrid(u" "_s);
        QVERIFY(!child<QPushButton>(screen(), u"cmdundo"_s)->isEnabled());
    }

    // The records come back, the till takes their money again; not once another bettor is chosen,
    // nor onto a horse that was scratched meanwhile.
    void deletionUndone()
    {
        const QByteArray bets = "2,1,1,5\r\n";
        const auto deleteAll = [&] {
            child<QListWidget>(screen(), u"lstpriorbets"_s)->selectAll();
            press(u"cmdclearprior"_s);
            QCOMPARE(event->readTwins(u"Bets Race1"_s), "");
        };
        event->session.settings.setReceiptPrinting(false);
        keysIntoGrid(u"5 "_s);
        press(u"cmdplacebets"_s, u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
        deleteAll();
        press(u"cmdundo"_s);
        QCOMPARE(event->note(),
                 u"1 bet of $5.00 brought back for SMITH-ANN: take the refund back."_s);
        QCOMPARE(event->readTwins(u"Bets Race1"_s), bets);
        const QByteArray journal = event->read(u"Cash "_s + computerName(event->session));
        QVERIFY(journal.endsWith("\"bets\",1,2,\"SMITH-ANN\",5,0,\"deletion undone\"\r\n"));
        QVERIFY(!child<QPushButton>(screen(), u"cmdundo"_s)->isEnabled());

        deleteAll();
        event->writeTwins(u"Horses Race1"_s, "1,0,\"1\",\"SEA HERO\"\r\n");
        press(u"cmdundo"_s);
        QVERIFY(event->note().endsWith(u"The bets are still deleted."_s));
        find(u"taylor"_s);
        QVERIFY(!child<QPushButton>(screen(), u"cmdundo"_s)->isEnabled());
        QCOMPARE(event->readTwins(u"Bets Race1"_s), "");
    }

private:
    void pressKey(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(screen()->window()->focusWidget(), Qt::Key(key), modifiers);
    }

    void find(const QString &name)
    {
        child<QLineEdit>(screen(), u"txtname"_s)->setFocus();
        type(u"txtname"_s, name);
        pressKey(Qt::Key_Return);
    }

    // < is Backspace, > an arrow key, p2 the preset's key F3.
    void keysIntoGrid(const QString &keys)
    {
        child<QWidget>(screen(), u"txtnumber_21"_s)->setFocus();
        for (qsizetype i = 0; i < keys.size(); ++i) {
            if (keys[i] == u'<')
                pressKey(Qt::Key_Backspace);
            else if (keys[i] == u'>')
                pressKey(Qt::Key_Down);
            else if (keys[i] == u'p')
                pressKey(Qt::Key_F1 + keys[++i].digitValue());
            else
                QTest::keyClick(screen()->window()->focusWidget(), keys[i].toLatin1());
        }
    }
};

TRELAWN_TEST(tst_betsheetdesk)
#include "tst_betsheetdesk.moc"
