#include "kit/testkit.h"
#include "setup/restore.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray whole = "1,3,1,2\r\n2,4,1,5\r\n1,1,2,10\r\n";
const QByteArray torn = "1,3,1,2\r\n2,4,";

// Answers the four questions, Yes where \a yes says so.
void answer(BoxRobot &robot, const QString &yes)
{
    const QString names[] = {u"Bets"_s, u"Horses"_s, u"Bettors"_s, u"Multibets"_s};
    for (const QString &name : names) {
        const bool wanted = yes.split(u' ').contains(name);
        robot.expect(u"Replace "_s + name + u" with "_s + name + u"backup?"_s, u"Backup"_s,
                     wanted ? Answer::Yes : Answer::No);
        if (wanted)
            robot.expect((name == "Bets"_L1 ? u"Bet"_s : name) + u" file replaced with "_s + name
                             + u"backup file"_s,
                         u"Backup"_s);
    }
}

} // namespace

class tst_restore : public QObject
{
    Q_OBJECT

private slots:
    void allFour();
    void copies();
    void failureEndsIt();
    void unreadable();
};

// A yes to each: three files of this race and the bettors of all; other races stay.
void tst_restore::allFour()
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
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    answer(robot, u"Bets Horses Bettors Multibets"_s);
    clickButton(menu, u"cmdbackup"_s);
    QVERIFY(robot.allCame());
    for (const QString &file : files) {
        QCOMPARE(event.read(file.arg(QString())), "good " + file.toUtf8());
        QCOMPARE(event.read(file.arg(u"backup"_s)), "good " + file.toUtf8());
        QCOMPARE(event.savedCopies(file.arg(QString())), QByteArrayList{"torn " + file.toUtf8()});
    }
    QCOMPARE(event.read(u"Bets Race4"_s), QByteArray());
}

// The twin is copied as it is, damaged or empty; the file that it replaces is kept.
void tst_restore::copies()
{
    // The questions answered with Yes, the file and its twin before, and the note.
    const std::tuple<QString, QByteArray, QByteArray, QString> cases[] = {
        {u"Bets"_s, torn, whole, u"Bets Race3: 2 records before, 3 now"_s},
        {u"Bets"_s, {}, whole, u"Bets Race3: 0 records before, 3 now"_s}, // there is no file
        {u"Bets"_s, whole, torn, u"Bets Race3: 3 records before, 2 now"_s},
        {{}, torn, whole, {}}};
    for (const auto &[yes, main, twin, note] : cases) {
        TestEvent event;
        event.session.settings.currentRace = 3;
        event.write(u"Bets Race3"_s, main);
        if (main.isEmpty())
            QVERIFY(QFile::remove(event.path(u"Bets Race3"_s)));
        event.write(u"Betsbackup Race3"_s, twin);
        QWidget *menu = event.open(u"frmmenub"_s);
        BoxRobot robot;
        answer(robot, yes);
        clickButton(menu, u"cmdbackup"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(event.read(u"Bets Race3"_s), yes.isEmpty() ? main : twin);
        QCOMPARE(event.read(u"Betsbackup Race3"_s), twin);
        QCOMPARE(labelText(menu, u"lblnote"_s), note);
        if (!yes.isEmpty() && !main.isEmpty())
            QCOMPARE(event.savedCopies(u"Bets Race3"_s), QByteArrayList{main});
    }
}

// A missing twin is told, the file stays, and the other questions do not come.
void tst_restore::failureEndsIt()
{
    TestEvent event;
    event.session.settings.currentRace = 3;
    QFile::remove(event.path(u"Horsesbackup Race3"_s));
    const QByteArray before = event.read(u"Horses Race3"_s);
    QWidget *menu = event.open(u"frmmenub"_s);
    BoxRobot robot;
    robot.expect(u"Replace Bets with Betsbackup?"_s, u"Backup"_s, Answer::No);
    robot.expect(u"Replace Horses with Horsesbackup?"_s, u"Backup"_s, Answer::Yes);
    robot.expect(u"File not found Horsesbackup input"_s, u"Horsesbackup input"_s);
    clickButton(menu, u"cmdbackup"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Horses Race3"_s), before);
}

// A file that cannot be read is what a backup is for.
void tst_restore::unreadable()
{
    TestEvent event;
    event.write(u"Betsbackup Race1"_s, whole);
    QFile hole(event.path(u"Bets Race1"_s));
    QVERIFY(hole.resize(largestFile + 1));
    QCOMPARE(restoreFromTwin(event.session, RecordFile::Bets),
             u"Bets Race1 could not be read before: 3 now"_s);
    QCOMPARE(event.read(u"Bets Race1"_s), whole);
}

TRELAWN_TEST(tst_restore)
#include "tst_restore.moc"
