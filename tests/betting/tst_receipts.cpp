#include "betting/receipts.h"
#include "common/horses.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_receipts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void lines_data();
    void lines();
    void receipt();
    void receiptFontSize();
    void refund();

private:
    HorseTable m_horses;
    Settings m_settings;
};

void tst_receipts::init()
{
    m_horses.post(3) = {3, 0, u"3"_s, u"Secretariat"_s};
    m_horses.post(4) = {4, 0, u"12"_s, u"A Name Beyond Fifteen"_s};
    m_settings = {};
    m_settings.banner = u"Derby  Night"_s;
    m_settings.currentRace = 3;
}

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
    QFETCH(Bet, bet);
    QTEST(placedBetLine(m_horses, bet), "placed");
    QTEST(savedBetLine(m_horses, bet), "saved");
}

void tst_receipts::receipt()
{
    PriorBets prior{2, u"SMITH, JOHN"_s, {}, 0};
    prior.append({0, {2, 3, 1, 2}, savedBetLine(m_horses, {2, 3, 1, 2})});
    prior.append({1, {2, 4, 3, 1005}, placedBetLine(m_horses, {2, 4, 3, 1005})});
    m_settings.receiptFontSize = u"12"_s;
    const Slip slip = betReceipt(m_settings, prior);
    QCOMPARE(
        slipText(slip),
        QStringList({u"Derby  Night   Race3"_s, u" "_s, u"BET SUMMARY FOR "_s, u"SMITH, JOHN"_s,
                     u" "_s, u"HORSE              BET"_s, u"3  Secretariat     $02.00 Win  "_s,
                     u"12 A Name Beyond F $1,005.00 Show"_s, u" "_s, u"TOTAL BETS $1007.00"_s}));
    QCOMPARE(slip.fontName, u"Courier New"_s);
    QCOMPARE(slip.pointSize, 12.0);
    QVERIFY(slip.bold);
}

void tst_receipts::receiptFontSize()
{
    QCOMPARE(betReceipt(m_settings, {}).pointSize, 8.0);
    QCOMPARE(m_settings.receiptFontSize, u"8"_s);
}

void tst_receipts::refund()
{
    const DeletedBets deleted{false, {u"3  Secretariat     $05.00 Win  "_s}, 1005.25F};
    const Slip slip = priorBetsRefund(m_settings, u"SMITH, JOHN"_s, deleted);
    QCOMPARE(slipText(slip), QStringList({u"Refund Bets"_s, u"SMITH, JOHN for  Race3"_s, u" "_s,
                                          u"3  Secretariat     $05.00 Win  "_s, u" "_s,
                                          u"Total Refund $1,005.25"_s}));
    QCOMPARE(slip.fontName, u"MS Sans Serif"_s);
    QCOMPARE(slip.pointSize, 8.0);
    QVERIFY(!slip.bold);
}

TRELAWN_TEST_MAIN(tst_receipts)
#include "tst_receipts.moc"
