#include "help/helptext.h"
#include "kit/screentest.h"
#include "screens.h"

namespace {

const QString lossQuestion = u"Leave without saving the changed help text?"_s;
const QString helpPath = u"C:\\Trelawn\\Horsehelp.txt"_s;

} // namespace

// The guide: which text is shown, and that nobody's changes are lost.
class tst_frmhelpb : public ScreenTest
{
    Q_OBJECT

    // The text, on the screen or in a window beside it.
    QPlainTextEdit *guide()
    {
        const bool beside = !event->isOpen(u"frmhelpb"_s);
        return child<QPlainTextEdit>(beside ? event->navigator().window() : screen(), u"txthelp"_s);
    }
    QString lineOfCursor() { return guide()->textCursor().block().text(); }
    void openWith(const QByteArray &help)
    {
        event->write(helpPath, help);
        open(u"frmhelpb"_s);
    }

    // The help window that F1 in a window leads to.
    QWidget *pressF1(QWidget *from)
    {
        const bool active = QTest::qWaitFor([from] {
            from->window()->activateWindow();
            return QApplication::activeWindow() == from->window();
        });
        if (!active)
            qFatal("the window does not become active");
        QTest::keyClick(from->window(), Qt::Key_F1);
        QCoreApplication::processEvents();
        return child<QWidget>(event->navigator().window(), u"frmhelpb"_s);
    }

private slots:
    void init() { begin(); }

    // Every screen has a chapter, every line fits the paper.
    void shippedText()
    {
        for (const ScreenEntry &entry : allScreens())
            QVERIFY2(chapterLine(shippedHelp(), entry.title) >= 0, qPrintable(entry.title));
        for (const QString &line : shippedHelp().split(u'\n'))
            QVERIFY2(line.size() <= 78, qPrintable(line));
    }

    // Blank or unreadable, the file gives way to the shipped text.
    void textShown()
    {
        const QString own = u"Your own text: C:\\Trelawn\\Horsehelp.txt"_s;
        Rows<QByteArray, QString, QString> rows;
        rows("blank", "\r\n \r\n", shippedHelp(), {});
        rows("own", "Pay \xC3\xA9very bet\r\n", u"Pay évery bet\n"_s, own);
        rows("an older encoding", "Caf\xE9\r\n", u"Café\n"_s, own);
        for (const auto &[row, file, shown, note] : rows) {
            openWith(file);
            QCOMPARE(guide()->toPlainText(), shown);
            QCOMPARE(event->note(), note);
        }
        event->block(helpPath);
        expect(u"Path/File access error Help input"_s, u"Help input"_s);
        open(u"frmhelpb"_s);
        QCOMPARE(guide()->toPlainText(), shippedHelp());
    }

    void saves()
    {
        openWith("old\r\n");
        guide()->insertPlainText(u"Cash \"only\", please, é\n"_s);
        press(u"cmdsave"_s);
        QCOMPARE(event->read(helpPath), "Cash \"only\", please, \xC3\xA9\r\nold\r\n"_qba);
        open(u"frmhelpb"_s);
        QVERIFY(guide()->toPlainText().startsWith(u"Cash"_s));
        // A save that fails loses nothing.
        guide()->insertPlainText(u"new "_s);
        event->block(helpPath);
        expect(u"Path/File access error Help output"_s, u"Help output"_s);
        press(u"cmdsave"_s);
        QVERIFY(guide()->toPlainText().startsWith(u"new Cash"_s));
        QVERIFY(child<QLabel>(screen(), u"lblunsaved"_s)->isVisible());
    }

    void searches()
    {
        openWith("Alpha\r\nbeta\r\nalpha\r\n");
        const auto find = [&](const QString &wanted) {
            type(u"txtsearch"_s, wanted);
            QTest::keyClick(child<QWidget>(screen(), u"txtsearch"_s), Qt::Key_Return);
        };
        find(u"alpha"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QTest::keyClick(screen(), Qt::Key_F3);
        QCOMPARE(lineOfCursor(), u"alpha"_s);
        press(u"cmdfind"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QCOMPARE(event->note(), u"The search went on at the beginning."_s);
        find(u"gamma"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QCOMPARE(event->note(), u"\"gamma\" not found"_s);
        QVERIFY(!guide()->document()->isModified());
    }

    void prints()
    {
        const QByteArray longLine = QByteArray("word ").repeated(20) + "end";
        openWith("Title\r\n\r\n" + longLine + "\r\n" + QByteArray(200, 'x'));
        press(u"cmdprint"_s);
        const QStringList lines = slipText(event->slips.value(0));
        QCOMPARE(lines.mid(0, 2), (QStringList{u"Title"_s, {}}));
        QCOMPARE(lines.value(2) + u' ' + lines.value(3), QString::fromLatin1(longLine));
        QCOMPARE(lines.mid(4).join(QString()), QString(200, u'x'));
        for (const QString &line : lines)
            QVERIFY(line.size() <= 80);
    }

    void asksBeforeChangesAreLost()
    {
        open(u"frmmenub"_s);
        openWith("old\r\n");
        guide()->insertPlainText(u"x"_s);
        expect(lossQuestion, u"Help"_s, Answer::Cancel);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmhelpb"_s));
        expect(lossQuestion, u"Help"_s, Answer::Ok);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(event->read(helpPath), "old\r\n"_qba);
    }

    // What stands on a screen stays there, and the guide opens at the chapter of the window in use.
    void f1StandsBeside()
    {
        open(u"frmbettorsb"_s);
        type(u"txtbettorname"_s, u"HALF TYPED"_s);
        const QPointer<QWidget> window = pressF1(screen());
        QVERIFY(window->isWindow() && window->isVisible());
        QVERIFY(event->isOpen(u"frmbettorsb"_s));
        QCOMPARE(text(u"txtbettorname"_s), u"HALF TYPED"_s);
        QCOMPARE(lineOfCursor(), u"Bettor List"_s);
        QCOMPARE(pressF1(event->navigator().openBeside(u"frmlistb"_s)), window.data());
        QCOMPARE(lineOfCursor(), u"Bettor/Bets List"_s);

        // One guide at a time: the button brings the same window to the front, with what was typed.
        open(u"frmmenub"_s);
        guide()->insertPlainText(u"x"_s);
        press(u"cmdhelp"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        expect(lossQuestion, u"Help"_s, Answer::Cancel);
        QVERIFY(!window->close());
        expect(lossQuestion, u"Help"_s, Answer::Cancel);
        press(u"cmdexit"_s);
        QVERIFY(event->navigator().window()->isVisible());
        expect(lossQuestion, u"Help"_s, Answer::Ok);
        clickButton(window, u"cmdreturn"_s);
        QTRY_VERIFY(window.isNull());
    }
};

TRELAWN_TEST(tst_frmhelpb)
#include "tst_frmhelpb.moc"
