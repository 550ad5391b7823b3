#include "help/helptext.h"
#include "kit/testkit.h"
#include "screens.h"

namespace {

const QString lossQuestion = u"Leave without saving the changed help text?"_s;
const QString helpPath = u"C:\\Trelawn\\Horsehelp.txt"_s;

} // namespace

// The guide: which text is shown, and that nobody's changes are lost.
class tst_frmhelpb : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEvent> event;
    QWidget *screen = nullptr;

    QPlainTextEdit *text() { return child<QPlainTextEdit>(screen, u"txthelp"_s); }
    QString lineOfCursor() { return text()->textCursor().block().text(); }
    void openWith(const QByteArray &help)
    {
        event->write(helpPath, help);
        screen = event->open(u"frmhelpb"_s);
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
    void init() { event = std::make_unique<TestEvent>(); }
    void cleanup() { event.reset(); }

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
            QCOMPARE(text()->toPlainText(), shown);
            QCOMPARE(event->note(), note);
        }
        event->block(helpPath);
        event->boxes.expect(u"Path/File access error Help input"_s, u"Help input"_s);
        screen = event->open(u"frmhelpb"_s);
        QCOMPARE(text()->toPlainText(), shippedHelp());
    }

    void saves()
    {
        openWith("old\r\n");
        text()->insertPlainText(u"Cash \"only\", please, é\n"_s);
        clickButton(screen, u"cmdsave"_s);
        QCOMPARE(event->read(helpPath), "Cash \"only\", please, \xC3\xA9\r\nold\r\n"_qba);
        screen = event->open(u"frmhelpb"_s);
        QVERIFY(text()->toPlainText().startsWith(u"Cash"_s));
        // A save that fails loses nothing.
        text()->insertPlainText(u"new "_s);
        event->block(helpPath);
        event->boxes.expect(u"Path/File access error Help output"_s, u"Help output"_s);
        clickButton(screen, u"cmdsave"_s);
        QVERIFY(text()->toPlainText().startsWith(u"new Cash"_s));
        QVERIFY(child<QLabel>(screen, u"lblunsaved"_s)->isVisible());
    }

    void searches()
    {
        openWith("Alpha\r\nbeta\r\nalpha\r\n");
        const auto find = [&](const QString &wanted) {
            typeInto(screen, u"txtsearch"_s, wanted);
            QTest::keyClick(child<QWidget>(screen, u"txtsearch"_s), Qt::Key_Return);
        };
        find(u"alpha"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QTest::keyClick(screen, Qt::Key_F3);
        QCOMPARE(lineOfCursor(), u"alpha"_s);
        clickButton(screen, u"cmdfind"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QCOMPARE(event->note(), u"The search went on at the beginning."_s);
        find(u"gamma"_s);
        QCOMPARE(lineOfCursor(), u"Alpha"_s);
        QCOMPARE(event->note(), u"\"gamma\" not found"_s);
        QVERIFY(!text()->document()->isModified());
    }

    void prints()
    {
        const QByteArray longLine = QByteArray("word ").repeated(20) + "end";
        openWith("Title\r\n\r\n" + longLine + "\r\n" + QByteArray(200, 'x'));
        clickButton(screen, u"cmdprint"_s);
        const QStringList lines = slipText(event->slips.value(0));
        QCOMPARE(lines.mid(0, 2), (QStringList{u"Title"_s, {}}));
        QCOMPARE(lines.value(2) + u' ' + lines.value(3), QString::fromLatin1(longLine));
        QCOMPARE(lines.mid(4).join(QString()), QString(200, u'x'));
        for (const QString &line : lines)
            QVERIFY(line.size() <= 80);
    }

    void asksBeforeChangesAreLost()
    {
        event->open(u"frmmenub"_s);
        openWith("old\r\n");
        text()->insertPlainText(u"x"_s);
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Cancel);
        event->navigator().window()->close();
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Cancel);
        clickButton(screen, u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmhelpb"_s));
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Ok);
        clickButton(screen, u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(event->read(helpPath), "old\r\n"_qba);
    }

    void buttonLeadsBack()
    {
        for (const QString &opener : {u"frmmenub"_s, u"frminitb"_s}) {
            clickButton(event->open(opener), u"cmdhelp"_s);
            QCoreApplication::processEvents();
            screen = event->current();
            QCOMPARE(lineOfCursor(), event->navigator().titleOf(opener));
            clickButton(screen, u"cmdreturn"_s);
            QVERIFY(event->isOpen(opener));
        }
    }

    // What stands on a screen stays there, and the guide opens at the chapter of the window in use.
    void f1StandsBeside()
    {
        QWidget *bettors = event->open(u"frmbettorsb"_s);
        typeInto(bettors, u"txtbettorname"_s, u"HALF TYPED"_s);
        screen = pressF1(bettors);
        QVERIFY(screen->isWindow() && screen->isVisible());
        QCOMPARE(event->current(), bettors);
        QCOMPARE(fieldText(bettors, u"txtbettorname"_s), u"HALF TYPED"_s);
        QCOMPARE(lineOfCursor(), u"Bettor List"_s);
        QCOMPARE(pressF1(event->navigator().openBeside(u"frmlistb"_s)), screen);
        QCOMPARE(lineOfCursor(), u"Bettor/Bets List"_s);

        // One guide at a time: the button brings the same window to the front, with what was typed.
        QWidget *menu = event->open(u"frmmenub"_s);
        text()->insertPlainText(u"x"_s);
        clickButton(menu, u"cmdhelp"_s);
        QCOMPARE(event->current(), menu);
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Cancel);
        QVERIFY(!screen->close());
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Cancel);
        clickButton(menu, u"cmdexit"_s);
        QVERIFY(event->navigator().window()->isVisible());
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Ok);
        const QPointer<QWidget> guide = screen;
        clickButton(screen, u"cmdreturn"_s);
        QTRY_VERIFY(guide.isNull());
    }
};

TRELAWN_TEST(tst_frmhelpb)
#include "tst_frmhelpb.moc"
