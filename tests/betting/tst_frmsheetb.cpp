#include "common/event/init.h"
#include "common/files/fileerror.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

const QByteArray twoBets = "2,3,1,2\r\n3,3,1,4\r\n";

} // namespace

// An event with three bettors; race 1 has horses on posts 1, 3 and 12, race 2 has one on post 2.
class SheetEvent : public TestEvent
{
public:
    SheetEvent()
        : TestEvent(false)
    {
        saveInit(session);
        HorseTable horses;
        horses.post(1) = {1, 1, u"1"_s, u"Grindstone"_s};
        horses.post(3) = {3, 0, u"3"_s, u"Secretariat"_s};
        horses.post(4) = {4, 1, u"4"_s, u"zzz"_s};
        horses.post(12) = {12, 1, u"12"_s, u"Fusaichi Pegasus"_s};
        write(u"Horses Race1"_s, horseRecords(horses));
        HorseTable second;
        second.post(2) = {2, 0, u"2B"_s, u"Sea Hero"_s};
        write(u"Horses Race2"_s, horseRecords(second));
        write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"BROWN\"\r\n");
        setBets(twoBets);
        write(u"Bets Race2"_s, "2,2,2,9\r\n");
    }

    void setBets(const QByteArray &records)
    {
        write(u"Bets Race1"_s, records);
        write(u"Betsbackup Race1"_s, records);
    }

    QWidget *openSheet() { return sheet = open(u"frmsheetb"_s); }
    QString text(const QString &name) { return fieldText(sheet, name); }
    QString note() { return labelText(sheet, u"lblnote"_s); }
    void choose(const QString &bettor) { selectInList(sheet, u"lstentries"_s, bettor); }
    void press(const QStringList &cells)
    {
        for (const QString &cell : cells)
            clickCell(sheet, cell);
    }
    // Places what is entered; a second box, text and title, may follow the question.
    void place(Answer answer = Answer::Yes, const std::pair<QString, QString> &box = {})
    {
        boxes.expect(u"Place these bets?"_s, u"Place Bets"_s, answer);
        if (!box.first.isEmpty())
            boxes.expect(box.first, box.second);
        clickButton(sheet, u"cmdplacebets"_s);
    }
    bool bothBetFilesHold(const QByteArray &records)
    {
        return read(u"Bets Race1"_s) == records && read(u"Betsbackup Race1"_s) == records;
    }

    BoxRobot boxes;
    QWidget *sheet = nullptr;
};

class tst_frmsheetb : public QObject
{
    Q_OBJECT

private slots:
    void opens();
    void damagedInitChangesNothing();
    void amountControls();
    void entering();
    void placing();
    void negativeCellStops();
    void limitRefuses();
    void choosingARace();
    void deletingPriorBets();
    void withoutPrinter();
    void receiptsOff();
    void failuresOnOpening();
    void oldCard();
    void networkKind();
};

void tst_frmsheetb::opens()
{
    SheetEvent event;
    event.session.settings.banner = u"Old Banner"_s;
    event.session.settings.currentRace = 7;
    event.session.settings.eventDirectory = u"D:\\Elsewhere\\"_s;
    saveInit(event.session);
    event.session.settings.banner.clear();
    event.session.settings.currentRace = 1;
    event.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
    event.session.settings.setRole(false, true);
    QWidget *sheet = event.openSheet();
    QCOMPARE(event.text(u"txtbanner"_s), u"Old Banner"_s); // Init was read again
    QCOMPARE(event.text(u"txtbanner1"_s), u" Race1"_s);
    QVERIFY(event.session.settings.isSatelliteComputer());
    QCOMPARE(event.text(u"txtnumber_105"_s), QString()); // no odds where no horse runs
    QVERIFY(!child<QWidget>(sheet, u"txtnumber_24"_s)->isVisible());
    QVERIFY(event.boxes.allCame());
}

void tst_frmsheetb::damagedInitChangesNothing()
{
    SheetEvent event;
    event.session.settings.roundingIndex = 3;
    event.session.settings.currentRace = 2;
    event.write(u"Init"_s, "\"Other\",\"D:\\\",3");
    event.openSheet();
    QVERIFY2(event.note().contains(u"Init is damaged"_s), qPrintable(event.note()));
    QCOMPARE(event.text(u"txtbanner"_s) + event.text(u"txtbanner1"_s), u"Kentucky Derby Race2"_s);
    QCOMPARE(event.session.settings.roundingIndex, 3);
}

void tst_frmsheetb::amountControls()
{
    // A preset and the clear cell leave the sign, the sign negates, steps subtract under minus; the
    // amount's own click shows no leading zero.
    const std::tuple<QStringList, QString, QString> rows[] = {
        {{u"txtone_5"_s}, u"$20.00"_s, u"+"_s},
        {{u"txtplus"_s, u"txtone_0"_s, u"txtbetamt"_s}, u"$.00"_s, u"-"_s},
        {{u"txtamt_0"_s, u"txtplus"_s}, u"-$1.25"_s, u"-"_s},
        {{u"txtplus"_s, u"txtamt_3"_s}, u"-$11.00"_s, u"-"_s},
        {{u"txtplus"_s, u"txtclearamt"_s}, u"$0.00"_s, u"-"_s}};
    SheetEvent event;
    for (const auto &[clicks, amount, sign] : rows) {
        event.openSheet();
        event.press(clicks);
        QCOMPARE(event.text(u"txtbetamt"_s), amount);
        QCOMPARE(event.text(u"txtplus"_s), sign);
    }
}

void tst_frmsheetb::entering()
{
    SheetEvent event;
    QWidget *sheet = event.openSheet();
    event.press({u"txtone_3"_s, u"txtnumber_23"_s, u"txtnumber_23"_s, u"txtnumber_23"_s});
    for (const QString &name :
         {u"txtnumber_23"_s, u"txtnumber_86"_s, u"txtwintot"_s, u"txttotaltot"_s})
        QCOMPARE(event.text(name), u"15"_s);
    event.press({u"txtplus"_s, u"txtnumber_23"_s});
    QCOMPARE(event.text(u"txtnumber_23"_s), u"10"_s);
    event.press({u"txtclearamt"_s, u"txtnumber_44"_s});                 // an amount of 0
    event.press({u"txtone_0"_s, u"txtnumber_22"_s, u"txtnumber_24"_s}); // posts 2 and 4: no horses
    QCOMPARE(event.text(u"txttotaltot"_s), u"10"_s);
    QCOMPARE(event.text(u"txtnumber_44"_s), QString());
    event.press({u"txtclearamt"_s, u"txtplus"_s, u"txtamt_0"_s, u"txtnumber_65"_s});
    QCOMPARE(event.text(u"txtshowtot"_s), u"0.25"_s);
    QCOMPARE(labelText(sheet, u"lbltobeplaced"_s), u"to be placed: $10.00"_s);
    clickButton(sheet, u"cmdclrentries"_s);
    for (const QString &name :
         {u"txtnumber_23"_s, u"txtnumber_86"_s, u"txtshowtot"_s, u"txttotaltot"_s})
        QCOMPARE(event.text(name), QString());
}

void tst_frmsheetb::placing()
{
    SheetEvent event;
    QWidget *sheet = event.openSheet();
    event.choose(u"SMITH"_s);
    QCOMPARE(listTexts(sheet, u"lstpriorbets"_s),
             QStringList{u"3  Secretariat     $02.00 Win  "_s});
    event.press(
        {u"txtone_3"_s, u"txtnumber_74"_s, u"txtnumber_23"_s, u"txtone_0"_s, u"txtnumber_21"_s});
    event.place(Answer::No);
    QVERIFY(event.bothBetFilesHold(twoBets));
    QCOMPARE(event.text(u"txttotaltot"_s), u"11"_s);
    event.place();
    QVERIFY(event.boxes.allCame());

    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n2,3,1,5\r\n2,12,3,5\r\n"));
    const QStringList lines{u"3  Secretariat     $02.00 Win  "_s,
                            u" 1 Grindstone      $01.00 Win"_s, u" 3 Secretariat     $05.00 Win"_s,
                            u"12 Fusaichi Pegasu $05.00 Show"_s};
    QCOMPARE(listTexts(sheet, u"lstpriorbets"_s), lines);
    QCOMPARE(event.text(u"txttotprior"_s), u"$13.00"_s);
    QCOMPARE(event.slips.size(), 1);
    // $12 to win: 11 on post 3, 1 on the entry of posts 1 and 12.
    QCOMPARE(event.text(u"txtnumber_116"_s), u"11/1"_s);
    // The sheet is empty for the next bettor; the amount is kept.
    QCOMPARE(event.text(u"txttotaltot"_s) + event.text(u"txtnumber_21"_s), QString());
    QCOMPARE(event.text(u"txtbetamt"_s), u"$1.00"_s);
    clickButton(sheet, u"cmdplacebets"_s); // an empty sheet says nothing
    event.press({u"txtnumber_21"_s});
    event.boxes.expect(u"Must select bettor first."_s, u"Place Bets"_s);
    clickButton(sheet, u"cmdplacebets"_s);
    event.choose(u"SMITH"_s);
    event.press({u"txtplus"_s, u"txtnumber_42"_s});
    clickButton(sheet, u"cmdplacebets"_s); // neither does one whose total is 0
    QVERIFY(event.boxes.allCame());
}

void tst_frmsheetb::negativeCellStops()
{
    SheetEvent event;
    event.openSheet();
    event.choose(u"SMITH"_s);
    event.press({u"txtone_3"_s, u"txtnumber_21"_s, u"txtone_1"_s, u"txtplus"_s, u"txtnumber_42"_s});
    event.place(Answer::Yes, {u"Bet amounts must be positive"_s, u"TRELAWN"_s});
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,5\r\n"));
    QCOMPARE(event.text(u"txtnumber_42"_s), u"-2"_s); // not cleared
    QVERIFY(event.slips.isEmpty());
    QVERIFY2(event.note().startsWith(u"1 bet of $5.00 saved"_s), qPrintable(event.note()));
}

void tst_frmsheetb::limitRefuses()
{
    SheetEvent event;
    event.session.settings.betLimit = 3;
    saveInit(event.session);
    event.openSheet();
    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_21"_s, u"txtnumber_42"_s});
    event.place(Answer::Yes, {u"The race has room for 1 bet more. These bets were not placed."_s,
                              u"Place Bets"_s});
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets));
    QCOMPARE(event.text(u"txttotaltot"_s), u"2"_s);
}

void tst_frmsheetb::choosingARace()
{
    SheetEvent event;
    QWidget *sheet = event.openSheet();
    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_23"_s});
    clickButton(sheet, u"optrace_1"_s); // the race that is shown keeps what was entered for it
    QVERIFY(!event.text(u"txtnumber_23"_s).isEmpty());
    clickButton(sheet, u"optrace_2"_s);
    QCOMPARE(event.text(u"txtbanner1"_s), u" Race2"_s);
    QCOMPARE(event.text(u"txthorse_1"_s), u"Sea Hero"_s);
    QCOMPARE(event.text(u"txttotaltot"_s) + event.text(u"txtnumber_23"_s), QString());
    QCOMPARE(listTexts(sheet, u"lstpriorbets"_s),
             QStringList{u"2B Sea Hero        $09.00 Place"_s});
    QVERIFY(loadInit(event.session));
    QCOMPARE(event.session.settings.currentRace, 2);
}

void tst_frmsheetb::deletingPriorBets()
{
    SheetEvent event;
    event.setBets("2,3,1,2\r\n3,3,1,4\r\n2,1,3,5\r\n2,3,1,2\r\n");
    QWidget *sheet = event.openSheet();
    event.choose(u"SMITH"_s);
    clickButton(sheet, u"cmdclearprior"_s); // nothing selected
    QVERIFY(event.slips.isEmpty());
    auto *list = child<QListWidget>(sheet, u"lstpriorbets"_s);
    list->item(0)->setSelected(true);
    list->item(1)->setSelected(true);
    clickButton(sheet, u"cmdclearprior"_s);
    QVERIFY(event.bothBetFilesHold("3,3,1,4\r\n2,3,1,2\r\n"));
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips[0]),
             QStringList({u"Refund Bets"_s, u"SMITH for  Race1"_s, u" "_s,
                          u"3  Secretariat     $02.00 Win  "_s,
                          u"1  Grindstone      $05.00 Show "_s, u" "_s, u"Total Refund $7.00"_s}));
    QCOMPARE(listTexts(sheet, u"lstpriorbets"_s).size(), 1);
    QCOMPARE(event.text(u"txttotprior"_s), u"$2.00"_s);
}

void tst_frmsheetb::withoutPrinter()
{
    SheetEvent event;
    event.printer.setDestination([](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
    QWidget *sheet = event.openSheet();
    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_21"_s});
    event.place(Answer::Yes, {u"482 Printer error"_s, u"Bet receipt"_s});
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n"));
    QCOMPARE(event.text(u"txttotaltot"_s), QString()); // not there to be placed a second time

    child<QListWidget>(sheet, u"lstpriorbets"_s)->item(1)->setSelected(true);
    event.boxes.expect(u"482 Printer error"_s, u"Refund Bets"_s);
    clickButton(sheet, u"cmdclearprior"_s);
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets));
    auto *list = event.navigator().window()->findChild<QWidget *>(u"frmlistb"_s);
    QVERIFY(list);
    QCOMPARE(listTexts(list, u"List1"_s).last(), u"Total Refund $1.00"_s);
}

void tst_frmsheetb::receiptsOff()
{
    SheetEvent event;
    QWidget *sheet = event.openSheet();
    QCOMPARE(caption(sheet, u"cmdprint"_s), u"Receipts will print"_s);
    clickButton(sheet, u"cmdprint"_s);
    const QByteArray init = event.read(u"Init"_s);
    QVERIFY2(init.contains(",\"no\",") && init.contains(",0.25,1,5,10,5,"), init.constData());
    sheet = event.openSheet();
    QCOMPARE(caption(sheet, u"cmdprint"_s), u"Receipts will not print"_s);
    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_21"_s});
    event.place();
    child<QListWidget>(sheet, u"lstpriorbets"_s)->item(0)->setSelected(true);
    clickButton(sheet, u"cmdclearprior"_s);
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold("3,3,1,4\r\n2,1,1,1\r\n"));
    QVERIFY(event.slips.isEmpty());
    QVERIFY2(event.note().contains(u"refund $2.00 to SMITH"_s), qPrintable(event.note()));
    clickButton(sheet, u"cmdprint"_s);
    QVERIFY(event.read(u"Init"_s).contains(",\"yes\","));
}

void tst_frmsheetb::failuresOnOpening()
{
    SheetEvent event;
    QVERIFY(QFile::remove(event.path(u"Horses Race1"_s)));
    QVERIFY(QFile::remove(event.path(u"Bettors"_s)));
    event.boxes.expect(u"53 File not found"_s, u"Bettors Input"_s);
    event.boxes.expect(u"53 File not found"_s, u"Horses input"_s);
    event.openSheet();
    QTRY_VERIFY(event.boxes.allCame());
    QCOMPARE(event.text(u"txthorse_2"_s), QString()); // no bet falls on another race's horse
}

// A horse that was scratched or entered since the sheet was filled: the new card is shown and asked
// about; what can still be placed stays on the sheet.
void tst_frmsheetb::oldCard()
{
    SheetEvent event;
    event.openSheet();
    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_21"_s, u"txtnumber_23"_s, u"txtnumber_65"_s}); // 1 and 3 win, 3 show
    HorseTable card;
    card.post(1) = {1, 0, u"7"_s, u"Go For Gin"_s};
    card.post(2) = {2, 0, u"2"_s, u"Unbridled"_s};
    card.post(12) = {12, 1, u"12"_s, u"Fusaichi Pegasus"_s};
    event.write(u"Horses Race1"_s, horseRecords(card));
    const QString changes =
        u"The card has changed.\nPost 1: 1 Grindstone is now 7 Go For Gin\n"
        "Post 2: 2 Unbridled is new\nPost 3: Secretariat runs no longer\n"
        "$2.00 on horses that run no longer left the sheet.\nPlace these bets?"_s;
    event.boxes.expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
    event.boxes.expect(changes, u"Place Bets"_s, Answer::No);
    clickButton(event.sheet, u"cmdplacebets"_s);
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets));
    QCOMPARE(event.text(u"txthorse_0"_s), u"Go For Gin"_s);
    QCOMPARE(event.text(u"txtnumber_21"_s) + event.text(u"txttotaltot"_s), u"11"_s);
    event.place(); // seen once, it is the card of the sheet
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n"));

    event.choose(u"SMITH"_s);
    event.press({u"txtnumber_22"_s});
    event.write(u"Horses Race1"_s, horseRecords({}));
    event.place(Answer::Yes,
                {u"The card has changed.\nPost 1: Go For Gin runs no longer\n"
                 "Post 2: Unbridled runs no longer\nPost 12: Fusaichi Pegasus runs no longer\n"
                 "$1.00 on horses that run no longer left the sheet.\nNo bet was placed."_s,
                 u"Place Bets"_s});
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n"));
}

void tst_frmsheetb::networkKind()
{
    SheetEvent event;
    QWidget *sheet = event.sheet = event.open(u"frmsheetbnw"_s);
    QCOMPARE(caption(sheet, u"cmdclearprior"_s), u"Clear Selected Prior Bets"_s);
    QVERIFY(child<QWidget>(sheet, u"cmdpay"_s)->isVisible());
    QVERIFY(!sheet->findChild<QWidget *>(u"cmdmulti"_s));
    event.choose(u"SMITH"_s);
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"BROWN\"\r\n9,\"LATE\"\r\n");
    event.press({u"txtnumber_21"_s});
    event.place();
    QCOMPARE(event.session.bettors.numberOf(u"LATE"_s), 9);
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n"));
    // A number that another computer gave to another name gets no bet.
    event.choose(u"LATE"_s);
    event.press({u"txtnumber_21"_s});
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n9,\"OTHER\"\r\n10,\"LATE\"\r\n");
    event.place(Answer::Yes, {u"Bettor number 9 is no longer LATE. No bet was placed. Select the "
                              "bettor again."_s,
                              u"Place Bets"_s});
    QCOMPARE(labelText(sheet, u"lblselected"_s), u"No bettor selected"_s);
    QCOMPARE(event.text(u"txtnumber_21"_s), u"1"_s);
    clickButton(sheet, u"cmdclrentries"_s);
    // Without the shared list nothing is placed.
    event.choose(u"LATE"_s);
    event.press({u"txtnumber_21"_s});
    QVERIFY(QFile::remove(event.path(u"Bettors"_s)));
    event.place(Answer::Yes, {u"53 File not found"_s, u"Bettors input"_s});
    QVERIFY(event.boxes.allCame());
    QVERIFY(event.bothBetFilesHold(twoBets + "2,1,1,1\r\n"));
}

TRELAWN_TEST(tst_frmsheetb)
#include "tst_frmsheetb.moc"
