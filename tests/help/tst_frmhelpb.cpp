#include "help/helptext.h"
#include "kit/testkit.h"
#include "screens.h"

namespace {

const QString lossQuestion = u"Leave without saving the changed help text?"_s;

} // namespace

// The guide: which text is shown, and that nobody's changes are lost.
class tst_frmhelpb : public QObject
{
    Q_OBJECT

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
        const std::pair<QByteArray, QString> files[] = {
            {"\r\n \r\n", shippedHelp()},
            {"Our rules\r\nPay \xC3\xA9very bet\r\n", u"Our rules\nPay évery bet\n"_s},
            {"Caf\xE9\r\n", u"Café\n"_s}}; // an older encoding
        for (const auto &[file, shown] : files) {
            writeHelp(file);
            screen = event->open(u"frmhelpb"_s);
            QCOMPARE(text()->toPlainText(), shown);
            QCOMPARE(labelText(screen, u"lblnote"_s),
                     shown == shippedHelp() ? QString()
                                            : u"Your own text: C:\\Trelawn\\Horsehelp.txt"_s);
        }
        QVERIFY(QFile::remove(helpPath()) && QDir().mkpath(helpPath()));
        event->boxes.expect(u"Path/File access error Help input"_s, u"Help input"_s);
        screen = event->open(u"frmhelpb"_s);
        QCOMPARE(text()->toPlainText(), shippedHelp());
    }

    void savesAndShowsAgain()
    {
        screen = event->open(u"frmhelpb"_s);
        text()->setPlainText(u"HOUSE RULES\n===========\nCash \"only\", please, é\n"_s);
        text()->document()->setModified(true);
        clickButton(screen, u"cmdsave"_s);
        QCOMPARE(savedHelp(),
                 "HOUSE RULES\r\n===========\r\nCash \"only\", please, \xC3\xA9\r\n"_qba);
        screen = event->open(u"frmhelpb"_s);
        QVERIFY(text()->toPlainText().startsWith(u"HOUSE RULES\n"_s));
    }

    void failedSaveLosesNothing()
    {
        writeHelp("old\r\n");
        screen = event->open(u"frmhelpb"_s);
        text()->insertPlainText(u"new "_s);
        QVERIFY(QFile::remove(helpPath()) && QDir().mkpath(helpPath()));
        event->boxes.expect(u"Path/File access error Help output"_s, u"Help output"_s);
        clickButton(screen, u"cmdsave"_s);
        QCOMPARE(text()->toPlainText(), u"new old\n"_s);
        QVERIFY(child<QLabel>(screen, u"lblunsaved"_s)->isVisible());
    }

    void searches()
    {
        writeHelp("Alpha\r\nbeta\r\nalpha\r\n");
        screen = event->open(u"frmhelpb"_s);
        const auto line = [this] { return text()->textCursor().blockNumber(); };
        find(u"alpha"_s);
        QCOMPARE(line(), 0);
        QTest::keyClick(screen, Qt::Key_F3);
        QCOMPARE(line(), 2);
        clickButton(screen, u"cmdfind"_s);
        QCOMPARE(line(), 0);
        QCOMPARE(labelText(screen, u"lblnote"_s), u"The search went on at the beginning."_s);
        find(u"gamma"_s);
        QCOMPARE(line(), 0);
        QCOMPARE(labelText(screen, u"lblnote"_s), u"\"gamma\" not found"_s);
        QVERIFY(!text()->document()->isModified());
    }

    void prints()
    {
        const QByteArray longLine = QByteArray("word ").repeated(20) + "end";
        writeHelp("Title\r\n\r\n" + longLine + "\r\n" + QByteArray(200, 'x'));
        screen = event->open(u"frmhelpb"_s);
        clickButton(screen, u"cmdprint"_s);
        QCOMPARE(event->slips.size(), 1);
        const QStringList lines = slipText(event->slips.first());
        QCOMPARE(lines.mid(0, 2), (QStringList{u"Title"_s, {}}));
        QCOMPARE(lines[2] + u' ' + lines[3], QString::fromLatin1(longLine));
        QCOMPARE(lines.mid(4).join(QString()), QString(200, u'x'));
        for (const QString &line : lines)
            QVERIFY(line.size() <= 80);
        event->session.settings.printerAttached = false;
        clickButton(screen, u"cmdprint"_s);
        QCOMPARE(event->slips.size(), 1);
        QCOMPARE(labelText(screen, u"lblnote"_s),
                 u"Nothing was printed: no printer is attached."_s);
    }

    void asksBeforeChangesAreLost()
    {
        event->open(u"frmmenub"_s);
        screen = event->open(u"frmhelpb"_s);
        text()->insertPlainText(u"x"_s);
        for (const bool byCloseBox : {false, true}) {
            event->boxes.expect(lossQuestion, u"Help"_s, Answer::Cancel);
            if (byCloseBox)
                event->navigator().window()->close();
            else
                clickButton(screen, u"cmdreturn"_s);
            QCOMPARE(event->navigator().currentName(), u"frmhelpb"_s);
        }
        event->boxes.expect(lossQuestion, u"Help"_s, Answer::Ok);
        clickButton(screen, u"cmdreturn"_s);
        QCOMPARE(event->navigator().currentName(), u"frmmenub"_s);
        QCOMPARE(savedHelp(), QByteArray());
    }

    void buttonLeadsBack()
    {
        for (const QString &opener : {u"frmmenub"_s, u"frminitb"_s}) {
            event->session.settings.started = true;
            clickButton(event->open(opener), u"cmdhelp"_s);
            QCoreApplication::processEvents();
            screen = event->current();
            QCOMPARE(text()->textCursor().block().text(), event->navigator().titleOf(opener));
            clickButton(screen, u"cmdreturn"_s);
            QCOMPARE(event->navigator().currentName(), opener);
        }
    }

    // What stands on a screen stays there, and the guide opens at the chapter of the window in use.
    void f1StandsBeside()
    {
        QWidget *bettors = event->open(u"frmbettorsb"_s);
        typeInto(bettors, u"txtbettorname"_s, u"HALF TYPED"_s);
        screen = pressF1(bettors);
        QVERIFY(screen && screen->isWindow() && screen->isVisible());
        QCOMPARE(event->current(), bettors);
        QCOMPARE(fieldText(bettors, u"txtbettorname"_s), u"HALF TYPED"_s);
        QCOMPARE(text()->textCursor().block().text(), u"Bettor List"_s);

        QWidget *list = event->navigator().openBeside(u"frmlistb"_s);
        QCOMPARE(pressF1(list), screen);
        QCOMPARE(text()->textCursor().block().text(), u"Bettor/Bets List"_s);

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

private:
    QString helpPath() const
    {
        return event->session.paths.toHost(u"C:\\Trelawn\\Horsehelp.txt"_s);
    }
    void writeHelp(const QByteArray &bytes)
    {
        QFile file(helpPath());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QByteArray savedHelp() const
    {
        QFile file(helpPath());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QPlainTextEdit *text() { return child<QPlainTextEdit>(screen, u"txthelp"_s); }

    // The help window that F1 in a window leads to, or null.
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
        const auto beside = event->navigator().window()->findChildren<QWidget *>(u"frmhelpb"_s);
        return beside.isEmpty() ? nullptr : beside.first();
    }

    void find(const QString &wanted)
    {
        typeInto(screen, u"txtsearch"_s, wanted);
        QTest::keyClick(child<QWidget>(screen, u"txtsearch"_s), Qt::Key_Return);
    }

    std::unique_ptr<TestEvent> event;
    QWidget *screen = nullptr;
};

TRELAWN_TEST(tst_frmhelpb)
#include "tst_frmhelpb.moc"
