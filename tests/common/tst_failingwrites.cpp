#include "common/event/eventfiles.h"
#include "common/event/racefiles.h"
#include "common/files/recordfile.h"
#include "kit/faultywrites.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

// Every step of an operation on a record file and its twin fails once: no record is ever lost.
class tst_failingwrites : public QObject
{
    Q_OBJECT

private slots:
    void oneWholeTwin_data();
    void oneWholeTwin();
};

namespace {

constexpr Bet someBets[] = {{2, 3, 1, 5}, {2, 3, 2, 0.25F}, {4, 12, 3, 100}};

struct Operation
{
    const char *name;
    const char *mainName;
    const char *twinName;
    QByteArray before;
    QByteArray after;
    std::function<void(Session &)> run;
};

QList<Operation> operations()
{
    HorseTable horses;
    horses.post(2) = {2, 1, u"1A"_s, u"O'Malley & Co"_s};
    const QByteArray bettors = newBettorRecords() + "2,\"ANNA\"\r\n";
    BettorTable table = BettorTable::parse(bettors, 10);
    table.setSlot(3, {3, u"BERT"_s});
    const QByteArray bets = "1,1,1,5\r\n7,2,1,5\r\nnot a bet\r\n1,3,1,5\r\n";
    return {
        {"append", "Bets Race1", "Betsbackup Race1", bets,
         bets + "2,3,1,5\r\n2,3,2,0.25\r\n4,12,3,100\r\n",
         [](Session &session) { AppendBet(session, someBets); }},
        {"remove", "Bets Race1", "Betsbackup Race1", bets, "7,2,1,5\r\nnot a bet\r\n",
         [](Session &session) {
             removeBets(session, [&](const BetRow &row) { return session.bets.isBetOf(row, 1); });
         }},
        {"horses", "Horses Race1", "Horsesbackup Race1", horseRecords(HorseTable()),
         horseRecords(horses),
         [horses](Session &session) {
             session.horses = horses;
             saveHorses(session);
         }},
        {"bettors", "Bettors", "Bettorsbackup", bettors, bettors + "3,\"BERT\"\r\n",
         [table](Session &session) {
             rewriteTwins(session, RecordFile::Bettors, 0, table.records(), u"Bettors output"_s,
                          u"Bettorsbackup output"_s);
         }},
    };
}

} // namespace

void tst_failingwrites::oneWholeTwin_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<ErrorNumber>("error");
    const auto all = operations();
    for (int i = 0; i < all.size(); ++i) {
        const auto row = [&](const char *faultName) -> QTestData & {
            return QTest::addRow("%s, %s", all[i].name, faultName) << i;
        };
        row("disk full") << Fault::DiskFull << ErrorNumber::DiskFull;
        row("broken disk") << Fault::IoError << ErrorNumber::DeviceIoError;
        row("half a write") << Fault::PartialWrite << ErrorNumber::DiskFull;
        row("disk gone") << Fault::DiskGone << ErrorNumber::DeviceIoError;
        row("power cut") << Fault::Exit << ErrorNumber::DeviceIoError;
    }
}

void tst_failingwrites::oneWholeTwin()
{
    QFETCH(int, operation);
    QFETCH(Fault, fault);
    QFETCH(ErrorNumber, error);
    const Operation op = operations().at(operation);
    const QString main = QString::fromLatin1(op.mainName);
    const QString twin = QString::fromLatin1(op.twinName);
    const bool append = op.after.startsWith(op.before) && main.startsWith("Bets "_L1);
    TestEvent event;
    const auto files = [&] { return QDir(event.path({})).entryList(QDir::Files | QDir::Hidden); };
    const QStringList filesBefore = files();
    int failures = 0;

    const auto prepare = [&] {
        event.write(main, op.before);
        event.write(twin, op.before);
    };
    const auto check = [&](const FaultyRound &round) {
        const QByteArray mainBytes = event.read(main);
        const QByteArray twinBytes = event.read(twin);
        const auto whole = [&](const QByteArray &bytes) {
            return bytes == op.before || bytes == op.after;
        };
        const QByteArray message =
            "call " + QByteArray::number(round.nth) + ": " + mainBytes + "|" + twinBytes;
        if (round.died) {
            ++failures;
            QVERIFY2(whole(mainBytes) || whole(twinBytes), message.constData());
            if (append)
                QVERIFY2(mainBytes.startsWith(op.before) && twinBytes.startsWith(op.before),
                         message);
            return;
        }
        QVERIFY2(whole(mainBytes) && whole(twinBytes), message.constData());
        QCOMPARE(files(), filesBefore);
        if (!round.error) {
            QVERIFY2(mainBytes == op.after && twinBytes == op.after, message.constData());
            return;
        }
        ++failures;
        QCOMPARE(*round.error, error);
        if (append) // what was refused does not count as placed
            QVERIFY2(mainBytes == op.before && twinBytes == op.before, message.constData());
        op.run(event.session);
        QCOMPARE(event.read(main), op.after);
        QCOMPARE(event.read(twin), op.after);
    };
    const int calls = failEachWrite(
        fault, prepare, [&] { op.run(event.session); }, check);
    QVERIFY2(calls >= 4 && failures >= 4, QByteArray::number(failures));
    QCOMPARE(event.read(main), op.after);
    QCOMPARE(event.read(twin), op.after);
}

TRELAWN_TEST(tst_failingwrites)
#include "tst_failingwrites.moc"
