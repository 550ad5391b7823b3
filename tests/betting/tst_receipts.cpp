#include "betting/receipts.h"
#include "common/event/horses.h"
#include "kit/testkit.h"

class tst_receipts : public QObject
{
    Q_OBJECT

private slots:
    void lines()
    {
        HorseTable horses;
        horses.post(3) = {3, 0, u"3"_s, u"Secretariat"_s};
        horses.post(4) = {4, 0, u"12"_s, u"A Name Beyond Fifteen"_s};
        // Only a placed bet's name is cut; the last post is not on the card.
        const std::tuple<Bet, QString, QString> bets[] = {
            {{1, 3, 1, 5},
             u" 3 Secretariat     $05.00 Win"_s,
             u"3  Secretariat     $05.00 Win  "_s},
            {{1, 4, 2, 1234.5F},
             u"12 A Name Beyond F $1,234.50 Place"_s,
             u"12 A Name Beyond Fifteen $1,234.50 Place"_s},
            {{1, 30, 3, 2},
             u"                   $02.00 Show"_s,
             u"                   $02.00 Show "_s}};
        for (const auto &[bet, placed, saved] : bets) {
            QCOMPARE(placedBetLine(horses, bet), placed);
            QCOMPARE(savedBetLine(horses, bet), saved);
        }
    }

    void receiptTotalAndFont()
    {
        Settings settings;
        const PriorBets prior{2, u"SMITH"_s, {}, 1007};
        QCOMPARE(slipText(betReceipt(settings, prior)).last(), u"TOTAL BETS $1007.00"_s);
        QCOMPARE(settings.receiptFontSize, u"8"_s); // an empty size becomes 8
        settings.receiptFontSize = u"12"_s;
        QCOMPARE(betReceipt(settings, prior).pointSize, 12.0);
    }
};

TRELAWN_TEST(tst_receipts)
#include "tst_receipts.moc"
