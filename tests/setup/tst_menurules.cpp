#include "kit/testkit.h"
#include "setup/menurules.h"

class tst_menurules : public QObject
{
    Q_OBJECT

private slots:
    void progress()
    {
        using enum MenuStep;
        Rows<RaceProgress, QString, MenuStep> rows;
        rows("new", {}, u"no horses yet"_s, Horses);
        rows("names before horses", {.bettors = 40}, u"no horses yet"_s, Horses);
        rows("a card", {.horses = 12}, u"12 horses, no bettors yet, no bets yet"_s, Bettors);
        rows("one of each", {.horses = 1, .bettors = 1, .bets = 1, .dollars = 2.5},
             u"1 horse, 1 bettor, 1 bet, $2.50"_s, Bet);
        rows("slips alone", {.horses = 2, .bets = 3, .dollars = 6},
             u"2 horses, no bettors yet, 3 bets, $6.00"_s, Bet);
        rows("multibets",
             {.horses = 12,
              .bettors = 40,
              .bets = 63,
              .dollars = 512,
              .multibets = 2,
              .multibetDollars = 10},
             u"12 horses, 40 bettors, 63 bets, $512.00, 2 multibets, $10.00"_s, Bet);
        rows("bets without a card", {.bets = 1, .dollars = 1},
             u"no horses yet, no bettors yet, 1 bet, $1.00"_s, Horses);
        rows("winners wait", {.horses = 12, .bets = 1, .settledAt = u"20:39"_s, .unpaid = 2},
             u"settled 20:39, 2 unpaid"_s, Pay);
        rows("over", {.settledAt = u"20:39"_s}, u"settled 20:39, all paid"_s, NextRace);
        for (const auto &[row, race, text, step] : rows) {
            QCOMPARE(progressText(race), text);
            QCOMPARE(nextStep(race, false), step);
            const bool comes = step == Horses || step == Bettors;
            QCOMPARE(nextStep(race, true), comes ? Transfer : step);
        }
    }
};

TRELAWN_TEST(tst_menurules)
#include "tst_menurules.moc"
