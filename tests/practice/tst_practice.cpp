#include "betting/bettorlist.h"
#include "betting/priorbets.h"
#include "common/event/cashjournal.h"
#include "common/event/networkmode.h"
#include "common/event/placement.h"
#include "common/print/till.h"
#include "kit/testkit.h"
#include "payoff/paying.h"
#include "payoff/settlerace.h"
#include "practice/guests.h"
#include "practice/lesson.h"
#include "practice/practice.h"
#include "reports/tillreport.h"
#include "setup/clearevent.h"
#include "setup/eventchoices.h"
#include "setup/eventfolders.h"

namespace {

constexpr int programs = 5;
constexpr int sheets = 40; // of the guests of each program

// Arguments: the data folder and the seed. Guests of one of several programs bet on race 1.
int playGuests(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    TestEvent event(false);
    event.session.paths = HostPaths(QString::fromLocal8Bit(argv[1]));
    enterPractice(event.session);
    Guests guests(QByteArray(argv[2]).toUInt());
    for (int sheet = 0; sheet < sheets; ++sheet) {
        if (guests.playSheet(event.session).turn != GuestTurn::Bet)
            return 1;
    }
    return 0;
}

const ProgramEntry guestProgram("guests", playGuests);

// All files of the data folder but those of practice, with what they hold.
QMap<QString, QByteArray> realTree(const TestEvent &event)
{
    const QString root = HostPaths(event.session.paths).dataFolder();
    QMap<QString, QByteArray> tree;
    QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QFile file(path);
        if (!path.startsWith(root + u"/practice/"_s) && file.open(QIODevice::ReadOnly))
            tree.insert(path, file.readAll());
    }
    return tree;
}

QStringList disagreements(Session &session)
{
    QStringList found;
    const CashJournal journal = readCashJournal(session);
    for (const RaceTill &race : raceTills(readRaces(session, 0), readBettors(session), journal))
        found += race.disagreements;
    return found;
}

SettledRace settle(Session &session, std::array<int, 3> finishers)
{
    RaceResult result;
    result.finishers = finishers;
    result.housePercent = 10;
    return settleCurrentRace(session, result);
}

void place(Session &session, const QString &name, int post)
{
    session.bettors = readBettors(session);
    BetEntries entries;
    entries.add(post, BetType::Win, 5);
    placeBets(session, planPlacement(entries, session.bettors.numberOf(name), 0, 1000));
}

} // namespace

class tst_practice : public QObject
{
    Q_OBJECT

private slots:
    // A whole event, the same each time, that goes on where it was left; one that a power cut left
    // half made is made anew.
    void madeEvent()
    {
        TestEvent event;
        const QString folder = practiceFolder(event.session);
        QVERIFY(QDir().mkpath(folder + u"/drives/C/Trelawn"_s)
                && QDir().mkpath(folder + u"-new/drives"_s));
        QVERIFY(!isPracticeMade(event.session));
        event.write(u"Horsehelp.txt"_s, "Our rules");
        enterPractice(event.session);
        QCOMPARE(event.read(u"Horsehelp.txt"_s), "Our rules");
        QCOMPARE(event.session.settings.bannerAndRace(), u"PRACTICE Kentucky Derby Race1"_s);
        QCOMPARE(readBettors(event.session).sortedBettors().size(), 41);
        const auto allBets = [&] {
            QByteArray bets;
            for (int race = 1; race <= 4; ++race)
                bets += event.readTwins(u"Bets"_s + raceName(race));
            return bets;
        };
        const QByteArray first = allBets();
        QCOMPARE(first.count('\n'), 100);
        for (int race = 1; race <= 4; ++race) {
            const HorseTable horses = readHorses(event.session, race).horses;
            QCOMPARE(std::ranges::count(horses, false, isUnused) > 5, race > 1);
            QCOMPARE(horses.runTogether(1, 2), race > 1);
            QCOMPARE(event.readTwins(u"Multibets"_s + raceName(race)).isEmpty(), race == 1);
        }
        QCOMPARE(disagreements(event.session), QStringList());
        QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList(u"drives"_s));

        event.session.settings.currentRace = 2;
        place(event.session, u"FORD-GEORGE"_s, 3);
        leavePractice(event.session);
        QVERIFY(event.read(u"Bets Race2"_s).isEmpty());
        enterPractice(event.session);
        QCOMPARE(event.readTwins(u"Bets Race2"_s).count('\n'), 34);
        beginPracticeAgain(event.session);
        QCOMPARE(allBets(), first);
    }

    // Whatever is done in practice, with whatever paths.
    void realEventIsOutOfReach()
    {
        SKIP_ON_WINDOWS();
        TestEvent event;
        const QTemporaryDir stick;
        const QString root = event.session.paths.dataFolder();
        QVERIFY(QFile::link(stick.path(), root + u"/drives/M"_s));
        event.write(u"\\\\HOST\\Tshare\\Bets Race1"_s, "7,4,1,2.5\r\n");
        changeBanner(event.session, u"The Real Night"_s);
        const auto before = realTree(event);
        const Settings settings = event.session.settings;

        enterPractice(event.session);
        Session &session = event.session;
        changeBanner(session, u"Another Name"_s);
        QCOMPARE(session.settings.banner, u"PRACTICE Another Name"_s);
        QVERIFY(loadInit(session));
        QCOMPARE(session.settings.banner, u"PRACTICE Another Name"_s);
        QVERIFY(session.paths.areSealed());
        changeRace(session, 3);
        switchReceiptPrinting(session);
        place(session, u"FORD-GEORGE"_s, 3);
        clearAllBets(session);
        clearAllHorses(session);
        createFolder(session, u"D:\\"_s, u"Party"_s);
        chooseFolder(session, u"D:\\Party\\"_s);
        CreateEventFiles(session);
        QCOMPARE(errorOf([&] { chooseDrive(session, u"M:"_s); }), 68);
        QVERIFY(errorOf([&] { startAsSatellite(session, u"HOST"_s); }) != 0);
        QVERIFY(errorOf([&] { startAsMaster(session, u"HOST"_s); }) != 0);
        leavePractice(session);

        QCOMPARE(realTree(event), before);
        QVERIFY(QDir(stick.path()).isEmpty());
        QVERIFY(!session.isPractice() && !session.paths.areSealed());
        QCOMPARE(session.settings.bannerAndRace(), u"The Real Night Race1"_s);
        QCOMPARE(session.settings.eventDirectory, settings.eventDirectory);
        QCOMPARE(session.settings.receiptsPrint(), settings.receiptsPrint());
        QVERIFY(!session.settings.betsWereCleared() && !session.settings.isNetworked());
    }

    // Each step is ticked off by what the program's own operations leave in the files.
    void lesson()
    {
        TestEvent event;
        enterPractice(event.session);
        Session &session = event.session;
        Guests guests(1);
        WinnerLedger ledger;
        Rows<std::function<void()>> rows;
        rows("horses", [&] {
            session.horses = cardOf(
                {{1, 0, u"1"_s, u"ONE"_s}, {2, 0, u"2"_s, u"TWO"_s}, {3, 0, u"3"_s, u"THREE"_s}});
            saveHorses(session, session.horses);
        });
        rows("bettor", [&] {
            const BettorTable asRead = session.bettors = readBettors(session);
            addBettor(session.bettors, u"PUPIL-PAT"_s);
            saveBettors(session, asRead);
        });
        rows("bet", [&] {
            place(session, u"FORD-GEORGE"_s, 1); // not the pupil's
            QCOMPARE(nextStepOf(lessonSteps(session)), 2);
            place(session, u"PUPIL-PAT"_s, 1);
        });
        rows("taken back", [&] {
            const int pupil = session.bettors.numberOf(u"PUPIL-PAT"_s);
            deletePriorBets(
                session,
                priorBets(LoadRaceBets(session).bets, session.horses, pupil, u"PUPIL-PAT"_s).bets);
        });
        rows("guests", [&] {
            while (readBets(session, 1).rows.size() < 20)
                QVERIFY(guests.playSheet(session).turn == GuestTurn::Bet);
        });
        rows("settled", [&] {
            const SettledRace race = settle(session, {1, 2, 3});
            ledger.start(1, race.settlement.winners, race.settlement.payoffs,
                         session.settings.roundingIndex);
        });
        rows("paid", [&] {
            enterTill(session, {{}, u"1"_s}, false); // not what is in it
            for (std::size_t winner = 0; winner < ledger.winners().size(); ++winner)
                handOver(session, ledger, winner);
        });
        rows("till", [&] {
            const Till till = tillsOf(readCashJournal(session)).front();
            enterTill(session, {{}, QString::number(dollarsOf(till.expected()), 'f', 2)}, false);
        });
        int done = 0;
        for (const auto &[row, work] : rows) {
            QCOMPARE(nextStepOf(lessonSteps(session)), done);
            work();
            const QList<LessonStep> steps = lessonSteps(session);
            QCOMPARE(steps.size(), 8);
            QCOMPARE(nextStepOf(steps), ++done);
        }
    }

    void guestsWait()
    {
        TestEvent event;
        const auto turn = [&] { return Guests(3).playSheet(event.session).turn; };
        QVERIFY(turn() == GuestTurn::OutsidePractice);
        enterPractice(event.session);
        QVERIFY(turn() == GuestTurn::NoHorses);
        event.session.settings.currentRace = 2;
        QVERIFY(turn() == GuestTurn::Bet);
        event.session.settings.betLimit = 30;
        QVERIFY(turn() == GuestTurn::RaceFull);
        event.session.horses = readHorses(event.session, 2).horses;
        settle(event.session, {1, 3, 4});
        QVERIFY(turn() == GuestTurn::Settled);
        clearBettors(event.session, {});
        event.session.settings.currentRace = 3;
        QVERIFY(turn() == GuestTurn::NoGuests);
    }

    // Several programs let their guests bet on one practice event: every bet is there once, with
    // its money.
    void guestsOfFivePrograms()
    {
        TestEvent event;
        const QString root = event.session.paths.dataFolder();
        enterPractice(event.session);
        saveHorses(event.session, readHorses(event.session, 4).horses);
        const std::size_t before = readCashJournal(event.session).lines.size();
        std::vector<std::unique_ptr<QProcess>> parts;
        for (int seed = 1; seed <= programs; ++seed) {
            parts.push_back(std::make_unique<QProcess>());
            parts.back()->setProcessChannelMode(QProcess::ForwardedChannels);
            parts.back()->start(QCoreApplication::applicationFilePath(),
                                {u"guests"_s, root, QString::number(seed)});
        }
        for (const auto &part : parts)
            QVERIFY(part->waitForFinished(500'000) && part->exitCode() == 0);
        const CashJournal journal = readCashJournal(event.session);
        QCOMPARE(journal.lines.size() - before, std::size_t(programs * sheets));
        QCOMPARE(journal.damaged, 0);
        int bets = 0;
        for (const CashEntry &line : journal.lines)
            bets += line.race == 1 ? line.detail.toInt() : 0;
        QCOMPARE(event.readTwins(u"Bets Race1"_s).count('\n'), bets);
        QCOMPARE(disagreements(event.session), QStringList());
    }
};

TRELAWN_TEST(tst_practice)
#include "tst_practice.moc"
