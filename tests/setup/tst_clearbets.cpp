#include "common/event/racefiles.h"
#include "kit/testkit.h"
#include "setup/clearbets.h"
#include "ui/slipprinter.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

const QByteArray bettors = "1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n4,\"LEE-ANN\"\r\n";
// Bettor 3 was deleted; SMITH-JOHN took everything back.
const QByteArray bets =
    "4,1,1,2.5\r\n3,2,2,5\r\n2,1,1,7\r\nnot a bet\r\n4,3,3,1000\r\n2,1,1,-7\r\n";
const QByteArray multibets = "1,2,0,\"EX\",2,4\r\n3,4,5,\"T\",0.5,3\r\n";

// The list of refunds that LEE-ANN and the deleted bettor are on.
QStringList refunds(const QString &lee, const QString &deleted, const QString &total)
{
    return {u"REFUND BETS  Race3"_s,
            u" "_s,
            u"Bettor Name                  Amount"_s,
            u" "_s,
            u"LEE-ANN                     "_s + lee,
            u"3 Bad Bettor Number         "_s + deleted,
            u" "_s,
            total};
}
const QStringList betRefunds = refunds(u"$1,002.50"_s, u"$5.00"_s, u"TOTAL BETS $1,007.50"_s);
const QStringList multibetRefunds = refunds(u"$2.00"_s, u"$0.50"_s, u"TOTAL MULTIBETS $2.50"_s);

void fill(TestEvent &event, const QByteArray &betFile, const QByteArray &multibetFile)
{
    event.session.settings.currentRace = 3;
    event.write(u"Bettors"_s, bettors);
    for (const QString &twin : {u""_s, u"backup"_s}) {
        event.write(u"Bets"_s + twin + u" Race3"_s, betFile);
        event.write(u"Multibets"_s + twin + u" Race3"_s, multibetFile);
    }
}

// The lists that opened beside the menu.
QList<QStringList> listsShown()
{
    QList<QStringList> lists;
    for (QWidget *widget : QApplication::allWidgets()) {
        const auto *list = qobject_cast<QListWidget *>(widget);
        if (list && list->objectName() == "List1"_L1 && !list->window()->isModal())
            lists.append(listTexts(list->window(), u"List1"_s));
    }
    return lists;
}

} // namespace

class tst_clearbets : public QObject
{
    Q_OBJECT

private slots:
    void clears_data();
    void clears();
    void firstUseAfterwards();
    void nothingIsLost();
};

// Straight bets, multibets and a deleted bettor: everybody's money is on the lists, on paper or
// beside the menu; both files are gone and lie in Saved; the other races stay.
void tst_clearbets::clears_data()
{
    QTest::addColumn<QByteArray>("betFile"); // null: there is none
    QTest::addColumn<QByteArray>("multibetFile");
    QTest::addColumn<bool>("wanted"); // the answer to "Print refunds?"
    QTest::addColumn<bool>("receipts");
    QTest::addColumn<QList<QStringList>>("lists");
    const QList<QStringList> both{betRefunds, multibetRefunds};
    const QByteArray none;
    const QByteArray empty("");
    QTest::newRow("on paper") << bets << multibets << true << true << both;
    QTest::newRow("beside the menu without receipts") << bets << multibets << true << false << both;
    QTest::newRow("not wanted") << bets << multibets << false << true << QList<QStringList>();
    QTest::newRow("never asked, so multibets print")
        << empty << multibets << true << true << QList<QStringList>{multibetRefunds};
    QTest::newRow("files that are not there")
        << none << none << true << true << QList<QStringList>();
}

void tst_clearbets::clears()
{
    QFETCH(QByteArray, betFile);
    QFETCH(QByteArray, multibetFile);
    QFETCH(bool, wanted);
    QFETCH(bool, receipts);
    QFETCH(QList<QStringList>, lists);
    TestEvent event;
    fill(event, betFile, multibetFile);
    event.write(u"Bets Race4"_s, "2,1,1,9\r\n");
    event.session.settings.setReceiptPrinting(receipts);
    QWidget *menu = event.open(u"frmmenub"_s);
    for (const QString &file : {u"Bets Race3"_s, u"Multibets Race3"_s}) {
        if (betFile.isNull())
            QFile::remove(event.path(file));
    }
    BoxRobot robot;
    robot.expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, Answer::Yes);
    if (betFile.isEmpty()) {
        robot.expect(u"Bets already cleared"_s, u"Clear bets"_s);
    } else {
        robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, wanted ? Answer::Yes : Answer::No);
        robot.expect(u" Race3 Bet file cleared"_s, u"Clear bet file"_s);
    }
    if (multibetFile.isEmpty())
        robot.expect(u"Multibets already cleared"_s, u"Clear bets"_s);
    else
        robot.expect(u" Race3 multibet file cleared"_s, u"Clear bet file"_s);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());

    QList<QStringList> printed;
    for (const Slip &slip : event.slips) {
        printed << slipText(slip);
        QCOMPARE(slip.headingLines, 4);
    }
    QCOMPARE(printed, receipts ? lists : QList<QStringList>());
    const QList<QStringList> shown = listsShown();
    QCOMPARE(shown.size(), receipts ? 0 : lists.size());
    for (const QStringList &list : shown)
        QVERIFY(lists.contains(list));

    for (const QString &base : {u"Bets"_s, u"Betsbackup"_s, u"Multibets"_s, u"Multibetsbackup"_s}) {
        const QByteArray &before = base.startsWith(u'B') ? betFile : multibetFile;
        QVERIFY(before.isEmpty() || !event.exists(base + u" Race3"_s));
        QCOMPARE(event.savedCopies(base + u" Race3"_s),
                 before.isEmpty() ? QByteArrayList() : QByteArrayList{before});
    }
    QCOMPARE(event.read(u"Bets Race4"_s), QByteArray("2,1,1,9\r\n"));
    QCOMPARE(labelText(menu, u"lblnote"_s)
                 .contains("Damaged lines that could not be refunded, kept in Saved: 1"_L1),
             !betFile.isEmpty());
}

// The next bet starts an empty file and is alone in it.
void tst_clearbets::firstUseAfterwards()
{
    TestEvent event;
    fill(event, bets, multibets);
    Session &session = event.session;
    LoadRaceBets(session);
    QVERIFY(!clearRaceFile(session, RecordFile::Bets, RaceStakes())); // not what was read
    QVERIFY(clearRaceFile(session, RecordFile::Bets, straightStakes(session)));
    QVERIFY(!event.exists(u"Bets Race3"_s) && !event.exists(u"Betsbackup Race3"_s));
    const RaceBets race = LoadRaceBets(session);
    QVERIFY(race.bets.rows.empty() && race.note.isEmpty());
    const Bet bet{2, 5, 1, 3};
    AppendBet(session, {&bet, 1});
    QCOMPARE(event.read(u"Bets Race3"_s), QByteArray("2,5,1,3\r\n"));
    QCOMPARE(event.read(u"Betsbackup Race3"_s), QByteArray("2,5,1,3\r\n"));
}

// Neither after a No nor without the copy is anything printed or deleted.
void tst_clearbets::nothingIsLost()
{
    TestEvent event;
    fill(event, bets, multibets);
    event.write(u"Saved"_s, "in the folder's place");
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    robot.expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, Answer::No);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Bets Race3"_s), bets);
    QCOMPARE(event.read(u"Multibets Race3"_s), multibets);
    robot.expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, Answer::Yes);
    robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::Yes);
    robot.expect(u"Path/File access error Bets Saved"_s, u"Bets Saved"_s);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 0);
    QCOMPARE(event.read(u"Bets Race3"_s), bets);
    QCOMPARE(event.read(u"Multibets Race3"_s), multibets);
}

TRELAWN_TEST(tst_clearbets)
#include "tst_clearbets.moc"
