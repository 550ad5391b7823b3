#include "board/boardreader.h"
#include "board/oddshistory.h"
#include "kit/testkit.h"
#include "racecard/scratch.h"

namespace {

CashEntry lineOf(CashKind kind, int race)
{
    CashEntry line{kind, race};
    if (kind == CashKind::Settled) {
        line.settled = RaceSettled{};
        line.settled->payoffs.finishers = {1, 2, 3};
    }
    return line;
}

// Every file and folder with its size and time.
QStringList treeOf(const QString &folder)
{
    QStringList found;
    QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QFileInfo file(all.next());
        found += file.filePath() + u' ' + QString::number(file.size()) + u' '
                 + file.lastModified().toString(Qt::ISODateWithMs);
    }
    found.sort();
    return found;
}

void allowWriting(const QString &folder, bool yes)
{
    const auto reading = QFile::ReadOwner | QFile::ExeOwner;
    for (const QString &name : QDir(folder).entryList(QDir::Files))
        QFile::setPermissions(folder + u'/' + name,
                              yes ? QFile::ReadOwner | QFile::WriteOwner : QFile::ReadOwner);
    QFile::setPermissions(folder, yes ? reading | QFile::WriteOwner : reading);
}

} // namespace

// What a board reads, and that it only reads.
class tst_boardreader : public QObject
{
    Q_OBJECT

private slots:
    // A torn or vanishing file keeps the last good picture, with a note, until it is whole again.
    void unreadable()
    {
        const QByteArray card = horseRecords(cardOf({{1, 0, u"1"_s, u"A"_s}}));
        const QByteArray bets = "2,1,1,5\r\n";
        Rows<std::function<void(TestEvent &)>, bool> rows;
        rows(
            "record being written",
            [&](TestEvent &event) { event.write(u"Bets Race1"_s, bets + "2,1,1,1"); }, true);
        rows(
            "record that the twin has whole",
            [&](TestEvent &event) {
                event.write(u"Bets Race1"_s, bets + "2,1,1,1");
                event.write(u"Betsbackup Race1"_s, bets + "2,1,1,10\r\n");
            },
            false);
        rows(
            "file being replaced", [](TestEvent &event) { event.remove({u"Bets Race1"_s}); }, true);
        rows(
            "card being replaced", [](TestEvent &event) { event.remove({u"Horses Race1"_s}); },
            true);
        rows(
            "file emptied for a moment", [](TestEvent &event) { event.write(u"Bets Race1"_s, {}); },
            true);
        rows(
            "file that cannot be read", [](TestEvent &event) { event.block(u"Bets Race1"_s); },
            true);
        rows(
            "race that was cleared",
            [](TestEvent &event) { event.remove(TestEvent::twins(u"Bets Race1"_s)); }, false);
        rows(
            "folder that is away",
            [](TestEvent &event) {
                QVERIFY(QDir().rename(event.path({}), event.path({}) + u"away"_s));
            },
            true);
        for (const auto &[row, harm, waits] : rows) {
            TestEvent event;
            event.writeTwins(u"Horses Race1"_s, card);
            event.writeTwins(u"Bets Race1"_s, bets);
            const BoardWish wish{event.session.paths, event.session.settings.eventDirectory};
            BoardReader reader;
            const BoardPicture before = *reader.look(wish);
            QVERIFY(!reader.look(wish));
            harm(event);
            BoardPicture after = *reader.look(wish);
            QCOMPARE(after.note.isEmpty(), !waits);
            after.note.clear();
            QCOMPARE(after == before, waits);
            QVERIFY(!reader.look(wish)); // painted once
        }
    }

    // Nothing is written, not even what the operator's screens would mend in passing.
    void onlyReads()
    {
        TestEvent event;
        event.remove({u"Betsbackup Race2"_s});
        event.write(u"Bets Race1"_s, "2,1,1,1");
        event.write(u"Betsbackup Race1"_s, "2,1,1,10\r\n");
        recordCash(event.session, {lineOf(CashKind::Settled, 2)});
        const QStringList before = treeOf(event.path(u"C:\\"_s));
        allowWriting(event.path({}), false);
        BoardReader reader;
        for (int race = 1; race <= raceCount; ++race)
            QVERIFY(reader.look({event.session.paths,
                                 event.session.settings.eventDirectory,
                                 u"Cup"_s,
                                 {},
                                 BoardWish::Shows::OneRace,
                                 race}));
        allowWriting(event.path({}), true);
        QCOMPARE(treeOf(event.path(u"C:\\"_s)), before);
    }

    // Which race is shown: the chosen one where money moves, the one that others work on where none
    // does, each settled one in its turn.
    void races()
    {
        TestEvent event;
        Session &session = event.session;
        BoardReader reader;
        BoardWish wish{session.paths, session.settings.eventDirectory, {}, u"BOARD"_s};
        wish.race = 9;
        QCOMPARE(reader.look(wish)->race, 9);
        session.files.computer = u"DESK"_s;
        recordCash(session, {lineOf(CashKind::Settled, 2), lineOf(CashKind::Settled, 4),
                             lineOf(CashKind::Bets, 5), lineOf(CashKind::Paid, 4)});
        QCOMPARE(reader.look(wish)->race, 5);
        wish.computer = u"DESK"_s;
        QCOMPARE(reader.look(wish)->race, 9);
        wish.shows = BoardWish::Shows::Settled;
        for (const int race : {2, 4, 2}) {
            QCOMPARE(reader.look(wish)->race, race);
            ++wish.turn;
        }
    }

    // A board that is opened after a scratch knows it from the journals, one that stood there saw
    // it; a horse that runs again is not scratched, nor are those of another card.
    void scratched()
    {
        TestEvent event;
        const Horse silver{9, 0, u"7"_s, u"SILVER"_s};
        const HorseTable before = cardOf({{1, 0, u"1"_s, u"A"_s}, {2, 0, u"2"_s, u"B"_s}, silver});
        const HorseTable after = cardOf({{1, 0, u"1"_s, u"A"_s}, {2, 0, u"2"_s, u"B"_s}});
        const auto gone = [](BoardReader &reader, const TestEvent &of) {
            const auto picture =
                reader.look({of.session.paths, of.session.settings.eventDirectory});
            QStringList names;
            for (const BoardRow &row : picture ? picture->rows : QList<BoardRow>())
                names += row.isScratched ? row.number + row.name() : QString();
            return names.join(QString());
        };
        BoardReader standing;
        saveHorses(event.session, before);
        QCOMPARE(gone(standing, event), QString());
        saveHorses(event.session, after);
        QCOMPARE(gone(standing, event), u"7SILVER"_s);
        saveHorses(event.session, cardOf({{4, 0, u"4"_s, u"OTHER"_s}}));
        QCOMPARE(gone(standing, event), QString());
        saveHorses(event.session, after);
        BoardReader opened;
        QCOMPARE(gone(opened, event), QString());
        recordScratch(event.session, 9, silver.number, silver.name);
        QCOMPARE(gone(opened, event), u"7SILVER"_s);
        saveHorses(event.session, before);
        QCOMPARE(gone(opened, event), QString());
    }

    // Against the odds of three minutes ago, or the first that were seen.
    void moves()
    {
        OddsHistory history;
        Rows<int, QString, OddsMove> rows; // minutes
        rows("first seen", 0, u"5/2"_s, OddsMove::None);
        rows("lower", 1, u"2/1"_s, OddsMove::Falling);
        rows("lower still", 2, u"9/5"_s, OddsMove::Falling);
        rows("up again, but below the first", 2, u"2/1"_s, OddsMove::Falling);
        rows("now against the second", 4, u"2/1"_s, OddsMove::None);
        rows("still", 5, u"2/1"_s, OddsMove::None);
        rows("higher", 6, u"10/1"_s, OddsMove::Rising);
        rows("for a while", 8, u"10/1"_s, OddsMove::Rising);
        rows("no more", 9, u"10/1"_s, OddsMove::None);
        rows("without money", 9, {}, OddsMove::None);
        rows("first seen again", 9, u"1/1"_s, OddsMove::None);
        for (const auto &[row, minutes, odds, move] : rows) {
            BoardPicture picture;
            picture.rows = {{.post = 4, .odds = odds}};
            history.mark(picture, minutes * 60000);
            QCOMPARE(int(picture.rows[0].move), int(move));
        }
    }
};

TRELAWN_TEST(tst_boardreader)
#include "tst_boardreader.moc"
