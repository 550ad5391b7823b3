#include "common/event/cashjournal.h"
#include "multibets/guide.h"
#include "multibets/multiraces.h"

// What leads the operator through a multibet.
class tst_guide : public MultibetTest
{
    Q_OBJECT

private slots:
    void nextStepAndCost()
    {
        using Posts = std::array<QList<int>, 3>;
        Rows<QString, int, Posts, QString, int, double, QString, QString> rows;
        rows("nothing", {}, 0, {}, {}, 0, 0, u"Choose a race"_s, {});
        rows("race", {}, 3, {}, {}, 0, 0, u"Choose a bet type"_s, {});
        rows("first", u"EX"_s, 3, {}, {}, 0, 0, u"Choose a first horse on line 1"_s, {});
        rows("second", u"Q"_s, 3, {{{4}}}, {}, 0, 0, u"Choose a second horse on line 2"_s, {});
        rows("third", u"T"_s, 3, {{{4}, {7}}}, {}, 2, 2, u"Choose a third horse on line 3"_s, {});
        rows("next race", u"P3"_s, 3, {{{4}}}, {}, 2, 2, u"Choose the winner of Race4 on line 2"_s,
             {});
        rows("no next race", u"DD"_s, 12, {{{4}}}, {}, 2, 2,
             u"Choose another bet type: there are not enough races left"_s, {});
        rows("one box", u"EX"_s, 3, {{{4}, {7}}}, u"1"_s, 2, 2, u"Box another line, or none"_s, {});
        rows("bettor", u"EX"_s, 3, {{{4}, {7}}}, {}, 0, 0, u"Choose a bettor"_s,
             u"1 combination"_s);
        rows("amount", u"EX"_s, 3, {{{4}, {7, 8}}}, {}, 2, 0, u"Click the amount of a single bet"_s,
             u"2 combinations"_s);
        rows("preview", u"T"_s, 3, {{{4}, {7}, {1}}}, u"123"_s, 2, 2, u"Preview the bet"_s,
             u"6 combinations at $2.00: $12.00"_s);
        for (const auto &[row, type, race, posts, boxes, bettor, stake, step, cost] : rows) {
            EntryProgress progress{{type, posts, {}, stake, bettor}, race, u"ANN"_s};
            for (int line = 0; line < 3; ++line)
                progress.entry.boxed[size_t(line)] = boxes.contains(QString::number(line + 1));
            QCOMPARE(nextStep(progress), step);
            QCOMPARE(costText(progress), cost);
        }
    }

    // The screen says it while cells are marked, and which horse a post number is.
    void onTheScreens()
    {
        beginMultibets();
        event->write(u"Horses Race3"_s, horseRecords(cardOf({{3, 0, u"2"_s, u"SECOND WIND"_s},
                                                             {5, 0, u"1A"_s, u"SEA HERO"_s}})));
        open(u"frmmulti"_s);
        press(u"optrace_3"_s);
        press(u"cmdexacta"_s);
        select(u"lstentries"_s, u"ANN"_s);
        markPosts({{3}, {5}});
        clickCell(screen(), u"txtbetamt"_s, 2);
        QCOMPARE(label(u"lblguide"_s), u"Exacta in Race3 for ANN: Preview the bet"_s);
        QCOMPARE(label(u"lblcost"_s), u"1 combination at $2.00: $2.00"_s);
        press(u"cmdplacebet"_s);
        QVERIFY(label(u"lblguide"_s).endsWith(u"Collect the money and make the bet"));
        press(u"cmdmake"_s);
        QVERIFY(label(u"lblguide"_s).contains(u"Saved."));
        press(u"cmddouble"_s);
        for (const auto &[cell, horse] :
             {std::pair{cellName(1, 3), u"Post 3: number 2 SECOND WIND"_s},
              {cellName(2, 3), u"Post 3 Race4: number 3 HORSE 3"_s}}) {
            child<QWidget>(screen(), cell)->setFocus();
            QCoreApplication::processEvents();
            QCOMPARE(label(u"lblpost"_s), horse);
        }
        open(u"frmpaymulti"_s);
        press(u"optrace_3"_s);
        markPosts({{3}, {5}});
        child<QWidget>(screen(), u"cmdreturn"_s)->setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(label(u"lblpost"_s),
                 u"Post 3: number 2 SECOND WIND; Post 5: number 1A SEA HERO"_s);
    }

    // A multibet on a race that was settled is asked about, whichever leg it is.
    void settledRace()
    {
        beginMultibets();
        CashEntry settlement{CashKind::Settled, 4};
        settlement.settled = RaceSettled{};
        settlement.settled->payoffs.finishers = {1, 2, 3};
        recordCash(event->session, {settlement});
        open(u"frmmulti"_s);
        press(u"optrace_3"_s);
        press(u"cmddouble"_s);
        const QString settled = event->note().section(u". A bet"_s, 0, 0);
        QVERIFY(settled.startsWith(u"Race4 was settled at"));
        select(u"lstentries"_s, u"ANN"_s);
        markPosts({{1}, {2}});
        clickCell(screen(), u"txtbetamt"_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            press(u"cmdplacebet"_s);
            press(u"cmdmake"_s, settled + u". Place these bets all the same?"_s, u"Multi-bet"_s,
                  answer);
            QCOMPARE(event->readTwins(u"Multibets Race3"_s),
                     QByteArray(answer == Answer::Yes ? "1,2,0,\"DD\",1,2\r\n" : ""));
        }
    }
};

TRELAWN_TEST(tst_guide)
#include "tst_guide.moc"
