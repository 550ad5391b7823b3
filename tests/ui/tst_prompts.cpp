#include "kit/testkit.h"
#include "ui/prompts.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

// The boxes and the wording of failures.
class tst_prompts : public QObject
{
    Q_OBJECT

private slots:
    void errorWording();
    void answers();
    void escapeDeclines();
    void plainText();
    void trap();
};

void tst_prompts::errorWording()
{
    const FileError missing(ErrorNumber::FileNotFound, u"Bets input"_s);
    QCOMPARE(errorText(missing, ErrorStyle::NumberAndDescription), u"53 File not found"_s);
    QCOMPARE(errorText(missing, ErrorStyle::DescriptionAndLabel), u"File not found Bets input"_s);
    QCOMPARE(errorText(missing, ErrorStyle::DescriptionOnly), u"File not found"_s);
}

void tst_prompts::answers()
{
    BoxRobot robot;
    robot.expect(u"Done"_s, u"TRELAWN"_s); // a box without a title shows the program's
    showMessage(nullptr, u"Done"_s);
    robot.expect(u"Place  these bets?"_s, u"Bets"_s, Answer::Yes);
    QVERIFY(askYesNo(nullptr, u"Place  these bets?"_s, u"Bets"_s));
    robot.expect(u"Sure?"_s, u"TRELAWN"_s, Answer::No);
    QVERIFY(!askYesNo(nullptr, u"Sure?"_s));
    robot.expect(u"Clear?"_s, u"Bettor"_s, Answer::Ok);
    QVERIFY(askOkCancel(nullptr, u"Clear?"_s, u"Bettor"_s));
    robot.expect(u"Clear?"_s, u"TRELAWN"_s, Answer::Cancel);
    QVERIFY(!askOkCancel(nullptr, u"Clear?"_s));
    robot.expectInput(u"Drive?"_s, u"Start"_s, u"D"_s);
    QCOMPARE(askText(nullptr, u"Drive?"_s, u"Start"_s, u"C"_s), u"D"_s);
    robot.expectInput(u"Drive?"_s, u"Start"_s, QString());
    QCOMPARE(askText(nullptr, u"Drive?"_s, u"Start"_s, u"C"_s), QString());
    QVERIFY(robot.allCame());
}

void tst_prompts::escapeDeclines()
{
    for (const auto ask : {&askYesNo, &askOkCancel}) {
        QTimer::singleShot(
            0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
        QVERIFY(!ask(nullptr, u"?"_s, {}));
    }
}

void tst_prompts::plainText()
{
    const QString text = u"<b>Fish & Chips</b>  &x"_s;
    QTimer::singleShot(0, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        QCOMPARE(box->textFormat(), Qt::PlainText);
        QCOMPARE(box->text(), text);
        box->reject();
    });
    showMessage(nullptr, text);
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<QInputDialog *>(QApplication::activeModalWidget());
        QCOMPARE(dialog->windowTitle(), u"TRELAWN"_s);
        QCOMPARE(dialog->textValue(), u"C"_s);
        const auto labels = dialog->findChildren<QLabel *>();
        QCOMPARE(labels.size(), 1);
        QCOMPARE(labels.front()->text(), text);
        QCOMPARE(labels.front()->textFormat(), Qt::PlainText);
        dialog->accept();
    });
    QCOMPARE(askText(nullptr, text, {}, u"C"_s), u"C"_s);
}

void tst_prompts::trap()
{
    TestEvent event(false);
    BoxRobot robot;
    bool wentOn = false;
    // The box names the operation that failed: not the one around it, nor one that came after.
    const auto failing = [&] {
        try {
            labelled(event.session, u"Bets input"_s,
                     [] { throw FileError(ErrorNumber::PathNotFound); });
        } catch (const FileError &) {
            labelled(event.session, u"Horses input"_s, [] {});
            throw;
        }
        wentOn = true;
    };
    robot.expect(u"Path not found Bets input"_s, u"Bets input"_s);
    QVERIFY(!trapErrors(nullptr, event.session, ErrorStyle::DescriptionAndLabel, u"Bets output"_s,
                        failing));
    QCOMPARE(event.session.settings.operationLabel, u"Horses input"_s);
    QVERIFY(!wentOn);
    QVERIFY(trapErrors(nullptr, ErrorStyle::DescriptionAndLabel, [&] { wentOn = true; }));
    QVERIFY(wentOn && robot.allCame());
}

TRELAWN_TEST(tst_prompts)
#include "tst_prompts.moc"
