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

// A record file from its lines.
static QByteArray file(const QByteArrayList &lines)
{
    return lines.isEmpty() ? QByteArray() : QByteArray(lines.join("\r\n") + "\r\n");
}

void tst_bettorlist::names_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("small letters become capitals") << u"smith-john"_s << u"SMITH-JOHN"_s;
    QTest::newRow("blanks and digits stay") << u" team 2  b "_s << u" TEAM 2  B "_s;
    QTest::newRow("accented letters") << u"müller-åse"_s << u"MÜLLER-ÅSE"_s;
    QTest::newRow("quotes, which no record can hold") << u"o\"hara"_s << u"O'HARA"_s;
    QTest::newRow("AnyBettor typed is another bettor") << u"AnyBettor"_s << u"ANYBETTOR"_s;
}

void tst_bettorlist::names()
{
    QFETCH(QString, typed);
    QTEST(bettorNameFor(typed), "stored");
}

void tst_bettorlist::places_data()
{
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<QString>("reason");
    const QByteArray any = "1,\"AnyBettor\"";
    QTest::newRow("next slot is free") << file({any}) << QString();
    QTest::newRow("a gap is no obstacle") << file({any, "3,\"C\""}) << QString();
    QTest::newRow("the last place") << file({any, "4,\"D\""}) << QString();
    QTest::newRow("beyond the limit")
        << file({any, "5,\"E\""}) << u"Bettor number 6 is beyond the bettor limit of 5"_s;
    QTest::newRow("more on file than the limit allows")
        << file({any, "2,\"B\"", "3,\"C\"", "4,\"D\"", "5,\"E\"", "6,\"F\"", "7,\"G\""})
        << u"Bettor number 8 is beyond the bettor limit of 5"_s;
    QTest::newRow("the largest number there is") << file({any, "2147483647,\"Z\""}) << QString();
    QTest::newRow("slot of another bettor")
        << file({any, "5,\"E\"", "2,\"B\""}) << u"Bettor number 3 has no place: it is taken by B"_s;
    QTest::newRow("number of another bettor")
        << file({any, "4,\"D\"", "3,\"C\""}) << u"Bettor number 4 has no place: it is taken by D"_s;
}

void tst_bettorlist::places()
{
    QFETCH(QByteArray, records);
    QTEST(noPlaceReason(BettorTable::parse(records, 5), 5), "reason");
}

void tst_bettorlist::savedFiles_data()
{
    QTest::addColumn<QByteArrayList>("before");
    QTest::addColumn<QStringList>("deleted");
    QTest::addColumn<QStringList>("added");
    QTest::addColumn<QByteArrayList>("main");
    QTest::addColumn<QByteArrayList>("twin");
    const QByteArray any = "1,\"AnyBettor\"";
    QTest::newRow("added at the end")
        << QByteArrayList{any} << QStringList{} << QStringList{u"B"_s}
        << QByteArrayList{any, "2,\"B\""} << QByteArrayList{any, "2,\"B\""};
    QTest::newRow("behind a gap the backup stops")
        << QByteArrayList{any, "2,\"B\"", "4,\"D\""} << QStringList{} << QStringList{u"E"_s}
        << QByteArrayList{any, "2,\"B\"", "4,\"D\"", "5,\"E\""}
        << QByteArrayList{any, "2,\"B\"", "4,\"D\""};
    QTest::newRow("a deleted slot is no gap")
        << QByteArrayList{any, "2,\"B\"", "3,\"C\""} << QStringList{u"B"_s} << QStringList{u"D"_s}
        << QByteArrayList{any, "3,\"C\"", "4,\"D\""} << QByteArrayList{any, "3,\"C\"", "4,\"D\""};
    QTest::newRow("deleted and added again gets a new number")
        << QByteArrayList{any, "2,\"B\""} << QStringList{u"B"_s} << QStringList{u"B"_s}
        << QByteArrayList{any, "3,\"B\""} << QByteArrayList{any, "3,\"B\""};
    QTest::newRow("bettor 999 with a name is a bettor")
        << QByteArrayList{any, "999,\"Z\""} << QStringList{} << QStringList{}
        << QByteArrayList{any, "999,\"Z\""} << QByteArrayList{any, "999,\"Z\""};
    QTest::newRow("the first of an empty file is number 1")
        << QByteArrayList{} << QStringList{} << QStringList{u"B"_s} << QByteArrayList{"1,\"B\""}
        << QByteArrayList{"1,\"B\""};
    QTest::newRow("an empty list keeps the full backup")
        << QByteArrayList{} << QStringList{} << QStringList{} << QByteArrayList{}
        << QByteArrayList{"1,\"old\""};
    QTest::newRow("a damaged line stays")
        << QByteArrayList{any, "2,\"B", "3,\"C\""} << QStringList{u"C"_s} << QStringList{}
        << QByteArrayList{any, "2,\"B"} << QByteArrayList{any, "2,\"B"};
}

void tst_bettorlist::savedFiles()
{
    QFETCH(QByteArrayList, before);
    QFETCH(QStringList, deleted);
    QFETCH(QStringList, added);
    TestEvent event;
    event.write(u"Bettors"_s, file(before));
    event.write(u"Bettorsbackup"_s, file({"1,\"old\""}));
    loadBettors(event.session, u"Bettors input"_s);
    for (const QString &name : deleted)
        markBettorDeleted(event.session.bettors, name);
    for (const QString &name : added)
        addBettor(event.session.bettors, name);
    saveBettors(event.session);
    QFETCH(QByteArrayList, main);
    QCOMPARE(event.read(u"Bettors"_s), file(main));
    QFETCH(QByteArrayList, twin);
    QCOMPARE(event.read(u"Bettorsbackup"_s), file(twin));
}

void tst_bettorlist::savedCopies_data()
{
    QTest::addColumn<QByteArrayList>("onFile");
    QTest::addColumn<bool>("copied");
    const QByteArrayList loaded{"1,\"AnyBettor\"", "2,\"B\""};
    QTest::newRow("nothing is lost") << loaded << false;
    QTest::newRow("a bettor goes") << loaded + QByteArrayList{"3,\"C\""} << true;
    QTest::newRow("a bettor goes, the file grows") << QByteArrayList{"3,\"C\""} << true;
    QTest::newRow("a record is replaced") << QByteArrayList{loaded.front(), "2,\"X\""} << true;
}

void tst_bettorlist::savedCopies()
{
    TestEvent event;
    event.session.bettors = BettorTable::parse(file({"1,\"AnyBettor\"", "2,\"B\""}), 10);
    QFETCH(QByteArrayList, onFile);
    event.write(u"Bettors"_s, file(onFile));
    event.write(u"Bettorsbackup"_s, file(onFile));
    saveBettors(event.session);
    QFETCH(bool, copied);
    const QStringList copies = QDir(event.path(u"Saved"_s)).entryList(QDir::Files);
    QCOMPARE(copies.size(), copied ? 2 : 0);
    for (const QString &copy : copies)
        QCOMPARE(event.read("Saved/"_L1 + copy), file(onFile));
}

void tst_bettorlist::takenOutBets_data()
{
    QTest::addColumn<QByteArrayList>("bets");
    QTest::addColumn<QByteArrayList>("kept");
    QTest::addColumn<float>("refund");
    QTest::newRow("no bets") << QByteArrayList{"2,1,1,5", "3,1,1,4.50"}
                             << QByteArrayList{"2,1,1,5", "3,1,1,4.50"} << 0.0F;
    QTest::newRow("all types and posts")
        << QByteArrayList{"7,1,1,5", "7,21,2,2.5", "7,3,3,1"} << QByteArrayList{} << 8.5F;
    QTest::newRow("others keep their lines and order")
        << QByteArrayList{"17,1,1,5", "7,1,1,2", "70,2,3,.25", "7,2,2,2"}
        << QByteArrayList{"17,1,1,5", "70,2,3,.25"} << 4.0F;
    QTest::newRow("a bet without a bettor goes, a damaged line stays")
        << QByteArrayList{"0,1,1,5", "7,1,1", "7,1,1,2"} << QByteArrayList{"7,1,1"} << 2.0F;
}

void tst_bettorlist::takenOutBets()
{
    QFETCH(QByteArrayList, bets);
    QFETCH(QByteArrayList, kept);
    QFETCH(float, refund);
    TestEvent event;
    event.write(u"Bets Race1"_s, file(bets));
    event.write(u"Betsbackup Race1"_s, file(bets));
    event.write(u"Bets Race2"_s, file({"7,1,1,9"}));
    float refunded = -1;
    takeOutBets(event.session, 7, refunded);
    QCOMPARE(refunded, refund);
    QCOMPARE(event.read(u"Bets Race1"_s), file(kept));
    QCOMPARE(event.read(u"Betsbackup Race1"_s), file(kept));
    QCOMPARE(event.read(u"Bets Race2"_s), file({"7,1,1,9"}));
    QCOMPARE(event.session.pools.amount(totalsRow, totalColumn),
             poolsOf(parseBets(file(kept).toStdString())).amount(totalsRow, totalColumn));
    QVERIFY(betsAreOut(event.session, 7));
}

void tst_bettorlist::betsOfOtherRaces()
{
    TestEvent event;
    event.write(u"Bets Race1"_s, file({"7,1,1,3"}));
    event.write(u"Bets Race5"_s, file({"7,1,1,10", "8,1,1,50", "7,2,3,2"}));
    event.write(u"Bets Race12"_s, file({"7,1,1,1234.5"}));
    QFile::remove(event.path(u"Bets Race3"_s));
    QCOMPARE(racesWithBets(event.session, 7, false), u"Race5 $12.00, Race12 $1,234.50"_s);
    QCOMPARE(racesWithBets(event.session, 7, true),
             u"Race1 $3.00, Race5 $12.00, Race12 $1,234.50"_s);
    QCOMPARE(racesWithBets(event.session, 9, true), QString());
    QVERIFY(!event.exists(u"Bets Race3"_s));
    QDir(event.path({})).mkdir(u"Bets Race3"_s);
    QCOMPARE(racesWithBets(event.session, 8, true),
             u"Race3 (Path/File access error), Race5 $50.00"_s);
}

void tst_bettorlist::refundSlips_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<float>("amount");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("nothing to refund") << u"SMITH-JOHN"_s << 0.0F << QStringList{};
    QTest::newRow("amount in the print zone after the name's 20 characters")
        << u"SMITH-JOHN"_s << 1234.5F << QStringList{u"SMITH-JOHN                  $1,234.50"_s};
    QTest::newRow("a long name is not cut")
        << u"ABCDEFGHIJKLMNOPQRSTUVWXYZ-ABCD"_s << 2.0F
        << QStringList{u"ABCDEFGHIJKLMNOPQRSTUVWXYZ-ABCD           $2.00"_s};
    QTest::newRow("a negative sum stands in brackets")
        << u"B"_s << -2.0F << QStringList{u"B                           ($2.00)"_s};
}

void tst_bettorlist::refundSlips()
{
    QFETCH(QString, name);
    QFETCH(float, amount);
    QFETCH(QStringList, lines);
    const Slip slip = bettorRefundSlip(name, amount);
    QCOMPARE(slipText(slip), QStringList({"REFUND BETS FOR "_L1 + name, u" "_s,
                                          u"Bettor Name                  Amount"_s, u" "_s})
                                 + lines);
    QCOMPARE(slip.fontName, u"MS Sans Serif"_s);
    QCOMPARE(slip.pointSize, 8.0);
}

void tst_bettorlist::clearing()
{
    TestEvent event;
    const QByteArray old = file({"1,\"AnyBettor\"", "2,\"B\""});
    event.write(u"Bettors"_s, old);
    QFile::remove(event.path(u"Bettorsbackup"_s));
    clearBettors(event.session);
    QCOMPARE(event.read(u"Bettors"_s), file({"1,\"AnyBettor\""}));
    QCOMPARE(event.read(u"Bettorsbackup"_s), file({"1,\"AnyBettor\""}));
    QCOMPARE(event.session.bettors.nextNumber, 2);
    const QStringList copies = QDir(event.path(u"Saved"_s)).entryList(QDir::Files);
    QCOMPARE(copies.size(), 1);
    QCOMPARE(event.read("Saved/"_L1 + copies.front()), old);
}

TRELAWN_TEST_MAIN(tst_bettorlist)
#include "tst_bettorlist.moc"
