#include "betting/bettorlist.h"
#include "betting/priorbets.h"
#include "common/event/cashjournal.h"
#include "common/event/eventrecords.h"
#include "common/event/networkmode.h"
#include "common/event/placement.h"
#include "kit/testkit.h"
#include "racecard/scratch.h"

// Several programs on one event, in a shared folder or a local one, each a process of its own: this
// program started again with the part that it plays.

namespace {

constexpr int placers = 4;
constexpr int sheets = 200; // of each placer, spread over the races
constexpr int races = 3;
constexpr int rounds = 30; // of the computer that deletes, scratches and adds bettors
constexpr int scratchedPost = 20;
constexpr int newBettorEvery = 50;

void addBettorNamed(Session &session, const QString &name)
{
    session.bettors = readBettors(session);
    const BettorTable asRead = session.bettors;
    addBettor(session.bettors, name);
    saveBettors(session, asRead);
}

void place(Session &session, int bettor, int post, BetType type, int dollars)
{
    BetEntries entries;
    entries.add(post, type, float(dollars));
    placeBets(session, planPlacement(entries, bettor, 0, session.settings.betLimit));
}

// One bet a sheet; the amounts tell the sheets apart.
void placeSheets(Session &session, int placer)
{
    for (int sheet = 1; sheet <= sheets; ++sheet) {
        session.settings.currentRace = sheet % races + 1;
        place(session, 10 + placer, sheet % 14 + 1, BetType::Win, sheet);
        if (sheet % newBettorEvery == 0)
            addBettorNamed(session, u"NEW-%1-%2"_s.arg(placer).arg(sheet));
    }
}

// Bets of bettor 50 are placed and deleted again, those of bettor 51 scratched.
void manageRaces(Session &session)
{
    for (int round = 1; round <= rounds; ++round) {
        session.settings.currentRace = round % races + 1;
        place(session, 50, 1, BetType::Show, 5);
        // A list that another computer has outdated deletes nothing; it is made again.
        const auto priorOf50 = [&] {
            return priorBets(LoadRaceBets(session).bets, HorseTable(), 50, u"FIFTY"_s).bets;
        };
        while (deletePriorBets(session, priorOf50()).listWasStale) {
        }
        place(session, 51, scratchedPost, BetType::Win, 5);
        removeScratchedBets(session, prepareScratch(session, scratchedPost, {}));
        addBettorNamed(session, u"MANAGED-%1"_s.arg(round));
    }
}

// The programs begin at the same moment in an event whose files are missing.
void enterEvent(TestEvent &event, const QString &folder, bool isShare)
{
    if (isShare) {
        event.joinShare(folder);
        startAsSatellite(event.session, u"HOST"_s);
    } else {
        event.session.paths = HostPaths(folder);
        createMissingEventFiles(event.session);
    }
}

// Arguments: the folder, the number of the placer or 0 for the computer that manages, and whether
// the folder is a share.
int playPart(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const int placer = QByteArray(argv[2]).toInt();
    TestEvent event(false);
    enterEvent(event, QString::fromLocal8Bit(argv[1]), QByteArray(argv[3]) == "1");
    if (placer > 0)
        placeSheets(event.session, placer);
    else
        manageRaces(event.session);
    return 0;
}

const ProgramEntry part("part", playPart);

// What the placers put into a race, in order.
QByteArrayList betsOfPlacers(int race)
{
    QByteArrayList lines;
    for (int placer = 1; placer <= placers; ++placer) {
        for (int sheet = 1; sheet <= sheets; ++sheet) {
            if (sheet % races + 1 == race)
                lines << QByteArray::fromStdString(
                    betLine({float(10 + placer), float(sheet % 14 + 1), 1, float(sheet)}));
        }
    }
    std::ranges::sort(lines);
    return lines;
}

} // namespace

class tst_sharedfolder : public QObject
{
    Q_OBJECT

private slots:
    // Every placed record is there once, in file and twin, every line whole; every bettor that was
    // added is there, under a number of its own.
    void noBetIsLost()
    {
        Rows<bool> rows;
        rows("several computers", true);
        rows("several programs on one computer", false);
        for (const auto &[row, isShare] : rows) {
            playTogether(isShare);
            if (QTest::currentTestFailed())
                return;
        }
    }

private:
    static void playTogether(bool isShare)
    {
        const QTemporaryDir share;
        TestEvent master(false);
        master.joinShare(share.path());
        startAsMaster(master.session, u"HOST"_s);
        for (int race = 1; race <= races; ++race)
            master.remove(TestEvent::twins(u"Bets"_s + raceName(race)));
        if (!isShare) {
            master.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
            master.session.paths = HostPaths(share.path());
        }

        std::vector<std::unique_ptr<QProcess>> parts;
        for (int placer = 0; placer <= placers; ++placer) {
            parts.push_back(std::make_unique<QProcess>());
            parts.back()->setProcessChannelMode(QProcess::ForwardedChannels);
            parts.back()->start(
                QCoreApplication::applicationFilePath(),
                {u"part"_s, share.path(), QString::number(placer), QString::number(int(isShare))});
        }
        for (const auto &placing : parts) {
            QVERIFY(placing->waitForFinished(100'000));
            QCOMPARE(placing->exitStatus(), QProcess::NormalExit);
            QCOMPARE(placing->exitCode(), 0);
        }

        if (isShare)
            QCOMPARE(decodeShareRecord(master.read(u"res"_s))->computers, placers + 2);
        for (int race = 1; race <= races; ++race) {
            QByteArrayList lines = master.readTwins(u"Bets"_s + raceName(race)).split('\n');
            QVERIFY(lines.takeLast().isEmpty());
            for (QByteArray &line : lines)
                line += '\n';
            std::ranges::sort(lines);
            QVERIFY(lines == betsOfPlacers(race));
        }
        // They share the journal of their computer: none tears a line of another.
        const CashJournal journal = readCashJournal(master.session);
        QCOMPARE(journal.damaged, 0);
        QCOMPARE(journal.lines.size(), std::size_t(placers * sheets + 4 * rounds));
        const auto bettors = BettorTable::parse(master.readTwins(u"Bettors"_s), defaultBettorLimit);
        QSet<int> numbers;
        for (const Bettor &bettor : bettors.sortedBettors())
            numbers.insert(bettor.number);
        QCOMPARE(numbers.size(), 1 + rounds + placers * sheets / newBettorEvery);
        QCOMPARE(bettors.sortedBettors().size(), numbers.size());
    }
};

TRELAWN_TEST(tst_sharedfolder)
#include "tst_sharedfolder.moc"
