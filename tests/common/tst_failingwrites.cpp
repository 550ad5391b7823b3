#include "betting/bettorlist.h"
#include "common/event/cashjournal.h"
#include "common/event/eventrecords.h"
#include "common/event/multibetrecords.h"
#include "common/event/networkmode.h"
#include "common/event/placement.h"
#include "common/files/recordfile.h"
#include "kit/faultywrites.h"
#include "kit/testkit.h"
#include "racecard/download.h"
#include "repair/recordlist.h"
#include "repair/savedcopies.h"
#include "setup/clearbets.h"
#include "setup/clearevent.h"
#include "setup/restore.h"
#include "transfer/importevent.h"
#include "transfer/thumbdrive.h"

#include <span>

namespace {

// What files hold, by their paths; nothing for a file that is not there.
using Contents = QMap<QString, std::optional<QByteArray>>;

// An operation of the program on files: what they hold before and after it.
struct Operation
{
    const char *name;
    Contents before;
    Contents after;
    std::function<void(Session &)> run;
    bool appends = false; // a power cut may leave a part of what is appended
};

const QString trelawn = u"C:\\Trelawn\\"_s;
const QString drive = u"F:\\"_s;
const QString journal = trelawn + u"Cash DESK"_s;
const QByteArray oldPayment = "\"2026-05-02T20:15:00+02:00\",\"paid\",1,2,\"ANNA\",5,1,\"\",5\r\n";
const QString share = u"\\\\HOST\\Tshare\\"_s;

// A record file and its twin.
Contents twins(const QString &main, const std::optional<QByteArray> &bytes)
{
    Contents both;
    for (const QString &name : TestEvent::twins(main))
        both[trelawn + name] = bytes;
    return both;
}

Contents operator+(Contents contents, const Contents &others)
{
    contents.insert(others);
    return contents;
}

const QByteArray knownBets = "1,1,1,5\r\n7,2,1,5\r\nnot a bet\r\n1,3,1,5\r\n";
const QByteArray someBets = "2,3,1,5\r\n2,3,2,2.5\r\n";
const QByteArray multibets = "1,2,0,\"EX\",2,1\r\n1,3,0,\"EX\",5,2\r\n";
const QByteArray knownBettors = newBettorRecords() + "2,\"ANNA\"\r\n";
const QByteArray noHorses = horseRecords(HorseTable());

const HorseTable somebody = cardOf({{2, 1, u"1A"_s, u"O'Malley & Co"_s}});

QByteArray initWith(const QByteArray &banner)
{
    return '"' + banner + "\",\"C:\\Trelawn\\\",0,\"yes\",1,1,0.25,1,5,10,5,20000,2000,0\r\n";
}

QByteArray marker(int computers)
{
    return encodeShareRecord({u"\\\\HOST\\Tshare\\"_s, u"HOST"_s, computers});
}

void placeSome(Session &session)
{
    BetEntries entries;
    entries.add(3, BetType::Win, 5);
    entries.add(3, BetType::Place, 2.5F);
    placeBets(session, planPlacement(entries, 2, 0, session.settings.betLimit));
}

void saveNewBettor(Session &session)
{
    session.bettors = readBettors(session);
    const BettorTable asRead = session.bettors;
    addBettor(session.bettors, u"BERT"_s);
    saveBettors(session, asRead);
}

void removeFirstRecord(Session &session)
{
    const RecordList list = listRecords(session, Listing::Bets, 1);
    if (list.rows.first().line == "1,1,1,5")
        removeRecord(session, list, list.rows.first());
}

void importAll(Session &session)
{
    carryOutImport(session, planImport(session, u"F:\\"_s, {false, true, true}));
}

QList<Operation> pairOperations()
{
    const QString race = u"Bets Race1"_s;
    const QString multi = u"Multibets Race1"_s;
    const QByteArray without = "7,2,1,5\r\nnot a bet\r\n";
    return {
        {"append", twins(race, knownBets), twins(race, knownBets + someBets), &placeSome, true},
        {"first bet", twins(race, {}), twins(race, someBets), &placeSome, true},
        {"append multibets", twins(multi, multibets), twins(multi, multibets + multibets),
         [](Session &session) {
             const Multibet both[] = {{{1, 2, 0}, u"EX"_s, 2, 1}, {{1, 3, 0}, u"EX"_s, 5, 2}};
             appendMultibets(session, both);
         },
         true},
        {"remove bets", twins(race, knownBets), twins(race, without),
         [](Session &session) {
             const auto ofBettor1 = [](const BetTable &table) {
                 return placesWhere(table,
                                    [&](const BetRow &row) { return table.isBetOf(row, 1); });
             };
             removeBets(session, ofBettor1, refundPriorBets);
         }},
        {"remove multibets", twins(multi, multibets), twins(multi, "1,3,0,\"EX\",5,2\r\n"),
         [](Session &session) {
             removeMultibets(session, 1, {{0, {{1, 2, 0}, u"EX"_s, 2, 1}}});
         }},
        {"remove a record", twins(race, knownBets), twins(race, knownBets.mid(9)),
         &removeFirstRecord},
        {"horses", twins(u"Horses Race1"_s, noHorses),
         twins(u"Horses Race1"_s, horseRecords(somebody)),
         [](Session &session) { saveHorses(session, somebody); }},
        {"bettors", twins(u"Bettors"_s, knownBettors),
         twins(u"Bettors"_s, knownBettors + "3,\"BERT\"\r\n"), &saveNewBettor},
        {"clear the race", twins(race, knownBets), twins(race, {}),
         [](Session &session) {
             clearRaceFile(session, RecordFile::Bets, straightStakes(session));
         }},
    };
}

QList<Operation> otherOperations()
{
    const QString race = u"Bets Race1"_s;
    const QString horses = trelawn + u"Horses Race1"_s;
    const Contents races = twins(race, knownBets) + twins(u"Bets Race9"_s, knownBets);
    const Contents onDrive{{drive + race, someBets}, {drive + u"Bets Race9"_s, someBets}};
    return {
        {"Init",
         {{trelawn + u"Init"_s, initWith("OLD")}},
         {{trelawn + u"Init"_s, initWith("NEW")}},
         [](Session &session) {
             session.settings.banner = u"NEW"_s;
             saveInit(session);
         }},
        {"res",
         {{share + u"res"_s, marker(1)}},
         {{share + u"res"_s, marker(2)}},
         [](Session &session) { startAsSatellite(session, u"HOST"_s); }},
        {"restore",
         {{trelawn + race, "1,1,1"}, {trelawn + u"Betsbackup Race1"_s, knownBets}},
         twins(race, knownBets),
         [](Session &session) { restoreFromTwin(session, RecordFile::Bets); }},
        {"put a copy back",
         twins(race, someBets)
             + Contents{{trelawn + u"Saved\\Bets Race1 2026-05-02 20.15.00.000"_s, knownBets}},
         twins(race, knownBets),
         [](Session &session) { putBackCopy(session, u"Bets Race1 2026-05-02 20.15.00.000"_s); }},
        {"clear all bets", races + Contents{{journal, oldPayment}},
         twins(race, "") + twins(u"Bets Race9"_s, "") + Contents{{journal, {}}},
         [](Session &session) { clearAllBets(session); }},
        {"download",
         {{horses, horseRecords(somebody)}},
         {{horses, QByteArray(noHorses)
                       .replace("\"\"\r\n", "\"zzz\"\r\n")
                       .replace("1,0,\"  \",\"zzz\"\r\n2,", "1,0,\"1 \",\"NEW\"\r\n2,")}},
         [](Session &session) { saveDownload(session, "\"1\",\"1\",\"NEW\"\r\n\"END\"\r\n"); }},
        {"import",
         twins(u"Bettors"_s, knownBettors) + races + onDrive
             + Contents{{drive + u"Bettors"_s, newBettorRecords() + "2,\"CARL\"\r\n"}},
         twins(u"Bettors"_s, knownBettors + "8,\"CARL\"\r\n")
             + twins(race, knownBets + "8,3,1,5\r\n8,3,2,2.5\r\n")
             + twins(u"Bets Race9"_s, knownBets + "8,3,1,5\r\n8,3,2,2.5\r\n"),
         &importAll},
        {"bets from the drive", races + onDrive,
         twins(race, knownBets + someBets) + twins(u"Bets Race9"_s, knownBets + someBets),
         [](Session &session) { addSatelliteBets(session, u"F:"_s); }},
        {"bets to the drive",
         races + onDrive,
         {{drive + race, knownBets}, {drive + u"Bets Race9"_s, knownBets}},
         [](Session &session) { saveSatelliteBets(session, u"F:"_s); }},
    };
}

// An event in whose data folder an operation runs again and again.
class Stage
{
public:
    explicit Stage(Operation operation)
        : op(std::move(operation))
        , m_settings(event.session.settings)
    {
        event.session.files.computer = u"DESK"_s;
        event.session.files.tell = [this](const QString &note) {
            isTold |= note.contains(u"cash journal"_s);
        };
        event.session.files.times.settle = std::chrono::milliseconds(1);
        // A power cut in mid-lock leaves a lock that tells nothing of its holder.
        event.session.files.times.stale = std::chrono::milliseconds(100);
        QDir(event.session.paths.dataFolder()).mkpath(u"drives/F"_s);
        for (const QString &folder : {event.path(drive), event.path(share)}) {
            QDir().mkpath(folder);
            for (const QFileInfo &file : QDir(event.path({})).entryInfoList(QDir::Files))
                QFile::copy(file.filePath(), folder + u'/' + file.fileName());
        }
        prepare();
        m_files = files();
        op.run(event.session);
        m_cash = now(journal);
        prepare();
    }

    void prepare()
    {
        event.session.settings = m_settings;
        event.session.files.unsure.reset();
        QDir(savedFolder(event.session)).removeRecursively();
        QDir().mkpath(savedFolder(event.session));
        isTold = false;
        const Contents before = Contents{{journal, oldPayment}} + op.before;
        for (const auto &[name, bytes] : before.asKeyValueRange()) {
            QFile::remove(event.path(name));
            if (bytes)
                event.write(name, *bytes);
        }
    }

    // A file that an append made before it failed holds nothing: that is as good as none.
    std::optional<QByteArray> now(const QString &name) const
    {
        const auto bytes = readIfThere(event.path(name));
        return op.appends && bytes == QByteArray() ? std::nullopt : bytes;
    }
    std::optional<QByteArray> wanted(const QString &name) const
    {
        return op.after.value(name, op.before.value(name));
    }
    bool isAsBefore() const
    {
        return std::ranges::all_of(
            op.before.keys(), [&](const QString &name) { return now(name) == op.before[name]; });
    }
    bool isDone() const
    {
        return std::ranges::all_of(op.before.keys(),
                                   [&](const QString &name) { return now(name) == wanted(name); });
    }

    // Old or new, whole; in mid-append perhaps the old one and a part of the new.
    bool isWhole(const QString &name, bool died) const
    {
        const auto bytes = now(name);
        const auto before = op.before.value(name);
        const bool part = died && op.appends && bytes
                          && bytes->startsWith(before.value_or(QByteArray()))
                          && wanted(name)->startsWith(*bytes);
        return bytes == before || bytes == wanted(name) || part;
    }

    // Every line that was there is in its file, in a file that replaced it or in Saved. Init and
    // what is not in the event directory have neither twin nor copies.
    bool isNothingLost() const
    {
        QByteArray all;
        for (const QString &copy : event.saved())
            all += event.read(u"Saved\\"_s + copy);
        for (const QString &name : op.before.keys())
            all += now(name).value_or(QByteArray());
        for (const auto &[name, bytes] : op.before.asKeyValueRange()) {
            const bool keeps = name.startsWith(trelawn) && name != trelawn + "Init"_L1;
            for (const QByteArray &line : bytes.value_or(QByteArray()).split('\n')) {
                if (keeps && !all.contains(line))
                    return false;
            }
        }
        return true;
    }

    // The old line of the journal stays; what moves money is written down in it, or told.
    bool isCashKnown(bool done) const
    {
        const auto lines = now(journal).value_or(QByteArray());
        return op.before.contains(journal)
               || (lines.startsWith(oldPayment)
                   && (!done || isTold || lines.count('\n') == m_cash->count('\n')));
    }

    // All but the copies in Saved and what was not there at first.
    QStringList files() const
    {
        QStringList names;
        for (const QString &folder : {trelawn, drive, share}) {
            const QDir found(event.path(folder));
            for (const QString &name : found.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
                if (name != "postboard"_L1 && !op.before.contains(folder + name))
                    names << folder + name;
            }
        }
        return names;
    }
    bool leftNothingBehind() const { return files() == m_files; }

    TestEvent event;
    Operation op;
    bool isTold = false; // that the journal could not be written

private:
    const Settings m_settings;
    QStringList m_files;
    std::optional<QByteArray> m_cash; // the journal once the operation was done
};

} // namespace

// Every step of every operation on the event's files fails once: no record is ever lost, no file is
// ever half a one, and what failed can be done again.
class tst_failingwrites : public QObject
{
    Q_OBJECT

private slots:
    void everyStep_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<Fault>("fault");
        const std::pair<const char *, Fault> faults[] = {{"disk full", Fault::DiskFull},
                                                         {"disk gone", Fault::DiskGone},
                                                         {"power cut", Fault::Exit},
                                                         {"broken disk", Fault::IoError},
                                                         {"half a write", Fault::PartialWrite}};
        for (const Operation &op : pairOperations()) {
            for (const auto &[name, fault] : faults)
                QTest::addRow("%s, %s", op.name, name) << op << fault;
        }
        for (const Operation &op : otherOperations()) {
            for (const auto &[name, fault] : std::span(faults).first(3))
                QTest::addRow("%s, %s", op.name, name) << op << fault;
        }
    }
    void everyStep()
    {
        QFETCH(Operation, operation);
        QFETCH(Fault, fault);
        const bool full = fault == Fault::DiskFull || fault == Fault::PartialWrite;
        Stage stage(operation);
        Session &session = stage.event.session;
        int failures = 0;
        const auto check = [&](const FaultyRound &round) {
            failures += round.error || round.died ? 1 : 0;
            const QByteArray call = "call " + QByteArray::number(round.nth);
            for (const QString &name : operation.before.keys())
                QVERIFY2(stage.isWhole(name, round.died) || round.aftermath == Aftermath::Unsure,
                         QByteArray(call + ' ' + name.toUtf8() + ": "
                                    + stage.now(name).value_or("none")));
            QVERIFY2(stage.isNothingLost(), call);
            QVERIFY2(stage.isCashKnown(!round.error && !round.died), call);
            if (round.died)
                return;
            // Where even deleting fails, a temporary file may stay.
            const bool mayDelete = fault == Fault::DiskFull || fault == Fault::IoError;
            QVERIFY2(stage.leftNothingBehind() || !mayDelete, call);
            QVERIFY2(round.error || stage.isDone(), call);
            if (!round.error)
                return;
            QCOMPARE(*round.error, full ? ErrorNumber::DiskFull : ErrorNumber::DeviceIoError);
            // Whoever is told of a failure knows whether something changed all the same.
            QVERIFY2(stage.isAsBefore() || !round.remark.isEmpty(), call);
            if (!stage.isAsBefore() && round.aftermath != Aftermath::Unsure)
                return;
            operation.run(session);
            QVERIFY2(stage.isDone(), QByteArray(call + ", again"));
        };
        const int calls = failEachWrite(
            fault, [&] { stage.prepare(); }, [&] { operation.run(session); }, check);
        QVERIFY2(calls >= 4 && failures >= 2, QByteArray::number(calls));
        QVERIFY(stage.isDone());
    }

    // While another program holds the lock nothing is written; only Init and drives need none.
    void lockedOut()
    {
        Rows<Operation> rows;
        for (const Operation &op : pairOperations() + otherOperations())
            rows(op.name, op);
        for (const auto &[row, operation] : rows) {
            Stage stage(operation);
            Session &session = stage.event.session;
            session.files.times.patience = std::chrono::milliseconds(50);
            const QString lock = u"Trelawn.lock"_s;
            const FolderLock here(stage.event.path(lock), u"DESK2"_s, {}, {});
            const FolderLock there(stage.event.path(share + lock), u"DESK2"_s, {}, {});
            const bool needsNone = operation.after.firstKey() == trelawn + u"Init"_s
                                   || operation.after.firstKey().startsWith(drive);
            QCOMPARE(errorOf([&session, &run = operation.run] { run(session); }),
                     needsNone ? 0 : 70);
            QVERIFY(needsNone ? stage.isDone() : stage.isAsBefore());
        }
    }
};

TRELAWN_TEST(tst_failingwrites)
#include "tst_failingwrites.moc"
