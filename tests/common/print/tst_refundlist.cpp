#include "common/print/refundlist.h"
#include "kit/testkit.h"

// Each case is the whole list, line by line, as it stands on paper.
class tst_refundlist : public QObject
{
    Q_OBJECT

private slots:
    void wholeList()
    {
        const QString smith = u"SMITH-JOHN                  "_s;
        const QStringList head{
            u"REFUND BETS ON SHAM"_s, {}, u"Bettor Name                  Amount"_s, {}};
        const BettorTable bettors =
            BettorTable::parse("1,\"AnyBettor\"\r\n10,\"JONES-AMY\"\r\n2,\"SMITH-JOHN\"\r\n", 100);
        Rows<QByteArray, QStringList> rows;
        rows("bettors in number order, each one's bets summed",
             "10,3,1,2.00\r\n2,3,2,1000\r\n10,3,3,.5\r\n2,3,1,234.5\r\n",
             {smith + u"$1,234.50"_s, u"JONES-AMY                   $2.50"_s});
        rows("bets that sum to nothing give no line",
             "2,3,1,5.00\r\n10,3,1,1.00\r\n2,3,2,-5.00\r\n",
             {u"JONES-AMY                   $1.00"_s});
        rows("a number that left the list keeps its money", "77,3,1,4.00\r\n1.5,3,1,3.00\r\n",
             {u"1.5 Bad Bettor Number       $3.00"_s, u"77 Bad Bettor Number        $4.00"_s});
        rows("damaged lines hold no bet", "2,3,1\r\n2,\"3,1,4.00\r\n2,3,1,4.00\r\n",
             {smith + u"$4.00"_s});
        for (const auto &[row, bets, refunds] : rows) {
            RefundList list;
            list.titles = QStringList{head.first()};
            list.heading = bettorRefundHeading();
            list.refunds =
                bettorRefunds(totalsByBettor(parseBets(bets.toStdString()),
                                             [](const BetRow &bet) { return bet.bet.post == 3; }),
                              bettors);
            const Slip slip = refundSlip(list);
            QCOMPARE(slipText(slip), head + refunds);
            QCOMPARE(slip.headingLines, head.size()); // repeated on each page
            QVERIFY(slip.fontName == u"MS Sans Serif"_s && slip.pointSize == 8 && !slip.bold);
            list.closing = u"TOTAL BETS $9.00"_s;
            QCOMPARE(slipText(refundSlip(list)), head + refunds + QStringList({{}, list.closing}));
        }
    }
};

TRELAWN_TEST(tst_refundlist)
#include "tst_refundlist.moc"
