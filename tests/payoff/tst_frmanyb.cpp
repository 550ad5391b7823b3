#include "kit/screentest.h"

// The calculator for slips bet under AnyBettor.
class tst_frmanyb : public ScreenTest
{
    Q_OBJECT

private slots:
    // Payoffs of $3.20 and so on per $1; no show money on the show horse.
    void init()
    {
        begin(false);
        RacePayoffs &payoffs = event->session.payoffs;
        payoffs.race = 1;
        payoffs.finishers = {4, 2, 7};
        payoffs.perDollar[Combination::WinWin] = 3.2F;
        payoffs.perDollar[Combination::WinPlace] = 2.5F;
        payoffs.perDollar[Combination::WinShow] = 1.1F;
        payoffs.perDollar[Combination::PlacePlace] = 2;
        payoffs.perDollar[Combination::PlaceShow] = 1.6F;
        for (const int post : {2, 4, 7})
            event->session.horses.post(post).name = u"HORSE %1"_s.arg(post);
        open(u"frmanyb"_s);
    }

    // The amounts: win, place, show on the winner; place, show; show. The totals: of the horses and
    // of the slip.
    void slip()
    {
        Rows<QStringList, QString> rows;
        rows("every field", {u"1"_s, u"2"_s, u"3"_s, u"10"_s, u"20"_s, u"0"_s},
             u"$11.50 $52.00 $0.00 $63.50"_s);
        rows("text counts as nothing", {u""_s, u"x"_s, u"1.50"_s, u""_s, u""_s, u"5"_s},
             u"$1.65 $0.00 $0.00 $1.65"_s);
        rows("$48.375 in four decimals, though the product is a little less",
             {u""_s, u""_s, u"43.9772734"_s, u""_s, u""_s, u""_s}, u"$48.38 $0.00 $0.00 $48.38"_s);
        const QString fields[] = {u"txtwinwin"_s,     u"txtwinplace"_s,  u"txtwinshow"_s,
                                  u"txtplaceplace"_s, u"txtplaceshow"_s, u"txtshowshow"_s};
        for (const auto &[row, amounts, totals] : rows) {
            for (int i = 0; i < 6; ++i)
                type(fields[i], amounts[i]);
            press(u"cmdcalc"_s);
            QCOMPARE(text(u"txtwintotal"_s) + u' ' + text(u"txtplacetotal"_s) + u' '
                         + text(u"txtshowtotal"_s) + u' ' + text(u"txttotaltotal"_s),
                     totals);
        }
        QCOMPARE(text(u"txtwinhorse"_s) + text(u"txtplacehorse"_s) + text(u"txtshowhorse"_s),
                 u"HORSE 4HORSE 2HORSE 7"_s);
        event->session.payoffs = {}; // the payoffs as they are now
        press(u"cmdcalc"_s);
        QCOMPARE(text(u"txttotaltotal"_s) + text(u"txtwinhorse"_s), u"$0.00"_s);
    }

    // Two people; the first with two slips, rounded together.
    void people()
    {
        event->session.settings.roundingIndex = 5;
        press(u"cmdclear"_s);
        QCOMPARE(text(u"txtfactor"_s), u"1.00"_s);
        for (const auto &bet : {u"1"_s, u"2"_s}) {
            calculate(bet);
            press(u"cmdadd"_s);
        }
        press(u"cmdadd"_s); // the same slip does not count twice
        QCOMPARE(text(u"txttotalbet"_s) + text(u"txttotaldue"_s), u"$9.60$10.00"_s);
        press(u"cmdpay"_s);
        for (const auto &field :
             {u"txttotalbet"_s, u"txttotaldue"_s, u"txtwintotal"_s, u"txttotaltotal"_s})
            QCOMPARE(text(field), u"$0.00"_s);
        calculate(u"3"_s);
        press(u"cmdadd"_s);
        press(u"cmdpay"_s);
        QCOMPARE(text(u"txttotalpaid"_s) + text(u"txtpaidr"_s), u"$19.20$20.00"_s);
        press(u"cmdclear"_s);
        QCOMPARE(text(u"txttotalpaid"_s) + text(u"txtpaidr"_s), u"$0.00$0.00"_s);
    }

private:
    void calculate(const QString &winOnWinner)
    {
        type(u"txtwinwin"_s, winOnWinner);
        press(u"cmdcalc"_s);
    }
};

TRELAWN_TEST(tst_frmanyb)
#include "tst_frmanyb.moc"
