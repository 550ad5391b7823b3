#include "common/files/fileerror.h"
#include "kit/printserver.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"
#include "ui/printing.h"

using namespace Qt::StringLiterals;

// Slips on the way to a real print system: what it accepts, refuses, keeps and no longer knows, and
// what screens make of that.
class tst_printqueues : public QObject
{
    Q_OBJECT

private slots:
    void queues();
    void refusedAmongCopies();
    void lists_data();
    void lists();
    void vanished();

private:
    static Slip slipOf(const QString &text)
    {
        Slip slip{u"Courier New"_s, 8};
        slip.addLine(text);
        return slip;
    }

    // "printed", "waiting" or the number of the error.
    static QString print(const QString &text)
    {
        try {
            const bool waits = SlipPrinter().print(slipOf(text)) == SlipPrinter::Job::Waiting;
            return waits ? u"waiting"_s : u"printed"_s;
        } catch (const FileError &error) {
            return QString::number(int(error.number()));
        }
    }

    PrintServer m_server;
};

void tst_printqueues::queues()
{
    QCOMPARE(print(u"no default"_s), u"482"_s);
    m_server.setDefaultQueue(u"works"_s);
    QCOMPARE(print(u"first"_s), u"printed"_s);
    m_server.setDefaultQueue(u"refuses"_s);
    QCOMPARE(print(u"refused"_s), u"482"_s);
    m_server.setDefaultQueue(u"paused"_s);
    QCOMPARE(print(u"kept"_s), u"waiting"_s);
    QCOMPARE(m_server.waitingJobs(u"paused"_s), 1);
    m_server.setDefaultQueue(u"works"_s); // the refusal before leaves nothing behind
    QCOMPARE(print(u"second"_s), u"printed"_s);
    const QStringList papers = m_server.papers(2);
    QCOMPARE(papers.size(), 2);
    QCOMPARE(papers[0].trimmed(), u"first"_s);
    QCOMPARE(papers[1].trimmed(), u"second"_s);
}

// The queue stops to accept jobs while copies are printed: the note counts those that came through.
void tst_printqueues::refusedAmongCopies()
{
    TestEvent event(false);
    m_server.setDefaultQueue(u"paused"_s);
    const qsizetype waiting = m_server.waitingJobs(u"paused"_s);
    SlipPrinter real;
    int copies = 0;
    event.printer.setDestination([&](const Slip &slip) {
        if (++copies == 3)
            m_server.run(u"cupsreject"_s, {u"paused"_s});
        real.print(slip);
    });
    BoxRobot robot;
    robot.expect(u"482 Printer error"_s, u"Sheets"_s);
    const PrintTask task{u"Sheets"_s, ErrorStyle::NumberAndDescription, u"Sheets printed: "_s};
    const Printed printed =
        printCopies(event.navigator().window(), {event.session, event.navigator(), event.printer},
                    task, slipOf(u"sheet"_s), 5);
    m_server.run(u"cupsaccept"_s, {u"paused"_s});
    QVERIFY(robot.allCame());
    QVERIFY(!printed.isComplete);
    QCOMPARE(printed.note, u"Sheets printed: 2 of 5"_s);
    QCOMPARE(m_server.waitingJobs(u"paused"_s), waiting + 2);
}

void tst_printqueues::lists_data()
{
    QTest::addColumn<QString>("queue");
    QTest::addColumn<bool>("attached");
    QTest::addColumn<bool>("receipts");
    QTest::addColumn<bool>("box");
    QTest::addColumn<QString>("note"); // begins the note of the list window when there is no paper
    const QString paused = u"Done The printer is paused: it prints when it is resumed."_s;
    const QString none = u"Nothing was printed: no printer is attached. "_s;
    const QString off = u"Nothing was printed: receipt printing is off. "_s;
    QTest::newRow("accepted") << u"works"_s << true << true << false << u"Done"_s;
    QTest::newRow("paused") << u"paused"_s << true << true << false << paused;
    QTest::newRow("refused") << u"refuses"_s << true << true << true << QString();
    QTest::newRow("no printer") << u"refuses"_s << false << false << false << none;
    QTest::newRow("receipts off") << u"works"_s << true << false << false << off;
}

// A list that must be seen is on paper or in its window, and the note says which.
void tst_printqueues::lists()
{
    QFETCH(QString, queue);
    QFETCH(bool, attached);
    QFETCH(bool, receipts);
    QFETCH(bool, box);
    QFETCH(QString, note);
    const bool onPaper = note.startsWith("Done"_L1);
    m_server.setDefaultQueue(queue);
    TestEvent event(false);
    event.printer.setDestination({});
    event.session.settings.setReceiptPrinting(receipts);
    event.session.settings.printerAttached = attached;
    BoxRobot robot;
    if (box)
        robot.expect(u"482 Printer error"_s, u"Refunds"_s);
    const Printed printed = printOrList(
        event.navigator().window(), {event.session, event.navigator(), event.printer},
        {u"Refunds"_s, ErrorStyle::NumberAndDescription, u"Done"_s, PrintGate::Receipts},
        slipOf(u"ANNA $5.00"_s), u"The refund list"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(printed.isComplete, onPaper);
    QCOMPARE(printed.note,
             onPaper ? note : QString(note + u"The refund list is in its own window."_s));
    auto *list = event.navigator().window()->findChild<QWidget *>(u"frmlistb"_s);
    QCOMPARE(list == nullptr, onPaper);
    if (list)
        QCOMPARE(listTexts(list, u"List1"_s), QStringList{u"ANNA $5.00"_s});
}

void tst_printqueues::vanished()
{
    m_server.setDefaultQueue(u"works"_s);
    m_server.run(u"lpadmin"_s, {u"-x"_s, u"works"_s});
    QCOMPARE(print(u"gone"_s), u"482"_s);
    m_server.setDefaultQueue(u"paused"_s);
    m_server.stop();
    QCOMPARE(print(u"no server"_s), u"482"_s);
}

TRELAWN_TEST(tst_printqueues)
#include "tst_printqueues.moc"
