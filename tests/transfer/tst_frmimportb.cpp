#include "kit/screentest.h"

const QString wholeQuestion = u"Import Horses, Bettors, Bets from D:\\Club\\?"_s;
const QStringList allBoxes{u"chkhorses"_s, u"chkbettors"_s, u"chkbets"_s};

// ADA and DAN are on both computers, under different numbers.
const QByteArray bettorsHere =
    "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n3,\"BEN\"\r\n4,\"CLEO\"\r\n5,\"DAN\"\r\n";
const QByteArray bettorsThere =
    "1,\"AnyBettor\"\r\n2,\"DAN\"\r\n3,\"EMIL\"\r\n4,\"FAY\"\r\n5,\"ADA\"\r\n";
const QByteArray betsHere = "2,1,1,10\r\n3,2,1,8\r\n5,3,1,20\r\n";
const QByteArray betsThere = "2,1,1,6\r\n3,1,1,12\r\n3,2,1,1\r\n4,2,1,3\r\n4,3,1,9\r\n5,1,1,5\r\n";
const QByteArray betsAdded = "5,1,1,6\r\n6,1,1,12\r\n6,2,1,1\r\n7,2,1,3\r\n7,3,1,9\r\n2,1,1,5\r\n";

// Another computer's event in D:\Club\ and the import of it through the screen.
class tst_frmimportb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->writeTwins(u"Bettors"_s, bettorsHere);
        event->writeTwins(u"Bets Race2"_s, betsHere);
        putThere(u"Bettors"_s, bettorsThere);
        putThere(u"Bets Race2"_s, betsThere + "junk\r\n");
        putThere(u"Horses Race2"_s, horseRecords(cardOf({{1, 0, u"1"_s, u"ALPHA"_s}})));
        putThere(u"Notes.txt"_s, "not a record file");
        open(u"frmimportb"_s);
        QCOMPARE(text(u"txtfolder"_s), u"C:\\"_s);
        select(u"lstdrive"_s, u"D:\\"_s);
        QTest::keyClick(child<QWidget>(screen(), u"lstdrive"_s), Qt::Key_Return);
        auto *folders = child<QTreeWidget>(screen(), u"lstfolder"_s);
        const auto found = folders->findItems(u"Club"_s, Qt::MatchExactly | Qt::MatchRecursive);
        QCOMPARE(found.size(), 1);
        folders->setCurrentItem(found.first());
        QTest::keyClick(folders, Qt::Key_Return);
    }

    // Choosing never touches the event directory, and lists record files alone.
    void choosesFolder()
    {
        QCOMPARE(text(u"txtfolder"_s), u"D:\\Club\\"_s);
        QCOMPARE(list(u"lstfile"_s),
                 (QStringList{u"Bettors"_s, u"Horses Race2"_s, u"Bets Race2"_s}));
        QCOMPARE(event->session.settings.eventDirectory, u"C:\\Trelawn\\"_s);
        putThere(u"Bets Race3"_s, {});
        press(u"cmdrefresh"_s);
        QCOMPARE(list(u"lstfile"_s).size(), 4);
        expect(u"Path not found Import input"_s, u"Import input"_s);
        QVERIFY(QDir(event->path(u"D:\\Club\\"_s)).removeRecursively());
        press(u"cmdrefresh"_s);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frminitb"_s));
    }

    void asksAndRefuses()
    {
        check({});
        press(u"cmdimport"_s, u"Check Horses, Bettors or Bets first"_s, u"Import"_s);
        check(allBoxes);
        press(u"cmdimport"_s, wholeQuestion, u"Import"_s, Answer::Cancel);
        check({u"chkbets"_s});
        expect(u"Import Bets from D:\\Club\\?"_s, u"Import"_s);
        press(
            u"cmdimport"_s,
            u"There are bets of bettors who are not in the list here: EMIL, FAY. Check Bettors too."_s,
            u"Import"_s);
        QCOMPARE(event->readTwins(u"Bettors"_s), bettorsHere);
        QCOMPARE(event->readTwins(u"Bets Race2"_s), betsHere);
        QCOMPARE(child<QTableWidget>(screen(), u"grdimport"_s)->rowCount(), 0);
    }

    // The same files once more, with one bet that is new: what is on file is added again only on
    // purpose.
    void twiceAddsOnce()
    {
        check(allBoxes);
        press(u"cmdimport"_s, wholeQuestion, u"Import"_s);
        QCOMPARE(tableTexts(screen(), u"grdimport"_s),
                 (QStringList{u"1|6|$36.00|1|"_s, u"1|6|$36.00|1|"_s})); // Race2, All
        QCOMPARE(list(u"lstnames"_s), (QStringList{u"duplicate: DAN"_s, u"duplicate: ADA"_s,
                                                   u"new: EMIL"_s, u"new: FAY"_s}));
        QCOMPARE(
            label(u"lblnote"_s),
            u"Races with new horses: 1. New bettors: 2. Bets added: 6, $36.00. Left out: 1."_s);
        const QByteArray once = betsHere + betsAdded;
        QCOMPARE(event->readTwins(u"Bets Race2"_s), once);

        const QByteArray late = "6,2,1,7\r\n";
        putThere(u"Bets Race2"_s, betsThere + "3,2,1,7\r\n");
        importAgain(u"1"_s, Answer::Cancel);
        QCOMPARE(event->note(), u"Nothing was imported."_s);
        QCOMPARE(event->readTwins(u"Bets Race2"_s), once);
        importAgain(u"1"_s, Answer::Yes);
        QVERIFY(tableTexts(screen(), u"grdimport"_s)
                    .first()
                    .endsWith("|6 on file before, not added again"_L1));
        QCOMPARE(event->readTwins(u"Bets Race2"_s), once + late);
        importAgain(u"0"_s, Answer::No);
        QVERIFY(tableTexts(screen(), u"grdimport"_s)
                    .first()
                    .endsWith("|7 on file before, added again"_L1));
        QCOMPARE(event->readTwins(u"Bets Race2"_s), once + late + betsAdded + late);
        QCOMPARE(event->read(u"Bettors"_s).count("ADA"), 1);
    }

private:
    void putThere(const QString &name, const QByteArray &bytes) const
    {
        event->write(u"D:\\Club\\"_s + name, bytes);
    }

    void check(const QStringList &names)
    {
        for (const QString &name : allBoxes)
            child<QCheckBox>(screen(), name)->setChecked(names.contains(name));
    }

    void importAgain(const QString &newBets, Answer answer)
    {
        expect(wholeQuestion, u"Import"_s);
        press(u"cmdimport"_s,
              u"Some of these bets are on file here already.\nRace2: "_s + newBets
                  + u" of 7 bets are new\nAdd only the new ones? No adds all."_s,
              u"Import"_s, answer);
    }
};

TRELAWN_TEST(tst_frmimportb)
#include "tst_frmimportb.moc"
