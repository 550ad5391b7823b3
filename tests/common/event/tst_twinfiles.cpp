#include "common/event/bettors.h"
#include "common/event/multibetrecords.h"
#include "common/event/twinfiles.h"
#include "kit/faultywrites.h"
#include "kit/testkit.h"

namespace {

const QString label = u"Bets Append"_s;
const QString twinLabel = u"Betsbackup Append"_s;
const QString mainName = u"Bets Race1"_s;
const QString twinName = u"Betsbackup Race1"_s;
const QByteArray first = "1,1,1,5\r\n";

using Twin = std::optional<QByteArray>; // nothing when the file is not there

void writeFiles(const TestEvent &event, const QByteArray &main, const Twin &twin)
{
    event.write(mainName, main);
    event.write(twinName, twin.value_or(QByteArray()));
    if (!twin)
        event.remove({twinName});
}

QByteArray appendLines(Session &session, const QByteArray &lines)
{
    return appendTwins(
        session, RecordFile::Bets, 1, [&](const QByteArray &) { return lines; }, u"Bets input"_s,
        label, twinLabel);
}

bool isDamaged(RecordFile file, const QByteArray &line)
{
    Bet bet;
    Multibet multibet;
    switch (file) {
    case RecordFile::Bets:
        return !parseBet(view(line.trimmed()), bet);
    case RecordFile::Multibets:
        return !parseMultibet(view(line.trimmed()), multibet);
    case RecordFile::Bettors:
        return BettorTable::parse(line, 1).damagedLines().size() == 1;
    case RecordFile::Horses:
        break;
    }
    return parseHorses(line).damagedLines == 1;
}

} // namespace

class tst_twinfiles : public QObject
{
    Q_OBJECT

private slots:
    // A record that is cut anywhere is completed from the twin, or counts as damaged for ever.
    void tornAnywhere()
    {
        const std::pair<RecordFile, QByteArray> records[] = {
            {RecordFile::Bets, "2,3,1,10\r\n"},
            {RecordFile::Multibets, "1,12,0,\"EX\",10,12\r\n"},
            {RecordFile::Bettors, "12,\"O'HARA, ANN\"\r\n"},
            {RecordFile::Horses, "4,1,\"1A\",\"Second Wind\"\r\n"}};
        for (const auto &[file, record] : records) {
            for (qsizetype size = 1; size < record.size(); ++size) {
                const QByteArray torn = record.first(size);
                const FileEnd completed = fileEnd("x\r\n" + torn, "x\r\n" + record + "y\r\n");
                QCOMPARE(torn + completed.missing, record);
                QCOMPARE(completed.fate, EndFate::Completed);
                const FileEnd lost = fileEnd("x\r\n" + torn, QByteArray("x\r\n"));
                QVERIFY2(lost.fate == EndFate::Torn && isDamaged(file, torn + lost.missing), torn);
            }
        }
    }

    // How the end of a file is read, what the file holds then, and after the next bet.
    void unfinishedEnd()
    {
        const QByteArray torn = first + "2,3,1,1";
        const QByteArray whole = first + "2,3,1,10\r\n";
        const QString mended = u"Bets Race1 ended within a record, which was completed from "
                               "Betsbackup Race1. A copy is in Saved."_s;
        const QString check = u"Bets Race1 ends without a line end: check its last record."_s;
        const QString lost =
            u"Bets Race1 ends within a record, which does not count. Fix Files shows it."_s;
        Rows<QByteArray, Twin, QByteArray, QString> rows;
        rows("whole", whole, first, whole, {});
        rows("the twin has it whole", torn, whole, whole, mended);
        rows("the twin ends the same way", torn, torn, torn + "\r\n", check);
        rows("no twin", torn, {}, torn + "\r\n", check);
        rows("the twin knows nothing of it", torn, first, torn + ",\"torn\r\n", lost);
        rows("another record in the twin", torn, first + "9,9,1,1\r\n", torn + ",\"torn\r\n", lost);
        for (const auto &[row, main, twin, read, note] : rows) {
            TestEvent event;
            QString told;
            event.session.files.tell = [&](const QString &text) { told = text; };
            writeFiles(event, main, twin);
            QCOMPARE(readMainFile(event.session, RecordFile::Bets, 1, u"Bets input"_s), read);
            QCOMPARE(event.read(mainName), note == mended ? read : main);
            QCOMPARE(event.savedCopies(mainName),
                     note == mended ? QByteArrayList{main} : QByteArrayList());
            QCOMPARE(told, note);

            event.write(mainName, main); // an append by itself comes to the same
            QCOMPARE(appendLines(event.session, first), read + first);
            QCOMPARE(event.read(mainName), read + first);
            QVERIFY(event.read(twinName).endsWith(first));
            QVERIFY(!event.read(twinName).contains("1,11,"));
        }
    }

    // What other programs write while a change is being made is read again.
    void changeReadsAgain()
    {
        TestEvent event;
        event.write(mainName, first);
        int calls = 0;
        const auto change = [&](const QByteArray &found) {
            if (++calls == 1)
                event.write(mainName, found + "by others\r\n");
            return QByteArray(found + "new\r\n");
        };
        QVERIFY(changeTwins(event.session, RecordFile::Bets, 1, change, {}, label, twinLabel));
        QCOMPARE(calls, 2);
        QCOMPARE(event.readTwins(mainName), first + "by others\r\nnew\r\n");
        QVERIFY(!changeTwins(
            event.session, RecordFile::Bets, 1, [](const QByteArray &) { return std::nullopt; }, {},
            label, twinLabel));
    }

    // A race that others cleared while a deletion waited is an empty one.
    void changeOfMissingFile()
    {
        TestEvent event;
        event.remove({mainName, twinName});
        const auto nothing = [](const QByteArray &found) { return found; };
        QVERIFY(changeTwins(event.session, RecordFile::Bets, 1, nothing, {}, label, twinLabel));
        QVERIFY(!event.exists(mainName));
    }

    // A twin that fell behind, or is missing, is brought up; one that holds more keeps it.
    void appendToOtherTwins()
    {
        const QByteArray bet = "2,3,1,10\r\n";
        const QByteArray more = first + bet + "4,4,1,4\r\n";
        Rows<Twin, QByteArray> rows;
        rows("missing", {}, first + first + bet);
        rows("behind", first, first + first + bet);
        rows("torn", first + "1,1,", first + first + bet);
        rows("holds more", more, more + bet);
        for (const auto &[row, twin, expected] : rows) {
            TestEvent event;
            writeFiles(event, first + first, twin);
            appendLines(event.session, bet);
            QCOMPARE(event.read(mainName), first + first + bet);
            QCOMPARE(event.read(twinName), expected);
        }
    }

    // Nobody knows what a disk that vanished in mid-append holds: the second attempt looks, also
    // behind what others placed meanwhile and when other lines have come onto the sheet.
    void unsureAppend()
    {
        const QByteArray lines = "2,3,1,10\r\n2,3,1,10\r\n2,4,1,5\r\n";
        Rows<QByteArray, QByteArray> rows;
        rows("at once", {}, lines);
        rows("after others", "8,8,1,8\r\n", lines);
        rows("with one more", "8,8,1,8\r\n", lines + "2,5,1,5\r\n");
        for (const auto &[row, others, again] : rows) {
            int unsure = 0;
            TestEvent event;
            const auto prepare = [&] {
                event.session.files.unsure.reset();
                writeFiles(event, first, first);
            };
            const auto check = [&, &others = others, &again = again](const FaultyRound &round) {
                unsure += round.aftermath == Aftermath::Unsure ? 1 : 0;
                Session other = event.session;
                other.files.unsure.reset();
                appendLines(other, others);
                appendLines(event.session, again);
                QVERIFY(!event.session.files.unsure);
                QByteArrayList wanted = QByteArray(first + others + again).split('\n');
                std::ranges::sort(wanted);
                for (const QString &name : {mainName, twinName}) {
                    QByteArrayList found = event.read(name).split('\n');
                    // A torn piece that others ended stays behind as a damaged line.
                    found.removeIf([](const QByteArray &line) { return line.contains("torn"); });
                    std::ranges::sort(found);
                    QCOMPARE(found, wanted);
                }
            };
            QVERIFY(failEachWrite(
                        Fault::DiskGone, prepare, [&] { appendLines(event.session, lines); }, check)
                    > 3);
            QVERIFY(unsure > 0);
        }
    }
};

TRELAWN_TEST(tst_twinfiles)
#include "tst_twinfiles.moc"
