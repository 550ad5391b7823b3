#include "betting/bettorlist.h"
#include "common/event/eventrecords.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

class tst_bettorlist : public QObject
{
    Q_OBJECT

private slots:
    void places();
    void savedFiles_data();
    void savedFiles();
    void savedCopies();
    void betsOfOtherRaces();
};

namespace {

// A record file, written in one line: 1,'AnyBettor'|2,'B'
QByteArray file(QByteArray lines)
{
    if (!lines.isEmpty())
        lines += '|';
    return lines.replace('\'', '"').replace("|", "\r\n");
}

} // namespace

void tst_bettorlist::places()
{
    const std::pair<QByteArray, QString> lists[] = {
        {"1,'AnyBettor'|3,'C'", {}}, // a gap is no obstacle
        {"1,'AnyBettor'|4,'D'", {}}, // the last place
        {"1,'AnyBettor'|5,'E'", u"Bettor number 6 is beyond the bettor limit of 5"_s},
        {"1,'AnyBettor'|5,'E'|2,'B'", u"Bettor number 3 has no place: it is taken by B"_s},
        {"1,'AnyBettor'|4,'D'|3,'C'", u"Bettor number 4 has no place: it is taken by D"_s}};
    for (const auto &[records, reason] : lists)
        QCOMPARE(noPlaceReason(BettorTable::parse(file(records), 5), 5), reason);
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
    row("behind a gap the backup stops", "1,'AnyBettor'|2,'B'|4,'D'", "+E",
        "1,'AnyBettor'|2,'B'|4,'D'|5,'E'", "1,'AnyBettor'|2,'B'|4,'D'");
    same("a deleted slot is no gap", "1,'AnyBettor'|2,'B'|3,'C'", "-B +D",
         "1,'AnyBettor'|3,'C'|4,'D'");
    same("999 with a name is a bettor", "1,'AnyBettor'|999,'Z'", "", "1,'AnyBettor'|999,'Z'");
    same("changes join those of another program", "1,'AnyBettor'|2,'B'|3,'C'", "-B +M",
         "1,'AnyBettor'|3,'C'|4,'X'|5,'M'");
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
    event.session.bettors = readBettors(event.session);
    const BettorTable asRead = event.session.bettors;
    const QStringList steps = QString::fromUtf8(changes).split(u' ', Qt::SkipEmptyParts);
    for (const QString &step : steps) {
        if (step.startsWith(u'-'))
            markBettorDeleted(event.session.bettors, step.mid(1));
        else
            addBettor(event.session.bettors, step.mid(1));
    }
    if (steps.contains(u"-B"_s) && steps.contains(u"+M"_s)) // another program adds somebody
        event.write(u"Bettors"_s, file(before + "|4,'X'"));
    saveBettors(event.session, asRead);
    QCOMPARE(event.read(u"Bettors"_s), file(main));
    QCOMPARE(event.read(u"Bettorsbackup"_s), file(twin));
}

void tst_bettorlist::savedCopies()
{
    const std::pair<QByteArray, int> files[] = {{"1,'AnyBettor'|2,'B'", 0}, // nothing is lost
                                                {"1,'AnyBettor'|2,'B'|3,'C'", 2}}; // a bettor goes
    for (const auto &[onFile, copied] : files) {
        TestEvent event(false);
        event.session.bettors = BettorTable::parse(file("1,'AnyBettor'|2,'B'"), 10);
        event.write(u"Bettors"_s, file(onFile));
        event.write(u"Bettorsbackup"_s, file(onFile));
        saveBettors(event.session, BettorTable::parse(file(onFile), 10));
        QCOMPARE(event.saved().size(), copied);
        for (const QString &copy : event.saved())
            QCOMPARE(event.read("Saved/"_L1 + copy), file(onFile));
    }
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

TRELAWN_TEST(tst_bettorlist)
#include "tst_bettorlist.moc"
