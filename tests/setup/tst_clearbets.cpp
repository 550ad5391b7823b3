#include "common/racefiles.h"
#include "kit/faultywrites.h"
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

const QString heading = u"Bettor Name                  Amount"_s;
const QStringList betRefunds{u"REFUND BETS  Race3"_s,
                             u" "_s,
                             heading,
                             u" "_s,
                             u"LEE-ANN                     $1,002.50"_s,
                             u"3 Bad Bettor Number         $5.00"_s,
                             u" "_s,
                             u"TOTAL BETS $1,007.50"_s};
const QStringList multibetRefunds{u"REFUND BETS  Race3"_s,
                                  u" "_s,
                                  heading,
                                  u" "_s,
                                  u"LEE-ANN                     $2.00"_s,
                                  u"3 Bad Bettor Number         $0.50"_s,
                                  u" "_s,
                                  u"TOTAL MULTIBETS $2.50"_s};

void fill(TestEvent &event, const QByteArray &betFile, const QByteArray &multibetFile)
{
    event.session.settings.currentRace = 3;
    event.write(u"Bettors"_s, bettors);
    for (const QString &twin : {u""_s, u"backup"_s}) {
        event.write(u"Bets"_s + twin + u" Race3"_s, betFile);
        event.write(u"Multibets"_s + twin + u" Race3"_s, multibetFile);
    }
}

QByteArray savedCopy(const TestEvent &event, const QString &file)
{
    const QStringList copies = QDir(savedFolder(event.session)).entryList({file + u" *"_s});
    return copies.isEmpty() ? QByteArray() : event.read(u"Saved\\"_s + copies.last());
}

void expectStart(BoxRobot &robot)
{
    robot.expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, Answer::Yes);
}

void expectCleared(BoxRobot &robot)
{
    robot.expect(u" Race3 Bet file cleared"_s, u"Clear bet file"_s);
}

void expectMultibetsCleared(BoxRobot &robot)
{
    robot.expect(u" Race3 multibet file cleared"_s, u"Clear bet file"_s);
}

} // namespace

class tst_clearbets : public QObject
{
    Q_OBJECT

private slots:
    void refunds();
    void withoutPaper();
    void withoutList();
    void nothingToClear();
    void noIsNo();
    void firstUseAfterwards();
    void copyFails();
    void powerLoss();
};

// Straight bets, multibets and a deleted bettor: everybody's money is on the lists, both files are
// gone and lie in Saved, the other races stay.
void tst_clearbets::refunds()
{
    TestEvent event;
    fill(event, bets, multibets);
    event.write(u"Bets Race4"_s, "2,1,1,9\r\n");
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    expectStart(robot);
    robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::Yes);
    expectCleared(robot);
    expectMultibetsCleared(robot);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());

    QCOMPARE(event.slips.size(), 2);
    QCOMPARE(slipText(event.slips[0]), betRefunds);
    QCOMPARE(slipText(event.slips[1]), multibetRefunds);
    QCOMPARE(event.slips[0].headingLines, 4);
    for (const QString &twin : {u""_s, u"backup"_s}) {
        QVERIFY(!event.exists(u"Bets"_s + twin + u" Race3"_s));
        QVERIFY(!event.exists(u"Multibets"_s + twin + u" Race3"_s));
        QCOMPARE(savedCopy(event, u"Bets"_s + twin + u" Race3"_s), bets);
        QCOMPARE(savedCopy(event, u"Multibets"_s + twin + u" Race3"_s), multibets);
    }
    QCOMPARE(event.read(u"Bets Race4"_s), QByteArray("2,1,1,9\r\n"));
    QCOMPARE(labelText(menu, u"lblnote"_s),
             u"Damaged lines that could not be refunded, kept in Saved: 1"_s);
}

// With receipts off the lists open beside the menu.
void tst_clearbets::withoutPaper()
{
    TestEvent event;
    fill(event, bets, multibets);
    event.session.settings.setReceiptPrinting(false);
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    expectStart(robot);
    robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::Yes);
    expectCleared(robot);
    expectMultibetsCleared(robot);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 0);
    QList<QStringList> lists;
    for (QWidget *widget : QApplication::allWidgets()) {
        auto *list = qobject_cast<QListWidget *>(widget);
        if (!list || list->objectName() != "List1"_L1)
            continue;
        QVERIFY(list->isVisible() && !list->window()->isModal());
        lists.append(QStringList());
        for (int row = 0; row < list->count(); ++row)
            lists.last() << list->item(row)->text();
    }
    QCOMPARE(lists.size(), 2);
    QVERIFY(lists.contains(betRefunds) && lists.contains(multibetRefunds));
}

// No list of either file, but copies of both.
void tst_clearbets::withoutList()
{
    TestEvent event;
    fill(event, bets, multibets);
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    expectStart(robot);
    robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::No);
    expectCleared(robot);
    expectMultibetsCleared(robot);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 0);
    QVERIFY(!event.exists(u"Bets Race3"_s));
    QCOMPARE(savedCopy(event, u"Betsbackup Race3"_s), bets);
    QCOMPARE(savedCopy(event, u"Multibets Race3"_s), multibets);
}

// Without straight bets the question does not come and the multibet list prints; missing files are
// empty ones.
void tst_clearbets::nothingToClear()
{
    TestEvent event;
    fill(event, {}, multibets);
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    for (const bool hasMultibets : {true, false}) {
        expectStart(robot);
        robot.expect(u"Bets already cleared"_s, u"Clear bets"_s);
        if (hasMultibets)
            expectMultibetsCleared(robot);
        else
            robot.expect(u"Multibets already cleared"_s, u"Clear bets"_s);
        clickButton(menu, u"cmdclearbets"_s);
        QVERIFY(robot.allCame());
        QFile::remove(event.path(u"Bets Race3"_s));
    }
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips[0]), multibetRefunds);
}

void tst_clearbets::noIsNo()
{
    TestEvent event;
    fill(event, bets, multibets);
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    robot.expect(u"Clear/Refund  Race3 Bets?"_s, u"TRELAWN"_s, Answer::No);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Bets Race3"_s), bets);
    QCOMPARE(event.read(u"Multibets Race3"_s), multibets);
}

// The next bet starts an empty file and is alone in it.
void tst_clearbets::firstUseAfterwards()
{
    TestEvent event;
    fill(event, bets, multibets);
    Session &session = event.session;
    LoadRaceBets(session);
    keepTwins(session, RecordFile::Bets);
    deleteTwins(session, RecordFile::Bets);
    QCOMPARE(session.bets.rows.size(), std::size_t(0));
    QCOMPARE(session.pools.amount(totalsRow, totalColumn), 0.0F);
    QCOMPARE(LoadRaceBets(session), QString());
    const Bet bet{2, 5, 1, 3};
    AppendBet(session, {&bet, 1});
    QCOMPARE(event.read(u"Bets Race3"_s), QByteArray("2,5,1,3\r\n"));
    QCOMPARE(event.read(u"Betsbackup Race3"_s), QByteArray("2,5,1,3\r\n"));
}

// Without the copy nothing is printed and nothing deleted.
void tst_clearbets::copyFails()
{
    TestEvent event;
    fill(event, bets, multibets);
    event.write(u"Saved"_s, "in the folder's place");
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    expectStart(robot);
    robot.expect(u"Print refunds?"_s, u"Clear Bets"_s, Answer::Yes);
    robot.expect(u"Path/File access error Bets Saved"_s, u"Bets Saved"_s);
    clickButton(menu, u"cmdclearbets"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 0);
    QCOMPARE(event.read(u"Bets Race3"_s), bets);
    QCOMPARE(event.read(u"Multibets Race3"_s), multibets);
}

// Wherever it stops, every record is in the file, in its twin or in Saved.
void tst_clearbets::powerLoss()
{
    TestEvent event;
    const auto prepare = [&] {
        QDir(savedFolder(event.session)).removeRecursively();
        fill(event, bets, multibets);
    };
    const auto clear = [&] {
        for (const RecordFile file : {RecordFile::Bets, RecordFile::Multibets}) {
            keepTwins(event.session, file);
            deleteTwins(event.session, file);
        }
    };
    const auto survives = [&](const QString &base, const QByteArray &records) {
        for (const QString &twin : {u""_s, u"backup"_s}) {
            const QString file = base + twin + u" Race3"_s;
            if (event.exists(file) && event.read(file) == records)
                return true;
        }
        return savedCopy(event, base + u" Race3"_s) == records
               && savedCopy(event, base + u"backup Race3"_s) == records;
    };
    const auto check = [&](const FaultyRound &round) {
        QVERIFY2(survives(u"Bets"_s, bets), qPrintable(QString::number(round.nth)));
        QVERIFY2(survives(u"Multibets"_s, multibets), qPrintable(QString::number(round.nth)));
    };
    for (const Fault fault : {Fault::Exit, Fault::DiskFull, Fault::DiskGone})
        QVERIFY(failEachWrite(fault, prepare, clear, check) >= 12);
}

TRELAWN_TEST_MAIN(tst_clearbets)
#include "tst_clearbets.moc"
