#include "betting/bettorlist.h"
#include "betting/bettorrefund.h"
#include "common/racefiles.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

class tst_bettorlist : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void places_data();
    void places();
    void savedFiles_data();
    void savedFiles();
    void savedCopies_data();
    void savedCopies();
    void takenOutBets_data();
    void takenOutBets();
    void betsOfOtherRaces();
    void refundSlips_data();
    void refundSlips();
    void clearing();
};

namespace {

// A record file, written in one line: 1,'AnyBettor'|2,'B'
QByteArray file(QByteArray lines)
{
    if (!lines.isEmpty())
        lines += '|';
    return lines.replace('\'', '"').replace("|", "\r\n");
}

// The files in the Saved folder.
QStringList copies(const TestEvent &event)
{
    return QDir(event.path(u"Saved"_s)).entryList(QDir::Files);
}

} // namespace

void tst_bettorlist::names_data()
{
    QTest::addColumn<QString>("stored");
    QTest::newRow("smith-john") << u"SMITH-JOHN"_s;
    QTest::newRow(" team 2  b ") << u" TEAM 2  B "_s;
    QTest::newRow("müller-åse") << u"MÜLLER-ÅSE"_s;
    QTest::newRow("o\"hara") << u"O'HARA"_s;
    QTest::newRow("AnyBettor") << u"ANYBETTOR"_s;
}

void tst_bettorlist::names()
{
    QTEST(bettorNameFor(QString::fromUtf8(QTest::currentDataTag())), "stored");
}

void tst_bettorlist::places_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char *name, const char *records, const char *reason) {
        QTest::newRow(name) << QByteArray(records) << QByteArray(reason);
    };
    row("next slot is free", "1,'AnyBettor'", "");
    row("a gap is no obstacle", "1,'AnyBettor'|3,'C'", "");
    row("the last place", "1,'AnyBettor'|4,'D'", "");
    row("beyond the limit", "1,'AnyBettor'|5,'E'",
        "Bettor number 6 is beyond the bettor limit of 5");
    row("more on file than the limit allows", "1,'A'|2,'B'|3,'C'|4,'D'|5,'E'|6,'F'|7,'G'",
        "Bettor number 8 is beyond the bettor limit of 5");
    row("no number is larger", "1,'AnyBettor'|2147483647,'Z'", "");
    row("slot of another bettor", "1,'AnyBettor'|5,'E'|2,'B'",
        "Bettor number 3 has no place: it is taken by B");
    row("number of another bettor", "1,'AnyBettor'|4,'D'|3,'C'",
        "Bettor number 4 has no place: it is taken by D");
}

void tst_bettorlist::places()
{
    QFETCH(QByteArray, records);
    const BettorTable bettors = BettorTable::parse(file(records), 5);
    const QByteArray found = noPlaceReason(bettors, 5).toUtf8();
    QTEST(found, "reason");
}

void tst_bettorlist::savedFiles_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("changes"); // -B deletes B, +C adds C
    QTest::addColumn<QByteArray>("main");
    QTest::addColumn<QByteArray>("twin");
    const auto row = [](const char *name, const char *before, const char *changes, const char *main,
                        const char *twin) {
        QTest::newRow(name) << QByteArray(before) << QByteArray(changes) << QByteArray(main)
                            << QByteArray(twin);
    };
    const auto same = [&](const char *name, const char *before, const char *changes,
                          const char *after) { row(name, before, changes, after, after); };
    same("added at the end", "1,'AnyBettor'", "+B", "1,'AnyBettor'|2,'B'");
    row("behind a gap the backup stops", "1,'AnyBettor'|2,'B'|4,'D'", "+E",
        "1,'AnyBettor'|2,'B'|4,'D'|5,'E'", "1,'AnyBettor'|2,'B'|4,'D'");
    same("a deleted slot is no gap", "1,'AnyBettor'|2,'B'|3,'C'", "-B +D",
         "1,'AnyBettor'|3,'C'|4,'D'");
    same("added again gets a new number", "1,'AnyBettor'|2,'B'", "-B +B", "1,'AnyBettor'|3,'B'");
    same("999 with a name is a bettor", "1,'AnyBettor'|999,'Z'", "", "1,'AnyBettor'|999,'Z'");
    same("the first of an empty file is number 1", "", "+B", "1,'B'");
    row("an empty list keeps the full backup", "", "", "", "1,'old'");
    same("a damaged line stays", "1,'AnyBettor'|2,'B|3,'C'", "-C", "1,'AnyBettor'|2,'B");
}

void tst_bettorlist::savedFiles()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, changes);
    QFETCH(QByteArray, main);
    QFETCH(QByteArray, twin);
    TestEvent event(false);
    event.write(u"Bettors"_s, file(before));
    event.write(u"Bettorsbackup"_s, file("1,'old'"));
    loadBettors(event.session, u"Bettors input"_s);
    const QStringList steps = QString::fromUtf8(changes).split(u' ', Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        if (step.startsWith(u'-'))
            markBettorDeleted(event.session.bettors, step.mid(1));
        else
            addBettor(event.session.bettors, step.mid(1));
    }
    saveBettors(event.session, event.session.bettors);
    QCOMPARE(event.read(u"Bettors"_s), file(main));
    QCOMPARE(event.read(u"Bettorsbackup"_s), file(twin));
}

void tst_bettorlist::savedCopies_data()
{
    QTest::addColumn<QByteArray>("onFile");
    QTest::addColumn<int>("copied");
    QTest::newRow("nothing is lost") << QByteArray("1,'AnyBettor'|2,'B'") << 0;
    QTest::newRow("a bettor goes") << QByteArray("1,'AnyBettor'|2,'B'|3,'C'") << 2;
    QTest::newRow("a bettor goes, the file grows") << QByteArray("3,'C'") << 2;
    QTest::newRow("a record is replaced") << QByteArray("1,'AnyBettor'|2,'X'") << 2;
}

void tst_bettorlist::savedCopies()
{
    QFETCH(QByteArray, onFile);
    TestEvent event(false);
    event.session.bettors = BettorTable::parse(file("1,'AnyBettor'|2,'B'"), 10);
    event.write(u"Bettors"_s, file(onFile));
    event.write(u"Bettorsbackup"_s, file(onFile));
    saveBettors(event.session, event.session.bettors);
    QTEST(int(copies(event).size()), "copied");
    for (const QString &copy : copies(event))
        QCOMPARE(event.read("Saved/"_L1 + copy), file(onFile));
}

void tst_bettorlist::takenOutBets_data()
{
    QTest::addColumn<QByteArray>("bets");
    QTest::addColumn<QByteArray>("kept");
    QTest::addColumn<float>("refund");
    const auto row = [](const char *name, const char *bets, const char *kept, float refund) {
        QTest::newRow(name) << QByteArray(bets) << QByteArray(kept) << refund;
    };
    row("no bets", "2,1,1,5|3,1,1,4.50", "2,1,1,5|3,1,1,4.50", 0);
    row("all types and posts", "7,1,1,5|7,21,2,2.5|7,3,3,1", "", 8.5F);
    row("others stay as they are", "17,1,1,5|7,1,1,2|70,2,3,.25|7,2,2,2", "17,1,1,5|70,2,3,.25", 4);
    row("a bet without a bettor goes", "0,1,1,5|7,1,1,2|8,1,1,1", "8,1,1,1", 2);
    row("a damaged line stays", "7,1,1|7,1,1,2", "7,1,1", 2);
}

void tst_bettorlist::takenOutBets()
{
    QFETCH(QByteArray, bets);
    QFETCH(QByteArray, kept);
    TestEvent event(false);
    event.write(u"Bets Race1"_s, file(bets));
    event.write(u"Betsbackup Race1"_s, file(bets));
    event.write(u"Bets Race2"_s, file("7,1,1,9"));
    float refunded = -1;
    takeOutBets(event.session, 7, refunded);
    QTEST(refunded, "refund");
    QCOMPARE(event.read(u"Bets Race1"_s), file(kept));
    QCOMPARE(event.read(u"Betsbackup Race1"_s), file(kept));
    QCOMPARE(event.read(u"Bets Race2"_s), file("7,1,1,9"));
    QCOMPARE(event.session.pools.amount(totalsRow, totalColumn),
             poolsOf(parseBets(file(kept).toStdString())).amount(totalsRow, totalColumn));
}

void tst_bettorlist::betsOfOtherRaces()
{
    TestEvent event(false);
    event.write(u"Bets Race1"_s, file("7,1,1,3"));
    event.write(u"Bets Race5"_s, file("7,1,1,10|8,1,1,50|7,2,3,2"));
    event.write(u"Bets Race12"_s, file("7,1,1,1234.5"));
    const QString elsewhere = u"Race5 $12.00, Race12 $1,234.50"_s;
    QCOMPARE(racesWithBets(event.session, 7, false), elsewhere);
    QCOMPARE(racesWithBets(event.session, 7, true), u"Race1 $3.00, "_s + elsewhere);
    QCOMPARE(racesWithBets(event.session, 9, true), QString());
    QVERIFY(!event.exists(u"Bets Race3"_s));
    QDir().mkdir(event.path(u"Bets Race3"_s));
    QCOMPARE(racesWithBets(event.session, 8, true),
             u"Race3 (Path/File access error), Race5 $50.00"_s);
}

void tst_bettorlist::refundSlips_data()
{
    QTest::addColumn<float>("amount");
    QTest::addColumn<QString>("line");
    QTest::newRow("NO-BETS") << 0.0F << QString();
    QTest::newRow("SMITH-JOHN") << 1234.5F << u"SMITH-JOHN                  $1,234.50"_s;
    QTest::newRow("ABCDEFGHIJKLMNOPQRSTUVWXYZ-ABCD")
        << 2.0F << u"ABCDEFGHIJKLMNOPQRSTUVWXYZ-ABCD           $2.00"_s;
    QTest::newRow("NEGATIVE") << -2.0F << u"NEGATIVE                    ($2.00)"_s;
}

void tst_bettorlist::refundSlips()
{
    QFETCH(float, amount);
    QFETCH(QString, line);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QStringList lines{"REFUND BETS FOR "_L1 + name, u" "_s,
                      u"Bettor Name                  Amount"_s, u" "_s};
    if (!line.isEmpty())
        lines << line;
    const Slip slip = bettorRefundSlip(name, amount);
    QCOMPARE(slipText(slip), lines);
    QCOMPARE(slip.fontName, u"MS Sans Serif"_s);
    QCOMPARE(slip.pointSize, 8.0);
}

void tst_bettorlist::clearing()
{
    TestEvent event(false);
    event.write(u"Bettors"_s, file("1,'AnyBettor'|2,'B'"));
    clearBettorList(event.session);
    QCOMPARE(event.read(u"Bettors"_s), file("1,'AnyBettor'"));
    QCOMPARE(event.read(u"Bettorsbackup"_s), file("1,'AnyBettor'"));
    QCOMPARE(event.session.bettors.nextNumber, 2);
    QCOMPARE(copies(event).size(), 1);
    QCOMPARE(event.read("Saved/"_L1 + copies(event).front()), file("1,'AnyBettor'|2,'B'"));
}

TRELAWN_TEST_MAIN(tst_bettorlist)
#include "tst_bettorlist.moc"
