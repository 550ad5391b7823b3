#include "kit/printserver.h"
#include "kit/testkit.h"
#include "ui/printing.h"

// Slips on the way to a real print system: what it accepts, refuses, keeps and no longer knows, and
// what screens make of that.
class tst_printqueues : public QObject
{
    Q_OBJECT

    PrintServer m_server;

    static Slip slipOf(const QString &text)
    {
        Slip slip{u"Courier New"_s, 8};
        slip.addLine(text);
        return slip;
    }

    // "printed", "waiting" or the number of the error.
    static QString print(const QString &text)
    {
        bool waits = false;
        const int error = errorOf(
            [&] { waits = SlipPrinter().print(slipOf(text)) == SlipPrinter::Job::Waiting; });
        if (error != 0)
            return QString::number(error);
        return waits ? u"waiting"_s : u"printed"_s;
    }

private slots:
    void queues()
    {
        QCOMPARE(print(u"no default"_s), u"482"_s);
        const std::pair<QString, QString> queues[] = {{u"works"_s, u"printed"_s},
                                                      {u"refuses"_s, u"482"_s},
                                                      {u"paused"_s, u"waiting"_s},
                                                      {u"works"_s, u"printed"_s}};
        for (const auto &[queue, fate] : queues) {
            m_server.setDefaultQueue(queue);
            QCOMPARE(print("for "_L1 + queue), fate);
        }
        QCOMPARE(m_server.waitingJobs(u"paused"_s), 1);
        QCOMPARE(simplified(m_server.papers(2)), (QStringList{u"for works"_s, u"for works"_s}));
    }

    // The queue stops to accept jobs while copies are printed: the note counts those that came
    // through.
    void refusedAmongCopies()
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
        event.boxes.expect(u"482 Printer error"_s, u"Sheets"_s);
        const Printed printed = printCopies(
            event.navigator().window(), {event.session, event.navigator(), event.printer},
            {u"Sheets"_s, ErrorStyle::NumberAndDescription, u"Sheets printed: "_s},
            slipOf(u"sheet"_s), 5);
        m_server.run(u"cupsaccept"_s, {u"paused"_s});
        QVERIFY(!printed.isComplete);
        QCOMPARE(printed.note, u"Sheets printed: 2 of 5"_s);
        QCOMPARE(m_server.waitingJobs(u"paused"_s), waiting + 2);
    }

    // A list that must be seen is on paper or in its window, and the note says which.
    void lists()
    {
        const QString inWindow = u"The refund list is in its own window."_s;
        // Queue, whether a printer is attached, whether receipts print, the note.
        Rows<QString, bool, bool, QString> rows;
        rows("accepted", u"works"_s, true, true, u"Done"_s);
        rows("paused", u"paused"_s, true, true,
             u"Done The printer is paused: it prints when it is resumed."_s);
        rows("refused", u"refuses"_s, true, true, inWindow);
        rows("no printer", u"refuses"_s, false, false,
             u"Nothing was printed: no printer is attached. "_s + inWindow);
        rows("receipts off", u"works"_s, true, false,
             u"Nothing was printed: receipt printing is off. "_s + inWindow);
        for (const auto &[row, queue, attached, receipts, note] : rows) {
            m_server.setDefaultQueue(queue);
            TestEvent event(false);
            event.printer.setDestination({});
            event.session.settings.setReceiptPrinting(receipts);
            event.session.settings.printerAttached = attached;
            if (note == inWindow)
                event.boxes.expect(u"482 Printer error"_s, u"Refunds"_s);
            const Printed printed = printOrList(
                event.navigator().window(), {event.session, event.navigator(), event.printer},
                {u"Refunds"_s, ErrorStyle::NumberAndDescription, u"Done"_s, PrintGate::Receipts},
                slipOf(u"ANNA $5.00"_s), u"The refund list"_s);
            QCOMPARE(printed.note, note);
            QCOMPARE(printed.isComplete, !note.endsWith(inWindow));
            QCOMPARE(event.takeListing(),
                     printed.isComplete ? QStringList() : QStringList{u"ANNA $5.00"_s});
        }
    }

    void vanished()
    {
        m_server.setDefaultQueue(u"works"_s);
        m_server.run(u"lpadmin"_s, {u"-x"_s, u"works"_s});
        QCOMPARE(print(u"gone"_s), u"482"_s);
        m_server.setDefaultQueue(u"paused"_s);
        m_server.stop();
        QCOMPARE(print(u"no server"_s), u"482"_s);
    }
};

TRELAWN_TEST(tst_printqueues)
#include "tst_printqueues.moc"
