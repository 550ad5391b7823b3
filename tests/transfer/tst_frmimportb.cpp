#include "common/print/format.h"
#include "kit/testkit.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <QTreeWidget>

#include <span>

using namespace Qt::StringLiterals;

// Another computer's event in D:\Club\ and the import of it through the screen.
class tst_frmimportb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void choosesFolder();
    void asksAndRefuses_data();
    void asksAndRefuses();
    void secondComputerPaidOut();
    void twiceAddsOnce();

private:
    void putThere(const QString &name, const QByteArray &bytes);
    void openClub();
    void check(const QStringList &names);
    QStringList row(const QString &heading);
    QStringList items(const QString &list);

    std::unique_ptr<BoxRobot> boxes;
    std::unique_ptr<TestEvent> event;
    QWidget *screen = nullptr;
};

namespace {

const QString question = u"Import Horses, Bettors, Bets from D:\\Club\\?"_s;
const QStringList everything{u"chkhorses"_s, u"chkbettors"_s, u"chkbets"_s};
// Posts 4 to 21 are unused.
const QByteArray blank = horseRecords({});
const QByteArray card = "1,0,\"1 \",\"ALPHA\"\r\n2,0,\"2 \",\"BRAVO\"\r\n3,0,\"3 \",\"CAIRO\"\r\n"
                        + blank.mid(blank.indexOf("4,0"));

// A guest on one of the two computers: number and name there, and what he bets to win on each of
// three horses.
struct Guest
{
    int number;
    const char *name;
    std::array<int, 3> stakes;
};

// Half of the names are on both computers, under different numbers.
constexpr Guest mainGuests[] = {
    {2, "ADA", {10, 0, 5}}, {3, "BEN", {0, 8, 0}}, {4, "CLEO", {4, 4, 4}}, {5, "DAN", {0, 0, 20}}};
constexpr Guest otherGuests[] = {
    {2, "DAN", {6, 0, 0}}, {3, "EMIL", {12, 1, 0}}, {4, "FAY", {0, 3, 9}}, {5, "ADA", {5, 0, 0}}};

QByteArray bettorFile(std::span<const Guest> guests)
{
    QByteArray bytes = "1,\"AnyBettor\"\r\n";
    for (const Guest &guest : guests)
        bytes += QByteArray::number(guest.number) + ",\"" + guest.name + "\"\r\n";
    return bytes;
}

QByteArray betFile(std::span<const Guest> guests)
{
    QByteArray bytes;
    for (const Guest &guest : guests) {
        for (std::size_t post = 0; post < 3; ++post) {
            if (guest.stakes[post] > 0)
                bytes += QByteArray::number(guest.number) + ',' + QByteArray::number(post + 1)
                         + ",1," + QByteArray::number(guest.stakes[post]) + "\r\n";
        }
    }
    return bytes;
}

} // namespace

void tst_frmimportb::init()
{
    boxes = std::make_unique<BoxRobot>();
    event = std::make_unique<TestEvent>();
    for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
        event->write(twin, bettorFile(mainGuests));
    for (const auto &twin : {u"Bets Race2"_s, u"Betsbackup Race2"_s})
        event->write(twin, betFile(mainGuests));
    putThere(u"Bettors"_s, bettorFile(otherGuests));
    putThere(u"Bets Race2"_s, betFile(otherGuests) + "junk\r\n");
    putThere(u"Horses Race2"_s, card);
    putThere(u"Notes.txt"_s, "not a record file");
    screen = event->open(u"frmimportb"_s);
}

void tst_frmimportb::putThere(const QString &name, const QByteArray &bytes)
{
    QDir().mkpath(event->session.paths.toHost(u"D:\\Club\\"_s));
    QFile file(event->session.paths.toHost(u"D:\\Club\\"_s + name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

void tst_frmimportb::openClub()
{
    selectInList(screen, u"lstdrive"_s, u"D:\\"_s);
    QTest::keyClick(child<QWidget>(screen, u"lstdrive"_s), Qt::Key_Return);
    auto *folders = child<QTreeWidget>(screen, u"lstfolder"_s);
    const auto found = folders->findItems(u"Club"_s, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(found.size(), 1);
    folders->setCurrentItem(found.first());
    QTest::keyClick(folders, Qt::Key_Return);
}

void tst_frmimportb::check(const QStringList &names)
{
    for (const QString &name : everything)
        child<QCheckBox>(screen, name)->setChecked(names.contains(name));
}

QStringList tst_frmimportb::row(const QString &heading)
{
    const auto *table = child<QTableWidget>(screen, u"grdimport"_s);
    QStringList texts;
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->verticalHeaderItem(row)->text() != heading)
            continue;
        for (int column = 0; column < table->columnCount(); ++column)
            texts << table->item(row, column)->text();
    }
    return texts;
}

QStringList tst_frmimportb::items(const QString &list)
{
    const auto *widget = child<QListWidget>(screen, list);
    QStringList texts;
    for (int row = 0; row < widget->count(); ++row)
        texts << widget->item(row)->text();
    return texts;
}

// Choosing never touches the event directory, and lists record files alone.
void tst_frmimportb::choosesFolder()
{
    QCOMPARE(fieldText(screen, u"txtfolder"_s), u"C:\\"_s);
    openClub();
    QCOMPARE(fieldText(screen, u"txtfolder"_s), u"D:\\Club\\"_s);
    QCOMPARE(items(u"lstfile"_s), (QStringList{u"Bettors"_s, u"Horses Race2"_s, u"Bets Race2"_s}));
    QCOMPARE(event->session.settings.eventDirectory, u"C:\\Trelawn\\"_s);

    putThere(u"Bets Race3"_s, {});
    clickButton(screen, u"cmdrefresh"_s);
    QCOMPARE(items(u"lstfile"_s).size(), 4);

    boxes->expect(u"Path not found Import input"_s, u"Import input"_s);
    QVERIFY(QDir(event->session.paths.toHost(u"D:\\Club\\"_s)).removeRecursively());
    clickButton(screen, u"cmdrefresh"_s);
    QVERIFY(boxes->allCame());

    clickButton(screen, u"cmdreturn"_s);
    QCOMPARE(event->navigator().currentName(), u"frminitb"_s);
}

void tst_frmimportb::asksAndRefuses_data()
{
    QTest::addColumn<QStringList>("checked");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<bool>("agreed");
    QTest::addColumn<QString>("refusal");
    QTest::newRow("nothing checked")
        << QStringList() << QString() << false << u"Check Horses, Bettors or Bets first"_s;
    QTest::newRow("Cancel") << everything << question << false << QString();
    QTest::newRow("bets without their bettors")
        << QStringList{u"chkbets"_s} << u"Import Bets from D:\\Club\\?"_s << true
        << u"There are bets of bettors who are not in the list here: EMIL, FAY. Check Bettors too."_s;
}

void tst_frmimportb::asksAndRefuses()
{
    QFETCH(QStringList, checked);
    QFETCH(QString, asked);
    QFETCH(bool, agreed);
    QFETCH(QString, refusal);
    openClub();
    check(checked);
    if (!asked.isEmpty())
        boxes->expect(asked, u"Import"_s, agreed ? Answer::Ok : Answer::Cancel);
    if (!refusal.isEmpty())
        boxes->expect(refusal, u"Import"_s);
    clickButton(screen, u"cmdimport"_s);
    QVERIFY(boxes->allCame());
    QCOMPARE(event->read(u"Bettors"_s), bettorFile(mainGuests));
    QCOMPARE(event->read(u"Bets Race2"_s), betFile(mainGuests));
    QCOMPARE(child<QTableWidget>(screen, u"grdimport"_s)->rowCount(), 0);
}

// After the import, race 2 is settled and everybody is paid what both computers' stakes are worth.
void tst_frmimportb::secondComputerPaidOut()
{
    openClub();
    check(everything);
    boxes->expect(question, u"Import"_s);
    clickButton(screen, u"cmdimport"_s);
    QVERIFY(boxes->allCame());
    QCOMPARE(row(u"Race2"_s), (QStringList{u"3"_s, u"6"_s, u"$36.00"_s, u"1"_s, {}}));
    QCOMPARE(row(u"All"_s), row(u"Race2"_s));
    QCOMPARE(items(u"lstnames"_s), (QStringList{u"duplicate: DAN"_s, u"duplicate: ADA"_s,
                                                u"new: EMIL"_s, u"new: FAY"_s}));
    QCOMPARE(labelText(screen, u"lblnote"_s),
             u"Races with new horses: 1. New bettors: 2. Bets added: 6, $36.00. Left out: 1."_s);

    int pool = 0;
    int onWinner = 0;
    QMap<QString, int> stakes; // on the winner, by name
    for (const auto &guests :
         {std::span<const Guest>(mainGuests), std::span<const Guest>(otherGuests)}) {
        for (const Guest &guest : guests) {
            pool += guest.stakes[0] + guest.stakes[1] + guest.stakes[2];
            onWinner += guest.stakes[0];
            if (guest.stakes[0] > 0)
                stakes[QString::fromLatin1(guest.name)] += guest.stakes[0];
        }
    }
    QCOMPARE(stakes.keys(), (QStringList{u"ADA"_s, u"CLEO"_s, u"DAN"_s, u"EMIL"_s}));

    event->session.settings.currentRace = 2;
    event->session.settings.roundingIndex = 1;
    QWidget *pay = event->open(u"frmpaywinnersb"_s);
    const std::pair<QString, QString> finish[] = {{u"cmdwinner"_s, u"1 ALPHA"_s},
                                                  {u"cmdplace"_s, u"2 BRAVO"_s},
                                                  {u"cmdshow"_s, u"3 CAIRO"_s}};
    for (const auto &[button, horse] : finish) {
        selectInList(pay, u"lsthorses"_s, horse);
        clickButton(pay, button);
    }
    clickButton(pay, u"cmdpayoff"_s);
    QCOMPARE(child<QListWidget>(pay, u"lstwinners"_s)->count(), int(stakes.size()));
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    for (const auto &[name, stake] : stakes.asKeyValueRange()) {
        selectInList(pay, u"lstwinners"_s, name);
        clickButton(pay, u"cmdpay"_s);
        QCOMPARE(fieldText(pay, u"txttotaltotal"_s),
                 formatMoney(double(stake) * pool / onWinner, "$#,##0.00"));
    }
    QVERIFY(boxes->allCame());
    QCOMPARE(child<QListWidget>(pay, u"lstwinners"_s)->count(), 0);
}

// The same files once more, with one bet that is new: what is on file is added again only on
// purpose.
void tst_frmimportb::twiceAddsOnce()
{
    openClub();
    check(everything);
    boxes->expect(question, u"Import"_s);
    clickButton(screen, u"cmdimport"_s);
    const QByteArray once = event->read(u"Bets Race2"_s);
    putThere(u"Bets Race2"_s, betFile(otherGuests) + "3,2,1,7\r\n");
    const std::tuple<Answer, QString, QString, int> answers[] = {
        {Answer::Cancel, {}, {}, 0},
        {Answer::Yes, u"1"_s, u"6 on file before, not added again"_s, 1},
        {Answer::No, u"7"_s, u"7 on file before, added again"_s, 8}};
    for (const auto &[answer, added, note, lines] : answers) {
        const QString news = answer == Answer::No ? u"0"_s : u"1"_s;
        boxes->expect(question, u"Import"_s);
        boxes->expect(u"Some of these bets are on file here already.\nRace2: "_s + news
                          + u" of 7 bets are new\nAdd only the new ones? No adds all."_s,
                      u"Import"_s, answer);
        clickButton(screen, u"cmdimport"_s);
        QVERIFY(boxes->allCame());
        if (answer == Answer::Cancel)
            QCOMPARE(labelText(screen, u"lblnote"_s), u"Nothing was imported."_s);
        else
            QCOMPARE(row(u"Race2"_s).value(1) + row(u"Race2"_s).last(), added + note);
        QCOMPARE(event->read(u"Bets Race2"_s).count('\n'), once.count('\n') + lines);
        QCOMPARE(event->read(u"Bets Race2"_s), event->read(u"Betsbackup Race2"_s));
    }
    QCOMPARE(event->read(u"Bettors"_s).count("ADA"), 1);
}

TRELAWN_TEST(tst_frmimportb)
#include "tst_frmimportb.moc"
