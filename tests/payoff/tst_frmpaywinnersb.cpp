#include "common/files/fileerror.h"
#include "kit/testkit.h"
#include "ui/controls.h"
#include "ui/mainwindow.h"

#include <QFile>
#include <QLabel>
#include <QListWidget>

using namespace Qt::StringLiterals;

// Paying winners through the real widgets. Post 4 carries number 1A; nobody runs from posts 7 to 21
// but 9, which is marked unused.
class tst_frmpaywinnersb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void finishersArePosts();
    void missingFinishers();
    void smallFieldGetsUnusedPost();
    void calculates();
    void asks532();
    void badRecordsAndNoWinners();
    void failures();
    void paysOneByOne();
    void payoffsSurvivePaying();
    void startOver();
    void oneCalculator();
    void lateBets();
    void trackPayoffs();
    void trackPayoffsMustBeNumbers();
    void unknownBettor();
    void refusedSlipsAreListed();
    void anotherRace();
    void backToPaidRace();

private:
    void finish(int win, int place, int show);
    void enter(const QString &button, const QString &horse);
    void choose(int race);
    void pay(const QString &name);
    void calculate();
    void calculateAndPayEve();
    bool isShown(const QString &name) { return child<QWidget>(screen, name)->isVisible(); }
    QString text(const QString &name) const { return fieldText(screen, name); }
    QString payoffs() const;
    QStringList winners() const { return listTexts(screen, u"lstwinners"_s); }
    void expectNothingMore() { QVERIFY(boxes->allCame()); }

    std::unique_ptr<TestEvent> event;
    Navigator *navigator = nullptr;
    std::unique_ptr<BoxRobot> boxes;
    QWidget *screen = nullptr;
};

namespace {

const QStringList payoffFields{u"txtwinwin"_s,     u"txtwinplace"_s,  u"txtwinshow"_s,
                               u"txtplaceplace"_s, u"txtplaceshow"_s, u"txtshowshow"_s};

constexpr char horses[] = "1,0,\"1 \",\"ALPHA\"\r\n2,1,\"2 \",\"BRAVO\"\r\n3,0,\"3 \",\"CAIRO\"\r\n"
                          "4,1,\"1A\",\"DELTA\"\r\n5,0,\"5 \",\"EMBER\"\r\n6,0,\"6 \",\"FABLE\"\r\n"
                          "9,0,\"9 \",\"zzz\"\r\n";
// Finish 1, 3, 5: win pool 40, place pool 22, show pool 19, payoffs per $1 3.20, 2.50, 2.00, 2.00,
// 1.60, 2.50.
constexpr char bets[] = "1,1,1,10\r\n2,1,1,2.5\r\n3,3,1,20\r\n4,6,1,7.5\r\n1,1,2,4\r\n2,3,2,6\r\n"
                        "4,6,2,12\r\n1,1,3,3\r\n3,3,3,5\r\n5,5,3,2\r\n4,6,3,9\r\n";

} // namespace

void tst_frmpaywinnersb::init()
{
    boxes = std::make_unique<BoxRobot>();
    event = std::make_unique<TestEvent>(false);
    event->session.settings.roundingIndex = 3;
    event->write(u"Horses Race1"_s, horses);
    event->write(u"Bets Race1"_s, bets);
    event->write(u"Bettors"_s,
                 "1,\"AnyBettor\"\r\n2,\"BOB\"\r\n3,\"CAROL\"\r\n4,\"DAVE\"\r\n5,\"EVE\"\r\n");
    navigator = &event->navigator();
    screen = event->open(u"frmpaywinnersb"_s);
}

void tst_frmpaywinnersb::enter(const QString &button, const QString &horse)
{
    selectInList(screen, u"lsthorses"_s, horse);
    clickButton(screen, button);
}

void tst_frmpaywinnersb::finish(int win, int place, int show)
{
    const QMap<int, QString> names{{1, u"1 ALPHA"_s},  {2, u"2 BRAVO"_s}, {3, u"3 CAIRO"_s},
                                   {4, u"1A DELTA"_s}, {5, u"5 EMBER"_s}, {6, u"6 FABLE"_s}};
    enter(u"cmdwinner"_s, names[win]);
    enter(u"cmdplace"_s, names[place]);
    enter(u"cmdshow"_s, names[show]);
}

// Finish 1, 3, 5.
void tst_frmpaywinnersb::calculate()
{
    finish(1, 3, 5);
    clickButton(screen, u"cmdpayoff"_s);
}

// EVE is the first one who is paid, with $5.00.
void tst_frmpaywinnersb::calculateAndPayEve()
{
    calculate();
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::Yes);
    pay(u"EVE"_s);
}

void tst_frmpaywinnersb::choose(int race)
{
    child<QAbstractButton>(screen, memberName(u"optrace"_s, race))->click();
}

void tst_frmpaywinnersb::pay(const QString &name)
{
    selectInList(screen, u"lstwinners"_s, name);
    clickButton(screen, u"cmdpay"_s);
}

QString tst_frmpaywinnersb::payoffs() const
{
    QStringList texts;
    for (const QString &name : payoffFields)
        texts << fieldText(screen, name);
    return texts.join(u' ');
}

void tst_frmpaywinnersb::finishersArePosts()
{
    QCOMPARE(text(u"txthorse"_s), u"Select a Horse"_s);
    clickButton(screen, u"cmdpay"_s); // pays nobody
    boxes->expect(u"Must select horse"_s, u"Payoff"_s);
    clickButton(screen, u"cmdplace"_s);
    expectNothingMore();
    enter(u"cmdplace"_s, u"1A DELTA"_s);
    QCOMPARE(text(u"txtplacehorse"_s), u"4"_s);
    // A coupled horse's money counts: post 2 runs with post 4.
    event->write(u"Bets Race1"_s, "2,2,2,5\r\n3,1,2,5\r\n");
    enter(u"cmdwinner"_s, u"6 FABLE"_s);
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(winners(), QStringList{u"BOB"_s});
    QCOMPARE(text(u"txtplaceplace"_s), u"$4.00"_s);
}

void tst_frmpaywinnersb::missingFinishers()
{
    boxes->expect(u"Missing Win horse"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdpayoff"_s);
    expectNothingMore();

    QByteArray full;
    for (int post = 1; post <= 21; ++post)
        full += QByteArray::number(post) + ",0,\"7 \",\"HORSE\"\r\n";
    event->write(u"Horses Race1"_s, full);
    choose(1);
    enter(u"cmdwinner"_s, u"7 HORSE"_s);
    boxes->expect(u"Missing win,place, or show horse"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdpayoff"_s);
    expectNothingMore();
    QVERIFY(winners().isEmpty());
}

void tst_frmpaywinnersb::smallFieldGetsUnusedPost()
{
    enter(u"cmdwinner"_s, u"1 ALPHA"_s);
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(text(u"txtplacehorse"_s), u"7"_s);
    QCOMPARE(text(u"txtshowhorse"_s), u"7"_s);
    QCOMPARE(payoffs(), u"$6.40 $11.00 $12.67 $0.00 $0.00 $0.00"_s);
}

void tst_frmpaywinnersb::calculates()
{
    finish(1, 3, 5);
    typeInto(screen, u"txthousepct"_s, u"10"_s);
    clickButton(screen, u"cmdpayoff"_s);
    const QString expected = u"$5.76 $4.50 $3.60 $3.60 $2.88 $4.50"_s;
    QCOMPARE(payoffs(), expected);
    QCOMPARE(text(u"txthousetot"_s), u"$8.10"_s);
    QCOMPARE(winners(), (QStringList{u"AnyBettor"_s, u"BOB"_s, u"CAROL"_s, u"EVE"_s}));
    QCOMPARE(labelText(screen, u"lblowed"_s), u"4 of 4 to pay\nOwed $72.90, rounded $73.00"_s);
    // The house percentage is not taken a second time.
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(payoffs(), expected);
    QCOMPARE(event->session.payoffs.race, 1);
    QCOMPARE(event->session.payoffs.finishers, (std::array{1, 3, 5}));
    expectNothingMore();
}

void tst_frmpaywinnersb::asks532()
{
    const QString question =
        u"Use 532 Payoff for a 50,30,20 percent split of the win pool only - Use Calculate Payoff for a standard split"_s;
    finish(1, 3, 5);
    boxes->expect(question, u"532 Payoff"_s, Answer::No);
    clickButton(screen, u"cmd532"_s);
    QVERIFY(winners().isEmpty());
    boxes->expect(question, u"532 Payoff"_s, Answer::Yes);
    clickButton(screen, u"cmd532"_s);
    expectNothingMore();
    QCOMPARE(text(u"txtwintotal"_s), u"$20.00"_s);
    QCOMPARE(text(u"txtwinwin"_s), u"$3.20"_s);
    QVERIFY(event->session.payoffs.is532);
    clickButton(screen, u"cmdpayoff"_s); // back to the standard split
    QCOMPARE(text(u"txtwinwin"_s), u"$6.40"_s);
    QVERIFY(!event->session.payoffs.is532);
}

void tst_frmpaywinnersb::badRecordsAndNoWinners()
{
    event->write(u"Bets Race1"_s, QByteArray(bets) + "6,1,1,5\r\n");
    boxes->expect(u"Bad bet file record. A bet may have been lost."_s, u"TRELAWN"_s);
    calculate();
    expectNothingMore();
    QCOMPARE(text(u"txtbet"_s), u"$81.00"_s);
    QCOMPARE(winners().size(), 4);
    event->write(u"Bets Race1"_s, "2,6,1,5\r\n");
    boxes->expect(u"No winners - Do 'CLEAR BETS' from main menu to calculate refunds"_s,
                  u"Payoff"_s);
    calculate();
    expectNothingMore();
    QVERIFY(winners().isEmpty());
    QCOMPARE(text(u"txtbet"_s), u"$5.00"_s);
}

void tst_frmpaywinnersb::failures()
{
    calculate();
    const QString before = payoffs();
    const std::pair<QString, QString> files[] = {{u"Bets Race1"_s, u"Bet file empty"_s},
                                                 {u"Bettors"_s, u"Bets input"_s}};
    for (const auto &[file, title] : files) {
        const QByteArray bytes = event->read(file);
        QVERIFY(QFile::remove(event->path(file)));
        boxes->expect(u"File not found"_s, title);
        clickButton(screen, u"cmdpayoff"_s);
        expectNothingMore();
        QVERIFY(!event->exists(file));
        QCOMPARE(payoffs(), before);
        QCOMPARE(winners().size(), 4);
        event->write(file, bytes);
    }
}

void tst_frmpaywinnersb::paysOneByOne()
{
    calculate();
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    pay(u"CAROL"_s); // $5 show on the place horse at 1.60
    expectNothingMore();
    QCOMPARE(payoffs(), u"$0.00 $0.00 $0.00 $0.00 $8.00 $0.00"_s);
    clickButton(screen, u"cmdpay"_s); // nobody is selected now
    QCOMPARE(winners().size(), 3);

    pay(u"BOB"_s); // on two finishers: 2.5 x 3.20 + 6 x 2.00
    QCOMPARE(text(u"txtwintotal"_s), u"$8.00"_s);
    QCOMPARE(text(u"txtplacetotal"_s), u"$12.00"_s);
    QCOMPARE(text(u"txttotaltotal"_s), u"$20.00"_s);
    QVERIFY(!navigator->window()->findChild<QWidget *>(u"frmanyb"_s));
    pay(u"AnyBettor"_s);
    QVERIFY(navigator->window()->findChild<QWidget *>(u"frmanyb"_s));
    pay(u"EVE"_s);
    QVERIFY(winners().isEmpty());
    QCOMPARE(text(u"txtpaid"_s), u"$81.00"_s);
    QCOMPARE(text(u"txtrounded"_s), u"$81.00"_s);

    clickButton(screen, u"cmdreturn"_s);
    QVERIFY(event->slips.isEmpty());
    QVERIFY(!event->session.payoffs.isCalculated());
    expectNothingMore();
}

void tst_frmpaywinnersb::payoffsSurvivePaying()
{
    typeInto(screen, u"txthousepct"_s, u"10"_s);
    calculate();
    const RacePayoffs calculated = event->session.payoffs;
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    pay(u"EVE"_s);
    QVERIFY(event->session.payoffs.perDollar == calculated.perDollar);
    // EVE's amounts stand in the fields now; one typed payoff joins the others as calculated.
    typeInto(screen, u"txtwinwin"_s, u"8"_s);
    boxes->expect(u"Use track payoffs?"_s, u"Track Payoff"_s, Answer::Ok);
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
    clickButton(screen, u"cmdtrack"_s);
    clickButton(screen, u"cmdpayoff"_s);
    expectNothingMore();
    QCOMPARE(payoffs(), u"$7.20 $4.50 $3.60 $3.60 $2.88 $4.50"_s);
}

void tst_frmpaywinnersb::startOver()
{
    calculateAndPayEve();
    const QString shown = payoffs();
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::No);
    clickButton(screen, u"cmdpayoff"_s);
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::No);
    choose(1);
    QCOMPARE(winners().size(), 3);
    QCOMPARE(payoffs(), shown);
    QCOMPARE(text(u"txtpaid"_s), u"$5.00"_s);

    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(winners().size(), 4);
    QCOMPARE(text(u"txtpaid"_s), u"$0.00"_s);
    clickButton(screen, u"cmdreturn"_s);
    QVERIFY(event->slips.isEmpty()); // the payment no longer counts
    expectNothingMore();
}

// The calculator's window stays one and begins at 0 when it is opened again; it goes with the race.
void tst_frmpaywinnersb::oneCalculator()
{
    const auto calculators = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return navigator->window()->findChildren<QWidget *>(u"frmanyb"_s);
    };
    event->write(u"Horses Race2"_s, horses);
    calculate();
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    pay(u"AnyBettor"_s);
    QCOMPARE(calculators().size(), 1);
    QWidget *first = calculators().front();
    typeInto(first, u"txtwinwin"_s, u"2"_s);
    for (const auto &button : {u"cmdcalc"_s, u"cmdadd"_s, u"cmdpay"_s})
        clickButton(first, button);
    QCOMPARE(fieldText(first, u"txttotalpaid"_s), u"$6.40"_s);
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
    calculate();
    pay(u"AnyBettor"_s);
    QCOMPARE(calculators(), QList<QWidget *>{first});
    QCOMPARE(fieldText(first, u"txttotalpaid"_s), u"$0.00"_s);
    choose(2);
    QVERIFY(calculators().isEmpty());

    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
    choose(1);
    calculate();
    pay(u"AnyBettor"_s);
    QCOMPARE(calculators().size(), 1);
    clickButton(screen, u"cmdreturn"_s);
    QVERIFY(calculators().isEmpty());
    expectNothingMore();
}

// A winner whose bet reached the file after the calculation is never passed over in silence.
void tst_frmpaywinnersb::lateBets()
{
    const QString question =
        u"2 bets of $3.50 came in after the payoffs were calculated. Calculate again?"_s;
    event->write(u"Bets Race1"_s, "5,1,1,2\r\n");
    typeInto(screen, u"txthousepct"_s, u"10"_s);
    calculate();
    event->write(u"Bets Race1"_s, "5,1,1,2\r\n2,1,1,2.5\r\n3,1,1,1\r\n");
    boxes->expect(question, u"Pay winners"_s, Answer::Yes);
    typeInto(screen, u"txthousepct"_s, u"0"_s); // what was calculated with is taken again
    pay(u"EVE"_s);
    QCOMPARE(winners(), (QStringList{u"BOB"_s, u"CAROL"_s, u"EVE"_s}));
    QCOMPARE(labelText(screen, u"lblowed"_s), u"3 of 3 to pay\nOwed $4.95, rounded $5.00"_s);
    expectNothingMore();

    event->write(u"Bets Race1"_s, "5,1,1,2\r\n");
    boxes->expect(u"The bets have changed since the payoffs were calculated. Calculate again?"_s,
                  u"Pay winners"_s, Answer::No);
    boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    pay(u"BOB"_s);
    pay(u"EVE"_s); // not asked again about the same bets
    QCOMPARE(winners(), QStringList{u"CAROL"_s});
    QCOMPARE(event->session.paidHousePercents, (QMap<int, double>{{1, 10}}));
    QVERIFY(QFile::remove(event->path(u"Bets Race1"_s)));
    boxes->expect(u"File not found"_s, u"Bet file empty"_s);
    pay(u"CAROL"_s);
    QCOMPARE(winners(), QStringList{u"CAROL"_s});
    expectNothingMore();
}

void tst_frmpaywinnersb::trackPayoffs()
{
    calculate();
    for (int i = 0; i < 6; ++i)
        typeInto(screen, payoffFields[i], QString::number(8 - i));
    boxes->expect(u"Use track payoffs?"_s, u"Track Payoff"_s, Answer::Cancel);
    clickButton(screen, u"cmdtrack"_s);
    QVERIFY(!isShown(u"cmdusing"_s));
    QCOMPARE(winners().size(), 4);
    boxes->expect(u"Use track payoffs?"_s, u"Track Payoff"_s);
    clickButton(screen, u"cmdtrack"_s);
    expectNothingMore();
    QVERIFY(isShown(u"cmdusing"_s));
    QVERIFY(winners().isEmpty()); // nobody is paid by the payoffs before
    typeInto(screen, u"txthousepct"_s, u"50"_s);
    clickButton(screen, u"cmdpayoff"_s);
    const QString expected = u"$4.00 $3.50 $3.00 $2.50 $2.00 $1.50"_s;
    QCOMPARE(payoffs(), expected);
    QVERIFY(event->session.payoffs.usesTrack);
    // Taken again and calculated again, they stay.
    boxes->expect(u"Use track payoffs?"_s, u"Track Payoff"_s);
    clickButton(screen, u"cmdtrack"_s);
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(payoffs(), expected);
    expectNothingMore();
}

void tst_frmpaywinnersb::trackPayoffsMustBeNumbers()
{
    const QString refusal =
        u"Missing entry or non-numeric entry - enter an amount in all payoff fields using only numbers and decimal points"_s;
    for (const QString &last : {QString(), u"4.2x"_s}) {
        for (const QString &name : payoffFields)
            typeInto(screen, name, u"2.20"_s);
        typeInto(screen, u"txtshowshow"_s, last);
        boxes->expect(u"Use track payoffs?"_s, u"Track Payoff"_s);
        boxes->expect(refusal, u"TRELAWN"_s);
        clickButton(screen, u"cmdtrack"_s);
        expectNothingMore();
        QVERIFY(!isShown(u"cmdusing"_s));
    }
}

void tst_frmpaywinnersb::unknownBettor()
{
    event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n3,\"CAROL\"\r\n5,\"EVE\"\r\n");
    calculate();
    QCOMPARE(winners(),
             (QStringList{u"AnyBettor"_s, u"2 Bad Bettor Number"_s, u"CAROL"_s, u"EVE"_s}));
    QCOMPARE(text(u"txtbet"_s), u"$81.00"_s);
    boxes->expect(u"Bettor name not found"_s, u"Pay winners"_s);
    pay(u"2 Bad Bettor Number"_s);
    expectNothingMore();
    QCOMPARE(winners().size(), 4);
    QCOMPARE(text(u"txtpaid"_s), u"$0.00"_s);
}

void tst_frmpaywinnersb::refusedSlipsAreListed()
{
    event->printer.setDestination([](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
    calculateAndPayEve();
    boxes->expect(u"Printer error"_s, u"Pay winners"_s);
    clickButton(screen, u"cmdreturn"_s);
    expectNothingMore();
    QCOMPARE(navigator->currentName(), u"frmmenub"_s);
    QVERIFY(labelText(navigator->current(), u"lblnote"_s)
                .endsWith("The list of payoff slips is in its own window."_L1));
    const auto *list = navigator->window()->findChild<QListWidget *>(u"List1"_s);
    QVERIFY(list && list->item(0)->text().startsWith("Bettor Name: EVE"_L1));
}

void tst_frmpaywinnersb::anotherRace()
{
    calculateAndPayEve();
    HorseTable card;
    card.post(1) = {1, 0, u"8"_s, u"OTHER"_s};
    event->write(u"Horses Race2"_s, horseRecords(card));
    event->write(u"Bets Race2"_s, "5,1,1,2\r\n");
    choose(2);
    QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race2"_s);
    QCOMPARE(text(u"txtwinhorse"_s), QString());
    QCOMPARE(payoffs().trimmed(), QString());
    QVERIFY(winners().isEmpty());
    QCOMPARE(labelText(screen, u"lblnote"_s), u"Not paid in Race1: AnyBettor, BOB, CAROL"_s);
    QCOMPARE(child<QListWidget>(screen, u"lsthorses"_s)->count(), 1);
    enter(u"cmdwinner"_s, u"8 OTHER"_s);
    clickButton(screen, u"cmdpayoff"_s);
    QCOMPARE(text(u"txtbet"_s), u"$2.00"_s);
    pay(u"EVE"_s);
    clickButton(screen, u"cmdreturn"_s);
    // Race 1's slip is printed too, and its unpaid bettors are named.
    QCOMPARE(event->slips.size(), 1);
    QCOMPARE(slipText(event->slips.front()).size(), 12);
    QCOMPARE(labelText(navigator->current(), u"lblnote"_s),
             u"Not paid in Race1: AnyBettor, BOB, CAROL"_s);
    QCOMPARE(event->session.settings.currentRace, 2);
    expectNothingMore();
}

// A race that was paid in this visit is not paid again without a question.
void tst_frmpaywinnersb::backToPaidRace()
{
    event->write(u"Horses Race2"_s, horses);
    calculateAndPayEve();
    choose(2);
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::No);
    choose(1);
    QCOMPARE(event->session.settings.currentRace, 2);
    QVERIFY(child<QAbstractButton>(screen, u"optrace_2"_s)->isChecked());
    boxes->expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
    choose(1);
    calculate();
    QCOMPARE(winners().size(), 4);
    clickButton(screen, u"cmdreturn"_s);
    QVERIFY(event->slips.isEmpty());
    expectNothingMore();
}

TRELAWN_TEST(tst_frmpaywinnersb)
#include "tst_frmpaywinnersb.moc"
