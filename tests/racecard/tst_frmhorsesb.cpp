#include "kit/screentest.h"

namespace {

const QByteArray race1 = horseRecords(cardOf({{1, 1, u"1"_s, u"SECRETARIAT"_s},
                                              {2, 1, u"1A"_s, u"ANGLE LIGHT"_s},
                                              {3, 0, u"2"_s, u"SHAM"_s}}));
const QByteArray scratched = QByteArray(race1).replace("0,\"2 \",\"SHAM\"", "0,\"  \",\"\"");

} // namespace

class tst_frmhorsesb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->session.settings.banner = u"Derby"_s;
        event->writeTwins(u"Horses Race1"_s, race1);
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n3,\"JONES-AMY\"\r\n");
        open(u"frmhorsesb"_s);
    }

    // And nothing of the race before; "zzz" is no horse.
    void showsTheRace()
    {
        QCOMPARE(rowText(1), u"1|1|SECRETARIAT|1"_s);
        QCOMPARE(rowText(2), u"2|1A|ANGLE LIGHT|1"_s);
        event->write(u"Horses Race7"_s, "1,3,\"5 \",\"zzz\"\r\n2,0,\"6 \",\"FOREGO\"\r\n");
        press(u"optrace_7"_s);
        QCOMPARE(text(u"txtbanner"_s), u"Derby Race7"_s);
        QCOMPARE(rowText(1) + rowText(2) + rowText(3), u"1|||02|6|FOREGO|03|||0"_s);
    }

    void updates()
    {
        type(u"txtnumber_20"_s, u"12"_s);
        type(u"txthorse_20"_s, u"Mrs. O'Hara, & Co"_s);
        type(u"txtpool_20"_s, u"12"_s);
        type(u"txtpool_5"_s, QString());
        ask(u"Update Horses?"_s, Answer::No);
        press(u"cmdupdatehorses"_s);
        update(u"Pool number must be between 0 and 9"_s);
        QCOMPARE(rowText(6), u"6|||0"_s);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), race1);
        QCOMPARE(event->note(), u"Nothing was saved. Pool set to 0 at post 6, 21"_s);

        type(u"txtpool_20"_s, u"9"_s);
        update();
        QCOMPARE(
            event->readTwins(u"Horses Race1"_s),
            QByteArray(race1).replace("21,0,\"  \",\"\"", "21,9,\"12\",\"Mrs. O'Hara, & Co\""));
        QCOMPARE(label(u"lblunsaved"_s), QString());
    }

    void clear()
    {
        // Bets that another computer placed since the screen opened count, and so does any record.
        for (const char *bets : {"2,3,1,2.00\r\n", "2,3,1,0\r\n", "2,3\r\n"}) {
            event->write(u"Bets Race1"_s, bets);
            press(u"cmdclearhorses"_s, u"Must clear all bets first"_s, u"Clear horses"_s);
        }
        event->write(u"Bets Race1"_s, "");
        ask(u"Clear All Horses?"_s, Answer::Cancel);
        press(u"cmdclearhorses"_s);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), race1);
        QCOMPARE(rowText(3), u"3|2|SHAM|0"_s);

        ask(u"Clear All Horses?"_s);
        press(u"cmdclearhorses"_s, u" Race1 Horse file cleared"_s);
        QCOMPARE(rowText(1) + rowText(21), u"1|||21|||"_s);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), horseRecords({}));
        QCOMPARE(event->savedCopies(u"Horses Race1"_s), QByteArrayList{race1});
    }

    void scratchRefundsAndFreesThePost()
    {
        const QByteArray left = "2,1,1,5.00\r\n9,9\r\n"; // the second one is damaged
        event->writeTwins(u"Bets Race1"_s, "3,3,1,4.00\r\n" + left + "2,3,3,.50\r\n2,3,1,2.00\r\n");
        event->write(u"Multibets Race1"_s, "3,1,0,\"EX\",2,2\r\n1,2,0,\"EX\",2,2\r\n");
        scratchSham(u"SHAMScratched"_s);
        QCOMPARE(slipText(event->slips.value(0)).mid(4),
                 QStringList({u"SMITH-JOHN                  $2.50"_s,
                              u"JONES-AMY                   $4.00"_s}));
        QCOMPARE(event->readTwins(u"Bets Race1"_s), left);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), scratched);
        QCOMPARE(rowText(3), u"3|||0"_s);
        QCOMPARE(event->note(), u"Multibets on post 3, not refunded: 1 ($2.00)"_s);
    }

    // The card is checked and the list of bettors read before any bet or horse is lost.
    void scratchRefused()
    {
        event->writeTwins(u"Bets Race1"_s, "2,3,1,2.00\r\n");
        // Neither a post that is not on the card nor one without a horse is scratched.
        expectScratch(u"22"_s);
        press(u"cmdscratch"_s, u"Post position not valid"_s);
        expectScratch(u"4"_s);
        press(u"cmdscratch"_s);
        type(u"txtpool_9"_s, u"x"_s);
        scratchSham(u"Pool number must be between 0 and 9"_s);
        QCOMPARE(rowText(10), u"10|||0"_s);
        event->remove({u"Bettors"_s});
        scratchSham(u"File not found Bettors input"_s, u"Bettors input"_s);
        QVERIFY(event->slips.isEmpty());
        QCOMPARE(rowText(3), u"3|2|SHAM|0"_s);
        QCOMPARE(event->readTwins(u"Bets Race1"_s), "2,3,1,2.00\r\n");
        QCOMPARE(event->readTwins(u"Horses Race1"_s), race1);
    }

    void unreadableCard()
    {
        // A missing file is told; the card shown is empty and not the race's before.
        event->remove({u"Horses Race2"_s});
        press(u"optrace_2"_s, u"File not found Horses input"_s, u"Horses input"_s);
        QCOMPARE(rowText(1), u"1|||0"_s);

        // A damaged one is told, not written over without a question, and what stood in it is kept.
        event->write(u"Horses Race3"_s, "1,0,\"1 \",\"SHAM\"\r\n2,0,\"2 \"\r\n");
        press(u"optrace_3"_s);
        QCOMPARE(rowText(1), u"1|1|SHAM|0"_s);
        const QString damage = u"The horse file has only 1 of 21 posts, 1 damaged line."_s;
        QCOMPARE(event->note(), damage + u" The other posts are shown empty."_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            update(damage
                       + u" Copies of file and twin will go to Saved.\n"
                         "Write the horses of this screen in place of them?"_s,
                   answer);
            QCOMPARE(event->savedCopies(u"Horses Race3"_s).size(), answer == Answer::Yes ? 1 : 0);
        }
        ask(u"Update Horses?"_s, Answer::Yes);
        press(u"cmdupdatehorses"_s); // whole now

        event->block(u"Bets Race4"_s);
        press(u"optrace_4"_s);
        QVERIFY(event->note().contains(u"cannot be read"_s)); // and no box
    }

    // What another computer did to the card since it was loaded is undone only on purpose.
    void cardChangedElsewhere()
    {
        event->writeTwins(u"Horses Race1"_s, scratched);
        const QString question = u"The card was changed since it was loaded:\nPost 3: SHAM runs no "
                                 "longer\nWrite the horses of this screen in place of them?"_s;
        update(question, Answer::No);
        scratchSham(question, u"Horses"_s, Answer::No);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), scratched);
        update(question, Answer::Yes);
        QCOMPARE(event->readTwins(u"Horses Race1"_s), race1);
        ask(u"Update Horses?"_s, Answer::Yes);
        press(u"cmdupdatehorses"_s); // what was written is what is there
    }

    void editsAreFlagged()
    {
        event->write(u"Bets Race1"_s, "2,3,1,2.00\r\n3,3,3,10\r\n");
        press(u"optrace_1"_s);
        type(u"txthorse_2"_s, u"SHAMROCK"_s);
        QCOMPARE(label(u"lblunsaved"_s), u"not saved"_s);
        QCOMPARE(event->note(), u"Post 3 has bets of $12.00"_s);
        type(u"txthorse_3"_s, u"FOREGO"_s);
        QCOMPARE(event->note(), QString());
        type(u"txthorse_3"_s, QString());
        type(u"txthorse_2"_s, u"SHAM"_s);
        QCOMPARE(label(u"lblunsaved"_s), QString());
        type(u"txthorse_2"_s, u"SHAMROCK"_s);
        press(u"optrace_2"_s);
        QCOMPARE(event->note(), u"Race1: changed posts that were not saved: 1"_s);
        QCOMPARE(label(u"lblunsaved"_s), QString());
    }

    void messageIsHeldForTheRun()
    {
        auto *message = child<QPlainTextEdit>(screen(), u"txtmsg"_s);
        QCOMPARE(message->toPlainText().split(u'\n').value(2),
                 u"Bring your sheet to the cashier. It will be returned to you after your bets are "
                 "entered. Save the "_s);
        message->setPlainText(u"One line"_s);
        ask(u"Bet Sheet message updated"_s);
        press(u"cmdmsg"_s);
        open(u"frmhorsesb"_s);
        QCOMPARE(child<QPlainTextEdit>(screen(), u"txtmsg"_s)->toPlainText(), u"One line"_s);
    }

private:
    // "post|number|horse|pool" of the row
    QString rowText(int post)
    {
        QStringList texts;
        for (const QString &name : {u"txtpost"_s, u"txtnumber"_s, u"txthorse"_s, u"txtpool"_s})
            texts << text(name + u'_' + QString::number(post - 1));
        return texts.join(u'|');
    }
    void ask(const QString &box, Answer answer = Answer::Ok) { expect(box, u"Horses"_s, answer); }

    // Saves the card; a box may follow the question.
    void update(const QString &box = {}, Answer answer = Answer::Ok)
    {
        ask(u"Update Horses?"_s, Answer::Yes);
        if (!box.isEmpty())
            ask(box, answer);
        press(u"cmdupdatehorses"_s);
    }

    void expectScratch(const QString &post)
    {
        ask(u"Scratch a horse?"_s, Answer::Yes);
        expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, post);
    }

    // Scratches post 3 as far as the box after the questions.
    void scratchSham(const QString &box, const QString &title = u"Horses"_s,
                     Answer answer = Answer::Ok)
    {
        expectScratch(u"3"_s);
        ask(u"Scratch SHAM"_s);
        press(u"cmdscratch"_s, box, title, answer);
    }
};

TRELAWN_TEST(tst_frmhorsesb)
#include "tst_frmhorsesb.moc"
