#include "kit/testkit.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QTableWidget>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

// Another computer's event in D:\Club\ and the import of it through the screen.
class tst_frmimportb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void choosesFolder();
    void asksAndRefuses();
    void secondComputersBets();
    void twiceAddsOnce();

private:
    void putThere(const QString &name, const QByteArray &bytes);
    void openClub();
    void check(const QStringList &names);
    QStringList row(const QString &heading);

    std::unique_ptr<BoxRobot> boxes;
    std::unique_ptr<TestEvent> event;
    QWidget *screen = nullptr;
};

namespace {

const QString question = u"Import Horses, Bettors, Bets from D:\\Club\\?"_s;
const QStringList everything{u"chkhorses"_s, u"chkbettors"_s, u"chkbets"_s};
constexpr char card[] = "1,0,\"1 \",\"ALPHA\"\r\n2,0,\"2 \",\"BRAVO\"\r\n3,0,\"3 \",\"CAIRO\"\r\n";

// Half of the names are on both computers, under different numbers.
constexpr char mainBettors[] = "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n5,\"DAN\"\r\n";
constexpr char otherBettors[] = "1,\"AnyBettor\"\r\n2,\"DAN\"\r\n3,\"EMIL\"\r\n5,\"ADA\"\r\n";
constexpr char mainBets[] = "2,1,1,10\r\n5,3,1,20\r\n";
constexpr char otherBets[] = "2,1,1,6\r\n3,1,1,12\r\n5,2,1,.5\r\njunk\r\n";

} // namespace

void tst_frmimportb::init()
{
    boxes = std::make_unique<BoxRobot>();
    event = std::make_unique<TestEvent>();
    for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
        event->write(twin, mainBettors);
    for (const auto &twin : {u"Bets Race2"_s, u"Betsbackup Race2"_s})
        event->write(twin, mainBets);
    putThere(u"Bettors"_s, otherBettors);
    putThere(u"Bets Race2"_s, otherBets);
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

// Choosing never touches the event directory, and lists record files alone.
void tst_frmimportb::choosesFolder()
{
    QCOMPARE(fieldText(screen, u"txtfolder"_s), u"C:\\"_s);
    openClub();
    QCOMPARE(fieldText(screen, u"txtfolder"_s), u"D:\\Club\\"_s);
    QCOMPARE(listTexts(screen, u"lstfile"_s),
             (QStringList{u"Bettors"_s, u"Horses Race2"_s, u"Bets Race2"_s}));
    QCOMPARE(event->session.settings.eventDirectory, u"C:\\Trelawn\\"_s);

    putThere(u"Bets Race3"_s, {});
    clickButton(screen, u"cmdrefresh"_s);
    QCOMPARE(listTexts(screen, u"lstfile"_s).size(), 4);

    boxes->expect(u"Path not found Import input"_s, u"Import input"_s);
    QVERIFY(QDir(event->session.paths.toHost(u"D:\\Club\\"_s)).removeRecursively());
    clickButton(screen, u"cmdrefresh"_s);
    QVERIFY(boxes->allCame());

    clickButton(screen, u"cmdreturn"_s);
    QCOMPARE(event->navigator().currentName(), u"frminitb"_s);
}

void tst_frmimportb::asksAndRefuses()
{
    openClub();
    // What is checked and asked, the answer, and the refusal.
    const std::tuple<QStringList, QString, Answer, QString> cases[] = {
        {{}, {}, Answer::Ok, u"Check Horses, Bettors or Bets first"_s},
        {everything, question, Answer::Cancel, {}},
        {{u"chkbets"_s},
         u"Import Bets from D:\\Club\\?"_s,
         Answer::Ok,
         u"There are bets of bettors who are not in the list here: EMIL. Check Bettors too."_s}};
    for (const auto &[checked, asked, answer, refusal] : cases) {
        check(checked);
        if (!asked.isEmpty())
            boxes->expect(asked, u"Import"_s, answer);
        if (!refusal.isEmpty())
            boxes->expect(refusal, u"Import"_s);
        clickButton(screen, u"cmdimport"_s);
        QVERIFY(boxes->allCame());
        QCOMPARE(event->read(u"Bettors"_s), QByteArray(mainBettors));
        QCOMPARE(event->read(u"Bets Race2"_s), QByteArray(mainBets));
        QCOMPARE(child<QTableWidget>(screen, u"grdimport"_s)->rowCount(), 0);
    }
}

// Every stake comes under the number that its name has here, and the screen says what came.
void tst_frmimportb::secondComputersBets()
{
    openClub();
    check(everything);
    boxes->expect(question, u"Import"_s);
    clickButton(screen, u"cmdimport"_s);
    QVERIFY(boxes->allCame());
    QCOMPARE(row(u"Race2"_s), (QStringList{u"3"_s, u"3"_s, u"$18.50"_s, u"1"_s, {}}));
    QCOMPARE(row(u"All"_s), row(u"Race2"_s));
    QCOMPARE(listTexts(screen, u"lstnames"_s),
             (QStringList{u"duplicate: DAN"_s, u"duplicate: ADA"_s, u"new: EMIL"_s}));
    QCOMPARE(labelText(screen, u"lblnote"_s),
             u"Races with new horses: 1. New bettors: 1. Bets added: 3, $18.50. Left out: 1."_s);
    for (const auto &twin : {u"Bets Race2"_s, u"Betsbackup Race2"_s})
        QCOMPARE(event->read(twin), mainBets + "5,1,1,6\r\n6,1,1,12\r\n2,2,1,0.5\r\n"_qba);
}

// The same files once more: asked about, and left alone on No.
void tst_frmimportb::twiceAddsOnce()
{
    openClub();
    check(everything);
    boxes->expect(question, u"Import"_s);
    clickButton(screen, u"cmdimport"_s);
    const QByteArray once = event->read(u"Bets Race2"_s);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        boxes->expect(question, u"Import"_s);
        boxes->expect(u"The bets of Race2 look imported before. Add them once more?"_s, u"Import"_s,
                      answer);
        clickButton(screen, u"cmdimport"_s);
        QVERIFY(boxes->allCame());
        const bool added = answer == Answer::Yes;
        QCOMPARE(row(u"Race2"_s).value(1), added ? u"3"_s : u"0"_s);
        QCOMPARE(row(u"Race2"_s).last(),
                 added ? u"looks imported before"_s : u"looks imported before, not added again"_s);
        QCOMPARE(event->read(u"Bets Race2"_s).size() > once.size(), added);
        QCOMPARE(event->read(u"Bets Race2"_s), event->read(u"Betsbackup Race2"_s));
    }
    QCOMPARE(event->read(u"Bettors"_s).count("ADA"), 1);
}

TRELAWN_TEST_MAIN(tst_frmimportb)
#include "tst_frmimportb.moc"
