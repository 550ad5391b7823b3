#include "kit/testkit.h"
#include "setup/restore.h"

const QByteArray whole = "1,3,1,2\r\n2,4,1,5\r\n1,1,2,10\r\n";
const QByteArray torn = "1,3,1,2\r\n2,4,";

class tst_restore : public QObject
{
    Q_OBJECT

private slots:
    // A yes to each: three files of this race and the bettors of all; other races stay.
    void allFour()
    {
        TestEvent event;
        event.session.settings.currentRace = 3;
        const QStringList files{u"Bets%1 Race3"_s, u"Horses%1 Race3"_s, u"Bettors%1"_s,
                                u"Multibets%1 Race3"_s};
        for (const QString &file : files) {
            event.write(file.arg(QString()), "torn " + file.toUtf8());
            event.write(file.arg(u"backup"_s), "good " + file.toUtf8());
        }
        event.write(u"Betsbackup Race4"_s, whole);
        restore(event, true);
        for (const QString &file : files) {
            QCOMPARE(event.readTwins(file.arg(QString())), "good " + file.toUtf8());
            QCOMPARE(event.savedCopies(file.arg(QString())),
                     QByteArrayList{"torn " + file.toUtf8()});
        }
        QCOMPARE(event.read(u"Bets Race4"_s), "");
    }

    // The twin is copied as it is, damaged or empty; the file that it replaces is kept. A file that
    // cannot be read is what a backup is for.
    void copies()
    {
        Rows<QByteArray, QByteArray, QString> rows;
        rows("torn", torn, whole, u"Bets Race1: 2 records before, 3 now"_s);
        rows("torn twin", whole, torn, u"Bets Race1: 3 records before, 2 now"_s);
        TestEvent event;
        QByteArrayList kept;
        for (const auto &[row, main, twin, note] : rows) {
            event.writeTwins(u"Bets Race1"_s, twin);
            event.write(u"Bets Race1"_s, main);
            QCOMPARE(restoreFromTwin(event.session, RecordFile::Bets), note);
            QCOMPARE(event.readTwins(u"Bets Race1"_s), twin);
            kept << main;
            QCOMPARE(event.savedCopies(u"Bets Race1"_s), kept);
        }
        event.remove({u"Bets Race1"_s});
        QCOMPARE(restoreFromTwin(event.session, RecordFile::Bets),
                 u"Bets Race1: 0 records before, 2 now"_s);
        QFile hole(event.path(u"Bets Race1"_s));
        QVERIFY(hole.resize(largestFile + 1));
        QCOMPARE(restoreFromTwin(event.session, RecordFile::Bets),
                 u"Bets Race1 could not be read before: 2 now"_s);
        QCOMPARE(event.readTwins(u"Bets Race1"_s), torn);
    }

    // After a No nothing changes. A missing twin is told, the file stays, and the other questions
    // do not come.
    void nothingRestored()
    {
        TestEvent event;
        event.write(u"Bets Race1"_s, torn);
        restore(event, false);
        QCOMPARE(event.read(u"Bets Race1"_s), torn);
        event.remove({u"Horsesbackup Race1"_s});
        event.boxes.expect(u"Replace Bets with Betsbackup?"_s, u"Backup"_s, Answer::No);
        event.boxes.expect(u"Replace Horses with Horsesbackup?"_s, u"Backup"_s, Answer::Yes);
        event.boxes.expect(u"File not found Horsesbackup input"_s, u"Horsesbackup input"_s);
        clickButton(event.current(), u"cmdbackup"_s);
        QVERIFY(event.exists(u"Horses Race1"_s));
    }

private:
    // Presses Use Backup Files and answers each of its four questions alike.
    static void restore(TestEvent &event, bool wanted)
    {
        const std::pair<QString, QString> files[] = {{u"Bets"_s, u"Bet"_s},
                                                     {u"Horses"_s, u"Horses"_s},
                                                     {u"Bettors"_s, u"Bettors"_s},
                                                     {u"Multibets"_s, u"Multibets"_s}};
        for (const auto &[name, told] : files) {
            event.boxes.expect(u"Replace %1 with %1backup?"_s.arg(name), u"Backup"_s,
                               wanted ? Answer::Yes : Answer::No);
            if (wanted)
                event.boxes.expect(told + u" file replaced with %1backup file"_s.arg(name),
                                   u"Backup"_s);
        }
        clickButton(event.open(u"frmmenub"_s), u"cmdbackup"_s);
    }
};

TRELAWN_TEST(tst_restore)
#include "tst_restore.moc"
