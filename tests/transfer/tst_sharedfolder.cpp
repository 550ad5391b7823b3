#include "betting/bettorlist.h"
#include "betting/placement.h"
#include "betting/priorbets.h"
#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/event/networkmode.h"
#include "common/event/racefiles.h"
#include "kit/testkit.h"
#include "racecard/scratch.h"

#include <QDir>
#include <QProcess>

#include <map>

using namespace Qt::StringLiterals;

// Several programs on one event, in a shared folder or a local one, each a process of its own: this
// program started again with the part that it plays.

namespace {

constexpr int placers = 4;
constexpr int sheets = 200; // of each placer, spread over the races
constexpr int races = 3;
constexpr int rounds = 30; // of the computer that deletes, scratches and adds bettors
constexpr int scratchedPost = 20;
constexpr int newBettorEvery = 50;

// Lets the session's computer find \\HOST\Tshare in the folder.
void connectShare(const TestEvent &event, const QString &share)
{
    const QString network = event.session.paths.toHost(u"C:\\"_s) + "/../../network/HOST"_L1;
    QDir().mkpath(network);
    QFile::link(share, QDir::cleanPath(network) + "/Tshare"_L1);
}

void addBettorNamed(Session &session, const QString &name)
{
    session.bettors = readBettors(session);
    const BettorTable asRead = session.bettors;
    addBettor(session.bettors, name);
    saveBettors(session, asRead);
}

// One bet a sheet; the amounts tell the sheets apart.
void placeSheets(Session &session, int placer)
{
    for (int sheet = 1; sheet <= sheets; ++sheet) {
        session.settings.currentRace = sheet % races + 1;
        BetEntries entries;
        entries.add(sheet % 14 + 1, BetType::Win, float(sheet));
        placeBets(session, planPlacement(entries, 10 + placer, 0, session.settings.betLimit));
        if (sheet % newBettorEvery == 0) {
            addBettorNamed(session, u"NEW-%1-%2"_s.arg(placer).arg(sheet));
        }
    }
}

// Bets of bettor 50 are placed and deleted again, those of bettor 51 scratched.
void manageRaces(Session &session)
{
    for (int round = 1; round <= rounds; ++round) {
        session.settings.currentRace = round % races + 1;
        BetEntries own;
        own.add(1, BetType::Show, 5);
        placeBets(session, planPlacement(own, 50, 0, session.settings.betLimit));
        // A list that another computer has outdated deletes nothing; it is made again.
        const auto priorOf50 = [&] {
            return priorBets(LoadRaceBets(session).bets, HorseTable(), 50, u"FIFTY"_s).bets;
        };
        while (deletePriorBets(session, priorOf50()).listWasStale) {
        }
        BetEntries scratched;
        scratched.add(scratchedPost, BetType::Win, 5);
        placeBets(session, planPlacement(scratched, 51, 0, session.settings.betLimit));
        removeScratchedBets(session, prepareScratch(session, scratchedPost, {}));
        addBettorNamed(session, u"MANAGED-%1"_s.arg(round));
    }
}

// The programs begin at the same moment in an event whose files are missing.
void enterEvent(TestEvent &event, const QString &folder, bool isShare)
{
    if (isShare) {
        connectShare(event, folder);
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

// How often each bet of the placers stands in a file; damaged lines and others' bets fail.
std::map<std::pair<int, int>, int> countBets(const QByteArray &bytes)
{
    std::map<std::pair<int, int>, int> counts;
    const BetTable bets = parseBets(bytes.toStdString());
    for (const BetRow &row : bets.rows) {
        if (row.damaged || row.bet.bettor >= 50)
            qFatal("stray line: %s", std::string(bets.line(row)).c_str());
        ++counts[{int(row.bet.bettor) - 10, int(row.bet.amount)}];
    }
    return counts;
}

} // namespace

class tst_sharedfolder : public QObject
{
    Q_OBJECT

private slots:
    // Every placed record is there once, in file and twin, every line whole; every bettor that was
    // added is there, under a number of its own.
    void noBetIsLost_data()
    {
        QTest::addColumn<bool>("isShare");
        QTest::newRow("several computers") << true;
        QTest::newRow("several programs on one computer") << false;
    }
    void noBetIsLost()
    {
        QFETCH(bool, isShare);
        QTemporaryDir share;
        TestEvent master(false);
        connectShare(master, share.path());
        startAsMaster(master.session, u"HOST"_s);
        if (!isShare) {
            master.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
            master.session.paths = HostPaths(share.path());
        }
        for (int race = 1; race <= races; ++race) {
            QFile::remove(master.path("Bets"_L1 + raceName(race)));
            QFile::remove(master.path("Betsbackup"_L1 + raceName(race)));
        }

        std::vector<std::unique_ptr<QProcess>> parts;
        for (int placer = 0; placer <= placers; ++placer) {
            parts.push_back(std::make_unique<QProcess>());
            parts.back()->setProcessChannelMode(QProcess::ForwardedChannels);
            parts.back()->start(
                QCoreApplication::applicationFilePath(),
                {u"part"_s, share.path(), QString::number(placer), QString::number(int(isShare))});
        }
        for (const auto &part : parts) {
            QVERIFY(part->waitForFinished(100'000));
            QCOMPARE(part->exitStatus(), QProcess::NormalExit);
            QCOMPARE(part->exitCode(), 0);
        }

        if (isShare)
            QCOMPARE(decodeShareRecord(master.read(u"res"_s))->computers, placers + 2);
        for (int race = 1; race <= races; ++race) {
            const auto inMain = countBets(master.read(u"Bets"_s + raceName(race)));
            QVERIFY(inMain == countBets(master.read(u"Betsbackup"_s + raceName(race))));
            for (int placer = 1; placer <= placers; ++placer) {
                for (int sheet = 1; sheet <= sheets; ++sheet) {
                    const auto bet = inMain.find({placer, sheet});
                    const int found = bet == inMain.end() ? 0 : bet->second;
                    QCOMPARE(found, sheet % races + 1 == race ? 1 : 0);
                }
            }
        }
        for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s}) {
            const auto bettors = BettorTable::parse(master.read(twin), defaultBettorLimit);
            QSet<int> numbers;
            for (const Bettor &bettor : bettors.sortedBettors())
                numbers.insert(bettor.number);
            QCOMPARE(numbers.size(), 1 + rounds + placers * sheets / newBettorEvery);
            QCOMPARE(bettors.sortedBettors().size(), numbers.size());
        }
    }
};

TRELAWN_TEST(tst_sharedfolder)
#include "tst_sharedfolder.moc"
