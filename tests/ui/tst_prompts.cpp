#include "kit/testkit.h"
#include "ui/prompts.h"
#include "ui/waitcursor.h"

// The boxes and the wording of failures.
class tst_prompts : public QObject
{
    Q_OBJECT

private slots:
    // Work on files that takes long shows a wait, until the program listens again.
    void waitCursor()
    {
        TestEvent event;
        WaitCursor cursor(std::chrono::milliseconds(0));
        cursor.work();
        cursor.work();
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QCoreApplication::processEvents();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    // A box without a title shows the program's; a text is shown as it is.
    void answers()
    {
        const QString text = u"<b>Fish & Chips</b>  &x"_s;
        BoxRobot robot;
        robot.expect(text, u"TRELAWN"_s);
        showMessage(nullptr, text);
        robot.expect(u"Sure?"_s, u"TRELAWN"_s, Answer::No);
        QVERIFY(!askYesNo(nullptr, u"Sure?"_s));
        robot.expect(u"Clear?"_s, u"TRELAWN"_s, Answer::Cancel);
        QVERIFY(!askOkCancel(nullptr, u"Clear?"_s));
        robot.expectInput(text, u"Start"_s, u"D"_s);
        QCOMPARE(askText(nullptr, text, u"Start"_s, u"C"_s), u"D"_s);
        robot.expectInputKept(u"Drive?"_s, u"TRELAWN"_s);
        QCOMPARE(askText(nullptr, u"Drive?"_s, {}, u"C"_s), u"C"_s);
        robot.expectInput(u"Drive?"_s, u"Start"_s, QString());
        QCOMPARE(askText(nullptr, u"Drive?"_s, u"Start"_s, u"C"_s), QString());
        QVERIFY(robot.allCame());
    }

    // Escape declines, and no text is taken for a page of the web.
    void escapeDeclines()
    {
        const auto escape = [] {
            for (const auto *label : QApplication::activeModalWidget()->findChildren<QLabel *>())
                QVERIFY(label->text() != "<b>"_L1 || label->textFormat() == Qt::PlainText);
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        };
        for (const auto ask : {&askYesNo, &askOkCancel}) {
            QTimer::singleShot(0, escape);
            QVERIFY(!ask(nullptr, u"<b>"_s, {}));
        }
        QTimer::singleShot(0, escape);
        QCOMPARE(askText(nullptr, u"<b>"_s, {}, u"C"_s), QString());
    }

    // The list of what a typed path may become is no other window: it takes keys and goes.
    void completions()
    {
        SKIP_ON_WINDOWS();
        QTimer::singleShot(0, [] {
            QWidget *box = QApplication::activeModalWidget();
            QTest::keyClick(box->findChild<QLineEdit *>(), '/');
            QWidget *list = box->findChild<QLineEdit *>()->completer()->popup();
            QVERIFY(QTest::qWaitFor([list] { return list->isVisible(); }));
            QTest::keyClick(list, Qt::Key_Escape);
            QVERIFY(!list->isVisible());
            QTest::keyClick(box, Qt::Key_Escape);
        });
        QCOMPARE(askSaveFile(nullptr, u"Save"_s, u"Report"_s, u"pdf"_s, u"*.pdf"_s), QString());
    }

    // The box names the operation that failed: not the one around it, nor one that came after.
    void trap()
    {
        TestEvent event(false);
        const auto failing = [&] {
            try {
                labelled(event.session, u"Bets input"_s,
                         [] { throw FileError(ErrorNumber::PathNotFound); });
            } catch (const FileError &) {
                labelled(event.session, u"Horses input"_s, [] {});
                throw;
            }
        };
        event.boxes.expect(u"Path not found Bets input"_s, u"Bets input"_s);
        QVERIFY(!trapErrors(nullptr, event.session, ErrorStyle::DescriptionAndLabel,
                            u"Bets output"_s, failing));
        QVERIFY(event.boxes.allCame());
        QCOMPARE(event.session.settings.operationLabel, u"Horses input"_s);
        bool wentOn = false;
        QVERIFY(trapErrors(nullptr, ErrorStyle::DescriptionAndLabel, [&] { wentOn = true; }));
        QVERIFY(wentOn);
    }
};

TRELAWN_TEST(tst_prompts)
#include "tst_prompts.moc"
