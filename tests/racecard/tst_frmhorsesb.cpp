#include "kit/testkit.h"
#include "ui/mainwindow.h"

#include <QButtonGroup>
#include <QPlainTextEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;

namespace {

// A Horses file with these posts filled; the others are as in a new race.
QByteArray horseFile(const QMap<int, QByteArray> &filled)
{
    QByteArray bytes;
    for (int post = 1; post <= 21; ++post)
        bytes += QByteArray::number(post) + ',' + filled.value(post, "0,\"  \",\"\"") + "\r\n";
    return bytes;
}

const QByteArray race1 = horseFile({{1, "1,\"1 \",\"SECRETARIAT\""},
                                    {2, "1,\"1A\",\"ANGLE LIGHT\""},
                                    {3, "0,\"2 \",\"SHAM\""},
                                    {21, "4,\"8 \",\"zzz\""}});
const QByteArray race1Shown = horseFile(
    {{1, "1,\"1 \",\"SECRETARIAT\""}, {2, "1,\"1A\",\"ANGLE LIGHT\""}, {3, "0,\"2 \",\"SHAM\""}});

} // namespace

class tst_frmhorsesb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void showsTheRaceAndNothingOfAnother();
    void updateWritesBothFiles();
    void badPoolIsRefusedBeforeAnythingIsWritten();
    void clearNeedsARaceWithoutBets();
    void clearedCardCanBeFilledAtOnce();
    void scratchRefundsAndFreesThePost();
    void scratchChecksTheCardBeforeItRefunds();
    void missingBettorsEndTheScratch();
    void unreadableCardIsReportedAndKept();
    void cardChangedElsewhere();
    void unreadableBetsAreANote();
    void editsAreFlagged();
    void messageIsHeldForTheRun();
    void keyboardWalksTheCard();

private:
    QString rowText(int post) const;
    QString note() const { return labelText(screen, u"lblnote"_s); }
    void chooseRace(int race);
    void expectScratchOfSham();
    bool click(const QString &button);
    bool update();
    QByteArray horses() const { return event->read(u"Horses Race1"_s); }

    std::unique_ptr<TestEvent> event;
    std::unique_ptr<BoxRobot> robot;
    QWidget *screen = nullptr;
};

void tst_frmhorsesb::init()
{
    event = std::make_unique<TestEvent>();
    robot = std::make_unique<BoxRobot>();
    event->session.settings.banner = u"Derby"_s;
    event->write(u"Horses Race1"_s, race1);
    event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n3,\"JONES-AMY\"\r\n");
    screen = event->open(u"frmhorsesb"_s);
}

// "post|number|horse|pool" of the row
QString tst_frmhorsesb::rowText(int post) const
{
    QStringList texts;
    for (const QString &name : {u"txtpost"_s, u"txtnumber"_s, u"txthorse"_s, u"txtpool"_s})
        texts << fieldText(screen, name + u'_' + QString::number(post - 1));
    return texts.join(u'|');
}

void tst_frmhorsesb::chooseRace(int race)
{
    child<QRadioButton>(screen, u"optrace_"_s + QString::number(race))->click();
}

// True when the boxes that were expected came and no other.
bool tst_frmhorsesb::click(const QString &button)
{
    clickButton(screen, button);
    return robot->allCame();
}

// Saves the card; true when nothing but the question came.
bool tst_frmhorsesb::update()
{
    robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
    return click(u"cmdupdatehorses"_s);
}

// Answers the questions that come before the scratch of post 3.
void tst_frmhorsesb::expectScratchOfSham()
{
    robot->expect(u"Scratch a horse?"_s, u"Horses"_s, Answer::Yes);
    robot->expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, u"3"_s);
    robot->expect(u"Scratch SHAM"_s, u"Horses"_s, Answer::Ok);
}

void tst_frmhorsesb::showsTheRaceAndNothingOfAnother()
{
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Derby Race1"_s);
    QCOMPARE(rowText(1), u"1|1|SECRETARIAT|1"_s);
    QCOMPARE(rowText(2), u"2|1A|ANGLE LIGHT|1"_s);
    QCOMPARE(rowText(21), u"21|||0"_s); // "zzz" is no horse

    event->write(u"Horses Race7"_s,
                 horseFile({{1, "3,\"5 \",\"zzz\""}, {2, "0,\"6 \",\"FOREGO\""}}));
    chooseRace(7);
    QCOMPARE(event->session.settings.currentRace, 7);
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Derby Race7"_s);
    QCOMPARE(rowText(1), u"1|||0"_s);
    QCOMPARE(rowText(2), u"2|6|FOREGO|0"_s);
    QCOMPARE(rowText(3), u"3|||0"_s);
}

void tst_frmhorsesb::updateWritesBothFiles()
{
    typeInto(screen, u"txtnumber_20"_s, u"12"_s);
    typeInto(screen, u"txthorse_20"_s, u"Mrs. O'Hara, & Co"_s);
    typeInto(screen, u"txtpool_20"_s, u"9"_s);
    robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::No);
    QVERIFY(click(u"cmdupdatehorses"_s));
    QCOMPARE(horses(), race1);

    QVERIFY(update());
    QByteArray expected = race1Shown;
    expected.replace("21,0,\"  \",\"\"", "21,9,\"12\",\"Mrs. O'Hara, & Co\"");
    QCOMPARE(horses(), expected);
    QCOMPARE(event->read(u"Horsesbackup Race1"_s), expected);
    QCOMPARE(labelText(screen, u"lblunsaved"_s), QString());
}

void tst_frmhorsesb::badPoolIsRefusedBeforeAnythingIsWritten()
{
    typeInto(screen, u"txthorse_5"_s, u"NEW"_s);
    typeInto(screen, u"txtpool_5"_s, QString());
    typeInto(screen, u"txtpool_20"_s, u"12"_s);
    robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
    robot->expect(u"Pool number must be between 0 and 9"_s, u"Horses"_s);
    QVERIFY(click(u"cmdupdatehorses"_s));
    QCOMPARE(rowText(6), u"6||NEW|0"_s);
    QCOMPARE(rowText(21), u"21|||0"_s);
    QCOMPARE(horses(), race1);
    QCOMPARE(note(), u"Nothing was saved. Pool set to 0 at post 6, 21"_s);

    QVERIFY(update());
    QVERIFY(horses().contains("6,0,\"  \",\"NEW\""));
}

void tst_frmhorsesb::clearNeedsARaceWithoutBets()
{
    // Bets that another computer placed since the screen opened count, and so does any record.
    for (const char *bets : {"2,3,1,2.00\r\n", "2,3,1,0\r\n", "2,3\r\n"}) {
        event->write(u"Bets Race1"_s, bets);
        robot->expect(u"Must clear all bets first"_s, u"Clear horses"_s);
        QVERIFY(click(u"cmdclearhorses"_s));
        QCOMPARE(horses(), race1);
    }
    event->write(u"Bets Race1"_s, "");
    robot->expect(u"Clear All Horses?"_s, u"Horses"_s, Answer::Cancel);
    QVERIFY(click(u"cmdclearhorses"_s));
    QCOMPARE(horses(), race1);
    QCOMPARE(rowText(3), u"3|2|SHAM|0"_s);
}

void tst_frmhorsesb::clearedCardCanBeFilledAtOnce()
{
    robot->expect(u"Clear All Horses?"_s, u"Horses"_s, Answer::Ok);
    robot->expect(u" Race1 Horse file cleared"_s, u"TRELAWN"_s);
    QVERIFY(click(u"cmdclearhorses"_s));
    QCOMPARE(rowText(1), u"1|||"_s);
    QCOMPARE(rowText(21), u"21|||"_s);
    QCOMPARE(horses(), horseFile({}));
    QCOMPARE(event->read(u"Horsesbackup Race1"_s), horseFile({}));
    QCOMPARE(event->savedCopies(u"Horses Race1"_s), QByteArrayList{race1});

    typeInto(screen, u"txtpool_1"_s, u"2"_s);
    typeInto(screen, u"txthorse_1"_s, u"FOREGO"_s);
    QVERIFY(update());
    QCOMPARE(horses(), horseFile({{2, "2,\"  \",\"FOREGO\""}}));
}

void tst_frmhorsesb::scratchRefundsAndFreesThePost()
{
    const QByteArray damaged = "9,9\r\n";
    event->write(u"Bets Race1"_s,
                 "3,3,1,4.00\r\n2,1,1,5.00\r\n" + damaged + "2,3,3,.50\r\n2,3,1,2.00\r\n");
    event->write(u"Multibets Race1"_s, "3,1,0,\"EX\",2,2\r\n1,2,0,\"EX\",2,2\r\n");
    expectScratchOfSham();
    robot->expect(u"SHAMScratched"_s, u"Horses"_s);
    QVERIFY(click(u"cmdscratch"_s));

    QCOMPARE(slipText(event->slips.value(0)).mid(4),
             QStringList(
                 {u"SMITH-JOHN                  $2.50"_s, u"JONES-AMY                   $4.00"_s}));
    QCOMPARE(event->read(u"Bets Race1"_s), "2,1,1,5.00\r\n" + damaged);
    QCOMPARE(event->read(u"Betsbackup Race1"_s), "2,1,1,5.00\r\n" + damaged);
    QCOMPARE(rowText(3), u"3|||0"_s);
    QByteArray expected = race1Shown;
    expected.replace("3,0,\"2 \",\"SHAM\"", "3,0,\"  \",\"\"");
    QCOMPARE(horses(), expected);
    QCOMPARE(event->read(u"Horsesbackup Race1"_s), expected);
    QCOMPARE(note(), u"Multibets on post 3, not refunded: 1 ($2.00)"_s);
}

void tst_frmhorsesb::scratchChecksTheCardBeforeItRefunds()
{
    event->write(u"Bets Race1"_s, "2,3,1,2.00\r\n");
    // Neither a post that is not on the card nor one without a horse is scratched.
    for (const auto &[typed, box] :
         {std::pair{u"22"_s, u"Post position not valid"_s}, {u"4"_s, {}}}) {
        robot->expect(u"Scratch a horse?"_s, u"Horses"_s, Answer::Yes);
        robot->expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, typed);
        if (!box.isEmpty())
            robot->expect(box, u"TRELAWN"_s);
        QVERIFY(click(u"cmdscratch"_s));
    }
    typeInto(screen, u"txtpool_9"_s, u"x"_s);
    expectScratchOfSham();
    robot->expect(u"Pool number must be between 0 and 9"_s, u"Horses"_s);
    QVERIFY(click(u"cmdscratch"_s));
    QVERIFY(event->slips.isEmpty());
    QCOMPARE(event->read(u"Bets Race1"_s), QByteArray("2,3,1,2.00\r\n"));
    QCOMPARE(rowText(10), u"10|||0"_s);
}

// A missing list of bettors ends the scratch before any bet or horse is lost.
void tst_frmhorsesb::missingBettorsEndTheScratch()
{
    event->write(u"Bets Race1"_s, "2,3,1,2.00\r\n");
    QVERIFY(QFile::remove(event->path(u"Bettors"_s)));
    expectScratchOfSham();
    robot->expect(u"File not found Bettors input"_s, u"Bettors input"_s);
    QVERIFY(click(u"cmdscratch"_s));
    QCOMPARE(rowText(3), u"3|2|SHAM|0"_s);
    QCOMPARE(event->read(u"Bets Race1"_s), QByteArray("2,3,1,2.00\r\n"));
    QCOMPARE(horses(), race1);
}

void tst_frmhorsesb::unreadableCardIsReportedAndKept()
{
    // A missing file is told; the card shown is empty and not the race's before.
    QVERIFY(QFile::remove(event->path(u"Horses Race2"_s)));
    robot->expect(u"File not found Horses input"_s, u"Horses input"_s);
    chooseRace(2);
    QVERIFY(robot->allCame());
    QCOMPARE(rowText(1), u"1|||0"_s);

    // A damaged one is told, not written over without a question, and what stood in it is kept.
    event->write(u"Horses Race3"_s, "1,0,\"1 \",\"SHAM\"\r\n2,0,\"2 \"\r\n");
    chooseRace(3);
    QCOMPARE(rowText(1), u"1|1|SHAM|0"_s);
    const QString damage = u"The horse file has only 1 of 21 posts, 1 damaged line."_s;
    QCOMPARE(note(), damage + u" The other posts are shown empty."_s);
    const QString question = damage
                             + u" Copies of file and twin will go to Saved.\n"
                               "Write the horses of this screen in place of them?"_s;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
        robot->expect(question, u"Horses"_s, answer);
        QVERIFY(click(u"cmdupdatehorses"_s));
        QCOMPARE(event->savedCopies(u"Horses Race3"_s).size(), answer == Answer::Yes ? 1 : 0);
    }
    QVERIFY(update()); // whole now
}

// What another computer did to the card since it was loaded is undone only on purpose.
void tst_frmhorsesb::cardChangedElsewhere()
{
    const QByteArray without =
        horseFile({{1, "1,\"1 \",\"SECRETARIAT\""}, {2, "1,\"1A\",\"ANGLE LIGHT\""}});
    event->write(u"Horses Race1"_s, without);
    const QString question = u"The card was changed since it was loaded:\nPost 3: SHAM runs no "
                             "longer\nWrite the horses of this screen in place of them?"_s;
    robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
    robot->expect(question, u"Horses"_s, Answer::No);
    QVERIFY(click(u"cmdupdatehorses"_s));
    QCOMPARE(horses(), without);
    expectScratchOfSham();
    robot->expect(question, u"Horses"_s, Answer::No);
    QVERIFY(click(u"cmdscratch"_s));
    QCOMPARE(horses(), without);
    robot->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
    robot->expect(question, u"Horses"_s, Answer::Yes);
    QVERIFY(click(u"cmdupdatehorses"_s));
    QCOMPARE(horses(), race1Shown);
    QVERIFY(update()); // what was written is what is there
}

void tst_frmhorsesb::unreadableBetsAreANote()
{
    QVERIFY(QFile::remove(event->path(u"Bets Race2"_s)));
    QVERIFY(QDir().mkdir(event->path(u"Bets Race2"_s)));
    chooseRace(2);
    QVERIFY(note().contains(u"cannot be read"_s));
    QVERIFY(robot->allCame());
}

void tst_frmhorsesb::editsAreFlagged()
{
    event->write(u"Bets Race1"_s, "2,3,1,2.00\r\n3,3,3,10\r\n");
    chooseRace(1);
    QCOMPARE(labelText(screen, u"lblunsaved"_s), QString());
    typeInto(screen, u"txthorse_2"_s, u"SHAMROCK"_s);
    QCOMPARE(labelText(screen, u"lblunsaved"_s), u"not saved"_s);
    QCOMPARE(note(), u"Post 3 has bets of $12.00"_s);
    typeInto(screen, u"txthorse_3"_s, u"FOREGO"_s);
    QCOMPARE(note(), QString());
    typeInto(screen, u"txthorse_3"_s, QString());
    typeInto(screen, u"txthorse_2"_s, u"SHAM"_s);
    QCOMPARE(labelText(screen, u"lblunsaved"_s), QString());
    typeInto(screen, u"txthorse_2"_s, u"SHAMROCK"_s);
    chooseRace(2);
    QCOMPARE(note(), u"Race1: changed posts that were not saved: 1"_s);
    QCOMPARE(labelText(screen, u"lblunsaved"_s), QString());
}

void tst_frmhorsesb::messageIsHeldForTheRun()
{
    auto *message = child<QPlainTextEdit>(screen, u"txtmsg"_s);
    QCOMPARE(message->toPlainText().split(u'\n').value(2),
             u"Bring your sheet to the cashier. It will be returned to you after your bets are "
             "entered. Save the "_s);
    message->setPlainText(u"One line"_s);
    robot->expect(u"Bet Sheet message updated"_s, u"Horses"_s);
    QVERIFY(click(u"cmdmsg"_s));
    screen = event->open(u"frmhorsesb"_s);
    QCOMPARE(child<QPlainTextEdit>(screen, u"txtmsg"_s)->toPlainText(), u"One line"_s);
}

void tst_frmhorsesb::keyboardWalksTheCard()
{
    const auto press = [this](Qt::Key key, const QString &from) {
        child<QLineEdit>(screen, from)->setFocus();
        QTest::keyClick(screen->focusWidget(), key);
        return screen->focusWidget()->objectName();
    };
    QCOMPARE(tabOrder(screen).mid(0, 4),
             QStringList({u"txtnumber_0"_s, u"txthorse_0"_s, u"txtpool_0"_s, u"txtnumber_1"_s}));
    QCOMPARE(press(Qt::Key_Up, u"txtnumber_0"_s), u"txtnumber_0"_s);
    QCOMPARE(press(Qt::Key_Return, u"txtnumber_0"_s), u"txtnumber_1"_s);
    QCOMPARE(press(Qt::Key_Down, u"txthorse_1"_s), u"txthorse_2"_s);
    QCOMPARE(child<QLineEdit>(screen, u"txthorse_2"_s)->selectedText(), u"SHAM"_s);
    QCOMPARE(press(Qt::Key_Down, u"txthorse_20"_s), u"txthorse_20"_s);
    QCOMPARE(press(Qt::Key_Enter, u"txthorse_20"_s), u"txtpool_0"_s);
    QCOMPARE(press(Qt::Key_Return, u"txtpool_20"_s), u"cmdupdatehorses"_s);
}

TRELAWN_TEST(tst_frmhorsesb)
#include "tst_frmhorsesb.moc"
