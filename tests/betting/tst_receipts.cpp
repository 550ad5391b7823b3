#include "betting/receipts.h"
#include "common/horses.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_receipts : public QObject
{
    Q_OBJECT

private slots:
    void lines_data();
    void lines();
    void receiptTotalAndFont();
    void refund();
};

void tst_receipts::lines_data()
{
    QTest::addColumn<Bet>("bet");
    QTest::addColumn<QString>("placed");
    QTest::addColumn<QString>("saved");
    QTest::newRow("five dollars to win: leading blank, two digits")
        << Bet{1, 3, 1, 5} << u" 3 Secretariat     $05.00 Win"_s
        << u"3  Secretariat     $05.00 Win  "_s;
    QTest::newRow("two-character number; only a placed bet's name is cut")
        << Bet{1, 4, 2, 1234.5F} << u"12 A Name Beyond F $1,234.50 Place"_s
        << u"12 A Name Beyond Fifteen $1,234.50 Place"_s;
    QTest::newRow("a post that is not on the card")
        << Bet{1, 30, 3, 2} << u"                   $02.00 Show"_s
        << u"                   $02.00 Show "_s;
}

void tst_receipts::lines()
{
    HorseTable horses;
    horses.post(3) = {3, 0, u"3"_s, u"Secretariat"_s};
    horses.post(4) = {4, 0, u"12"_s, u"A Name Beyond Fifteen"_s};
    QFETCH(Bet, bet);
    QTEST(placedBetLine(horses, bet), "placed");
    QTEST(savedBetLine(horses, bet), "saved");
}

void tst_receipts::receiptTotalAndFont()
{
    Settings settings;
    const PriorBets prior{2, u"SMITH"_s, {}, 1007};
    QCOMPARE(slipText(betReceipt(settings, prior)).last(), u"TOTAL BETS $1007.00"_s);
    QCOMPARE(settings.receiptFontSize, u"8"_s); // an empty size becomes 8
    settings.receiptFontSize = u"12"_s;
    QCOMPARE(betReceipt(settings, prior).pointSize, 12.0);
}

void tst_receipts::refund()
{
    Settings settings;
    settings.currentRace = 3;
    const DeletedBets deleted{false, {u"3  Secretariat     $05.00 Win  "_s}, 1005.25F};
    const Slip slip = priorBetsRefund(settings, u"SMITH, JOHN"_s, deleted);
    QCOMPARE(slipText(slip), QStringList({u"Refund Bets"_s, u"SMITH, JOHN for  Race3"_s, u" "_s,
                                          u"3  Secretariat     $05.00 Win  "_s, u" "_s,
                                          u"Total Refund $1,005.25"_s}));
    QVERIFY(slip.fontName == u"MS Sans Serif"_s && slip.pointSize == 8 && !slip.bold);
}

TRELAWN_TEST_MAIN(tst_receipts)
#include "tst_receipts.moc"
