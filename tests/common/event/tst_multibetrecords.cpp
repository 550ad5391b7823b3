#include "common/event/multibetrecords.h"
#include "common/files/fileerror.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

class tst_multibetrecords : public QObject
{
    Q_OBJECT

private slots:
    void read_data();
    void read();
    void append();
    void missingFile();
    void remove_data();
    void remove();
    void failedAppend();
};

void tst_multibetrecords::read_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("written"); // the same bet, as this program writes it
    const auto row = [](const char *rule, const QByteArray &line, const QByteArray &written = {}) {
        QTest::newRow(rule) << line << written;
    };
    row("quarter without zero", "4,7,1,\"T\",.25,12", "4,7,1,\"T\",0.25,12\r\n");
    row("large currency keeps its cents", "4,7,1,\"T\",123456.75,12",
        "4,7,1,\"T\",123456.75,12\r\n");
    row("quoted numbers, blanks", "\"4\", \"7\" ,0,\"EX\", \"2\",12", "4,7,0,\"EX\",2,12\r\n");
    row("bad: a field is missing", "4,7,0,\"EX\",2");
    row("bad: a field too many", "4,7,0,\"EX\",2,12,1");
    row("bad: post is not whole", "4.5,7,0,\"EX\",2,12");
    row("bad: amount is no number", "4,7,0,\"EX\",x,12");
    row("bad: bettor is empty", "4,7,0,\"EX\",2,");
    row("bad: open quote", "4,7,0,\"EX,2,12");
}

void tst_multibetrecords::read()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, written);
    Multibet bet;
    QCOMPARE(parseMultibet(line.toStdString(), bet), !written.isEmpty());
    if (!written.isEmpty())
        QCOMPARE(multibetLine(bet), written);
}

void tst_multibetrecords::append()
{
    TestEvent event(false);
    event.session.settings.currentRace = 10;
    event.write(u"Multibets Race10"_s, "1,2,0,\"Q\",1,2"); // a last line without its end
    event.write(u"Multibetsbackup Race10"_s, "1,2,0,\"Q\",1,2\r\n");
    const Multibet bets[] = {{{1, 2, 3}, u"T"_s, 0.25, 7}, {{3, 2, 0}, u"DD"_s, 10, 7}};
    appendMultibets(event.session, bets);
    const QByteArray expected = "1,2,0,\"Q\",1,2\r\n1,2,3,\"T\",0.25,7\r\n3,2,0,\"DD\",10,7\r\n";
    QCOMPARE(event.read(u"Multibets Race10"_s), expected);
    QCOMPARE(event.read(u"Multibetsbackup Race10"_s), expected);
}

// A missing file is made empty; the full twin that its emptying would lose goes to Saved.
void tst_multibetrecords::missingFile()
{
    TestEvent event(false);
    event.write(u"Multibetsbackup Race1"_s, "1,2,0,\"Q\",1,2\r\n");
    QVERIFY(loadOrCreateMultibets(event.session).rows.empty());
    QCOMPARE(event.read(u"Multibets Race1"_s), QByteArray());
    QCOMPARE(event.read(u"Multibetsbackup Race1"_s), QByteArray());
    QCOMPARE(event.savedCopies(u"Multibetsbackup Race1"_s), QByteArrayList{"1,2,0,\"Q\",1,2\r\n"});
}

void tst_multibetrecords::remove_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QList<int>>("places"); // among the bets of bettor 7 when they were listed
    QTest::addColumn<bool>("removed");
    QTest::addColumn<QByteArray>("left");
    const QByteArray a = "1,2,0,\"Q\",1,7\r\n";
    const QByteArray b = "4,5,6,\"T\",2,7\r\n";
    const QByteArray other = "1,2,0,\"Q\",1,8\r\n";
    const QByteArray damaged = "9,9,\"Q\",.5,7\n";
    // Listed were a, a, b.
    QTest::newRow("of two equal combinations one stays")
        << a + other + a + b << QList{0} << true << other + a + b;
    QTest::newRow("damaged lines stay, with the usual line end")
        << damaged + a + a + b << QList{0, 1, 2} << true << QByteArray("9,9,\"Q\",.5,7\r\n");
    QTest::newRow("a bet added meanwhile stays") << a + a + b + a << QList{2} << true << a + a + a;
    QTest::newRow("another bet in the place: nothing is deleted")
        << a + b + a << QList{1} << false << a + b + a;
    QTest::newRow("fewer bets than listed: nothing is deleted")
        << a + a << QList{0, 2} << false << a + a;
}

void tst_multibetrecords::remove()
{
    QFETCH(QByteArray, file);
    QFETCH(QList<int>, places);
    QFETCH(bool, removed);
    QFETCH(QByteArray, left);
    TestEvent event(false);
    event.write(u"Multibets Race1"_s, file);
    event.write(u"Multibetsbackup Race1"_s, file);
    const Multibet listed[] = {
        {{1, 2, 0}, u"Q"_s, 1, 7}, {{1, 2, 0}, u"Q"_s, 1, 7}, {{4, 5, 6}, u"T"_s, 2, 7}};
    QList<PlacedMultibet> chosen;
    for (const int place : places)
        chosen.append({place, listed[place]});
    QCOMPARE(removeMultibets(event.session, 7, chosen), removed);
    QCOMPARE(event.read(u"Multibets Race1"_s), left);
    QCOMPARE(event.read(u"Multibetsbackup Race1"_s), left);
    QCOMPARE(event.saved().size(), removed ? 2 : 0);
}

// A folder in the twin's place makes the second append fail: the bets count in neither file.
void tst_multibetrecords::failedAppend()
{
    TestEvent event(false);
    const QByteArray file = "1,2,0,\"Q\",1,7\r\n";
    event.write(u"Multibets Race1"_s, file);
    QVERIFY(QDir().mkpath(event.path(u"Multibetsbackup Race1"_s)));
    const Multibet bets[] = {{{1, 2, 3}, u"T"_s, 1, 7}};
    QVERIFY_THROWS_EXCEPTION(FileError, appendMultibets(event.session, bets));
    QCOMPARE(event.session.settings.operationLabel, u"Append Bets"_s);
    QCOMPARE(event.read(u"Multibets Race1"_s), file);
}

TRELAWN_TEST(tst_multibetrecords)
#include "tst_multibetrecords.moc"
