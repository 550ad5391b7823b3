#include "common/event/racefiles.h"
#include "kit/screentest.h"
#include "setup/clearbets.h"

// Bettor 3 was deleted; bettor 2 took everything back.
const QByteArray bets =
    "4,1,1,2.5\r\n3,2,2,5\r\n2,1,1,7\r\nnot a bet\r\n4,3,3,1000\r\n2,1,1,-7\r\n";
const QByteArray multibets = "1,2,0,\"EX\",2,4\r\n3,4,5,\"T\",0.5,3\r\n";

class tst_clearbets : public ScreenTest
{
    Q_OBJECT

private slots:
    // Straight bets, multibets and a deleted bettor: everybody's money is on the lists, on paper or
    // beside the menu; both files are gone and lie in Saved; the other races stay.
    void clears()
    {
        const QString betRefunds = refunds(u"$1,002.50"_s, u"$5.00"_s, u"TOTAL BETS $1,007.50"_s);
        const QString multibetRefunds = refunds(u"$2.00"_s, u"$0.50"_s, u"TOTAL MULTIBETS $2.50"_s);
        // The two files, the answer to "Print refunds?", whether receipts print, and the lists.
        Rows<QByteArray, QByteArray, bool, bool, QSet<QString>> rows;
        rows("on paper", bets, multibets, true, true, {betRefunds, multibetRefunds});
        rows("beside the menu without receipts", bets, multibets, true, false,
             {betRefunds, multibetRefunds});
        rows("not wanted", bets, multibets, false, true, {});
        rows("never asked, so multibets print", "", multibets, true, true, {multibetRefunds});
        rows("nothing there", "", "", true, true, {});
        for (const auto &[row, betFile, multibetFile, wanted, receipts, lists] : rows) {
            begin();
            fill(betFile, multibetFile);
            event->write(u"Bets Race4"_s, "2,1,1,9\r\n");
            event->session.settings.setReceiptPrinting(receipts);
            open(u"frmmenub"_s);
            if (betFile.isEmpty() && multibetFile.isEmpty())
                event->remove({u"Bets Race3"_s, u"Multibets Race3"_s});
            expectClear(Answer::Yes);
            if (betFile.isEmpty()) {
                expect(u"Bets already cleared"_s, u"Clear bets"_s);
            } else {
                expect(u"Print refunds?"_s, u"Clear Bets"_s, wanted ? Answer::Yes : Answer::No);
                expect(u" Race3 Bet file cleared"_s, u"Clear bet file"_s);
            }
            if (multibetFile.isEmpty())
                expect(u"Multibets already cleared"_s, u"Clear bets"_s);
            else
                expect(u" Race3 multibet file cleared"_s, u"Clear bet file"_s);
            press(u"cmdclearbets"_s);

            QSet<QString> told;
            for (const Slip &slip : event->slips) {
                told << slipText(slip).join(u'|');
                QCOMPARE(slip.headingLines, 4);
            }
            QCOMPARE(event->slips.isEmpty(), !receipts || lists.isEmpty());
            for (QStringList shown = event->takeListing(); !shown.isEmpty();
                 shown = event->takeListing())
                told << shown.join(u'|');
            QCOMPARE(told, lists);

            for (const QString &name : {u"Bets Race3"_s, u"Betsbackup Race3"_s,
                                        u"Multibets Race3"_s, u"Multibetsbackup Race3"_s}) {
                const QByteArray &before = name.startsWith(u'B') ? betFile : multibetFile;
                QVERIFY(before.isEmpty() || !event->exists(name));
                QCOMPARE(event->savedCopies(name),
                         before.isEmpty() ? QByteArrayList() : QByteArrayList{before});
            }
            QCOMPARE(event->read(u"Bets Race4"_s), "2,1,1,9\r\n");
            QCOMPARE(event->note().contains(
                         "Damaged lines that could not be refunded, kept in Saved: 1"_L1),
                     !betFile.isEmpty());
        }
    }

    // The next bet starts an empty file and is alone in it.
    void firstUseAfterwards()
    {
        begin();
        fill(bets, multibets);
        Session &session = event->session;
        QVERIFY(!clearRaceFile(session, RecordFile::Bets, RaceStakes())); // not what was read
        QVERIFY(clearRaceFile(session, RecordFile::Bets, straightStakes(session)));
        QVERIFY(LoadRaceBets(session).bets.rows.empty());
        const Bet bet{2, 5, 1, 3};
        AppendBet(session, {&bet, 1});
        QCOMPARE(event->readTwins(u"Bets Race3"_s), "2,5,1,3\r\n");
    }

    // Neither after a No nor without the copy is anything printed or deleted.
    void nothingIsLost()
    {
        begin();
        fill(bets, multibets);
        event->write(u"Saved"_s, "in the folder's place");
        open(u"frmmenub"_s);
        expectClear(Answer::No);
        press(u"cmdclearbets"_s);
        expectClear(Answer::Yes);
        expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::Yes);
        press(u"cmdclearbets"_s, u"Path/File access error Bets Saved"_s, u"Bets Saved"_s);
        QVERIFY(event->slips.isEmpty());
        QCOMPARE(event->readTwins(u"Bets Race3"_s), bets);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), multibets);
    }

private:
    // The list of refunds that LEE-ANN and the deleted bettor are on.
    static QString refunds(const QString &lee, const QString &deleted, const QString &total)
    {
        return u"REFUND BETS  Race3| |Bettor Name                  Amount| |"
               "LEE-ANN                     "_s
               + lee + u"|3 Bad Bettor Number         "_s + deleted + u"| |"_s + total;
    }

    void fill(const QByteArray &betFile, const QByteArray &multibetFile)
    {
        event->session.settings.currentRace = 3;
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n4,\"LEE-ANN\"\r\n");
        event->writeTwins(u"Bets Race3"_s, betFile);
        event->writeTwins(u"Multibets Race3"_s, multibetFile);
    }

    void expectClear(Answer answer)
    {
        expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, answer);
    }
};

TRELAWN_TEST(tst_clearbets)
#include "tst_clearbets.moc"
