#include "kit/testkit.h"
#include "ui/controls.h"

#include <cmath>
#include <map>
#include <random>

using namespace Qt::StringLiterals;

// A whole race night through the real widgets, from the first start to the exit. What files, labels
// and slips must show is worked out here, in double precision and without the program's own code.
class tst_racenight : public QObject
{
    Q_OBJECT

private slots:
    void wholeNight();
    void withoutMouse();

private:
    void startProgram();
    void enterHorses();
    void addBettors();
    void takeBets();
    void takeSheet(int bettor);
    void checkOdds();
    void scratch(int post);
    void settle(int win, int place, int show);
    void payEveryone();
    void checkFiles();
    void exitProgram();

    QWidget *screen() const { return m_event->current(); }
    void press(const QString &button) const { clickButton(screen(), button); }
    bool isOpen(const QString &name) const { return m_event->navigator().currentName() == name; }
    QWidget *focused() const;
    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const;
    void pressLetter(const QString &button) const;

    std::unique_ptr<TestEvent> m_event;
    std::unique_ptr<BoxRobot> m_boxes;
};

namespace {

enum Kind { Win = 1, Place, Show };
constexpr const char *kindNames[] = {"", "Win", "Place", "Show"};

struct Entry
{
    int post;
    QString number;
    QString name;
    int pool;
};

// Posts 1 and 5 run as one entry; post 6 is empty, post 9 is scratched after the betting.
const QList<Entry> &field()
{
    static const QList<Entry> entries{
        {1, u"1"_s, u"COPPER KETTLE"_s, 1}, {2, u"2"_s, u"LATE PROMISE"_s, 0},
        {3, u"3"_s, u"MOSS & STONE"_s, 0},  {4, u"4"_s, u"NINE TAILORS"_s, 0},
        {5, u"1A"_s, u"COPPER SPOON"_s, 1}, {7, u"5"_s, u"O'HARA'S LUCK"_s, 0},
        {8, u"6"_s, u"PAPER LANTERN"_s, 0}, {9, u"7"_s, u"QUICKSILVER"_s, 0},
        {10, u"8"_s, u"RIVER TOLL"_s, 0},   {11, u"9"_s, u"SLOW WALTZ"_s, 0},
        {12, u"10"_s, u"TIN WHISTLE"_s, 0}, {13, u"11"_s, u"UPPER HAND"_s, 0},
    };
    return entries;
}

const Entry &at(int post)
{
    const auto found =
        std::ranges::find_if(field(), [&](const Entry &entry) { return entry.post == post; });
    return *found;
}

constexpr double housePercent = 12;

struct Wager
{
    int bettor;
    int post;
    int kind;
    double dollars;
};

// The night as it should be.
struct Books
{
    QStringList names; // bettor n at n - 1
    QList<Wager> wagers;
    int receipts = 0;
    std::array<int, 3> finish{};
    std::array<double, 6> perDollar{}; // in the order of stakesOf
};

Books books;

bool sameInterest(int post, int other)
{
    return post == other || (at(post).pool != 0 && at(post).pool == at(other).pool);
}

double sum(const std::function<bool(const Wager &)> &counts)
{
    double total = 0;
    for (const Wager &wager : books.wagers)
        total += counts(wager) ? wager.dollars : 0;
    return total;
}

double pool(int kind)
{
    return sum([&](const Wager &wager) { return wager.kind == kind; });
}

// The six winning combinations: win, place and show on the winner, place and show on the second,
// show on the third.
constexpr std::pair<int, int> combinations[] = {{0, Win},   {0, Place}, {0, Show},
                                                {1, Place}, {1, Show},  {2, Show}};

std::array<double, 6> stakesOf(int bettor) // 0 for everyone
{
    std::array<double, 6> stakes{};
    for (std::size_t i = 0; i < 6; ++i) {
        const auto [place, kind] = combinations[i];
        const int post = books.finish[std::size_t(place)];
        stakes[i] = sum([&, wanted = kind](const Wager &wager) {
            return wager.kind == wanted && sameInterest(wager.post, post)
                   && (bettor == 0 || wager.bettor == bettor);
        });
    }
    return stakes;
}

// What $1 returns in a pool that is shared by the backers of several horses.
double payoff(double poolMoney, double stake, double allStakes, int horses)
{
    return (stake + (poolMoney - allStakes) / horses) / stake;
}

double owedTo(int bettor)
{
    double owed = 0;
    const auto stakes = stakesOf(bettor);
    for (std::size_t i = 0; i < 6; ++i)
        owed += std::round(stakes[i] * books.perDollar[i] * 10000) / 10000;
    return owed;
}

double toQuarter(double dollars)
{
    const double whole = std::floor(dollars);
    const double cents = std::round((dollars - whole) * 10000);
    return whole
           + (cents < 1300   ? 0
              : cents < 3800 ? .25
              : cents < 6300 ? .5
              : cents < 8800 ? .75
                             : 1);
}

// "$1,234.50"; with \a digits 2 "$05.00". No amount of the night lies on the edge of a cent.
QString money(double dollars, int digits = 1)
{
    const double cents = dollars * 100;
    if (std::abs(cents - std::floor(cents) - 0.5) < 0.01)
        qFatal("%f is too near to half a cent to compare", dollars);
    QString text = QString::number(std::llround(cents)).rightJustified(digits + 2, u'0');
    text.insert(text.size() - 2, u'.');
    if (text.size() > 6)
        text.insert(text.size() - 6, u',');
    return u'$' + text;
}

QString receiptLine(const Wager &wager, bool placedNow)
{
    const Entry &horse = at(wager.post);
    const QString number =
        placedNow ? horse.number.rightJustified(2) : horse.number.leftJustified(2);
    const QString kind = QString::fromLatin1(kindNames[wager.kind]);
    return number + u' ' + horse.name.leftJustified(15) + u' ' + money(wager.dollars, 2) + u' '
           + (placedNow ? kind : kind.leftJustified(5));
}

// The texts of a line at their 1-based columns.
QString columns(const QList<std::pair<int, QString>> &texts)
{
    QString line;
    for (const auto &[column, text] : texts)
        line = line.leftJustified(column - 1) + text;
    return line;
}

QStringList trimmedLines(const Slip &slip)
{
    QStringList lines;
    for (const QString &line : slipText(slip)) {
        QString text = line;
        while (text.endsWith(u' '))
            text.chop(1);
        lines << text;
    }
    return lines;
}

} // namespace

void tst_racenight::wholeNight()
{
    books = {};
    m_event = std::make_unique<TestEvent>(false);
    m_boxes = std::make_unique<BoxRobot>();
    for (const auto &step : std::initializer_list<std::function<void()>>{
             [this] { startProgram(); }, [this] { enterHorses(); }, [this] { addBettors(); },
             [this] { takeBets(); }, [this] { scratch(9); }, [this] { settle(5, 8, 12); },
             [this] { payEveryone(); }, [this] { checkFiles(); }, [this] { exitProgram(); }}) {
        step();
        QVERIFY(m_boxes->allCame());
        if (QTest::currentTestFailed())
            return;
    }
}

void tst_racenight::startProgram()
{
    Settings &settings = m_event->session.settings;
    settings = {};
    m_boxes->expect(u"Display size must be set to 1024 x 768"_s, u"TRELAWN"_s);
    m_boxes->expectInputKept(
        u"Enter Init drive location - C, D, or E or press enter to use the C drive"_s,
        u"Init Drive"_s);
    m_boxes->expect(u"Is a printer attached to this computer? 'No' disables all printing."_s,
                    u"Printer Attached?"_s, Answer::Yes);
    m_event->open(u"frminitb"_s);
    typeInto(screen(), u"txtbanner1"_s, u"Harbour Cup"_s);
    m_boxes->expect(u"Banner information changed"_s, u"Setup"_s);
    pressKey(Qt::Key_Return);
    press(u"cmdround"_s);
    press(u"cmdround"_s);
    QCOMPARE(caption(screen(), u"cmdround"_s), u"Round payoff to nearest 0.25"_s);
    press(u"optrace_3"_s);
    press(u"cmdok"_s);
    QVERIFY(isOpen(u"frmmenub"_s));
    QCOMPARE(fieldText(screen(), u"txtbanner"_s), u"Harbour Cup Race3"_s);
    QCOMPARE(caption(screen(), u"cmdclearbets"_s), u"Clear/Refund  Race3 Bets"_s);
}

void tst_racenight::enterHorses()
{
    press(u"cmdenterhorses"_s);
    for (const Entry &horse : field()) {
        typeInto(screen(), memberName(u"txtnumber"_s, horse.post - 1), horse.number);
        typeInto(screen(), memberName(u"txthorse"_s, horse.post - 1), horse.name);
        typeInto(screen(), memberName(u"txtpool"_s, horse.post - 1), QString::number(horse.pool));
    }
    m_boxes->expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
    press(u"cmdupdatehorses"_s);
    press(u"cmdmainmenu"_s);
    QCOMPARE(labelText(screen(), u"lblnote"_s), QString());
}

void tst_racenight::addBettors()
{
    press(u"cmdenterbettors"_s);
    books.names = {u"AnyBettor"_s};
    for (int i = 0; i < 40; ++i) {
        // In no alphabetical order, and typed in small letters.
        const QString typed = u"%1-%2"_s.arg(QChar(u'a' + i * 7 % 26)).arg(i);
        books.names << typed.toUpper();
        typeInto(screen(), u"txtbettorname"_s, typed);
        m_boxes->expect(typed.toUpper() + u" added"_s, u"Bettors"_s);
        pressKey(Qt::Key_Return);
    }
    QStringList sorted = books.names;
    sorted.sort(Qt::CaseInsensitive);
    QCOMPARE(listTexts(screen(), u"cbobettornames"_s), sorted);
    press(u"cmdreturn"_s);
}

// 200 bets on 50 sheets of 4 different cells each; AnyBettor and nine others come twice.
void tst_racenight::takeBets()
{
    press(u"cmdbet"_s);
    for (int sheet = 0; sheet < 50; ++sheet) {
        takeSheet(sheet % 41 + 1);
        if (QTest::currentTestFailed())
            return;
    }
    QCOMPARE(books.wagers.size(), 200);
    checkOdds();
    press(u"cmdmainmenu"_s);
}

void tst_racenight::takeSheet(int bettor)
{
    static std::mt19937 random(1867);
    const QString name = books.names[bettor - 1];
    selectInList(screen(), u"lstentries"_s, name);
    QCOMPARE(labelText(screen(), u"lblselected"_s), name);

    constexpr int presets[] = {1, 2, 3, 5, 10, 20};
    std::map<std::pair<int, int>, double> cells; // by kind and post: the order of the records
    while (cells.size() < 4) {
        const int kind = int(random() % 3) + 1;
        const int post = field()[qsizetype(random() % 12)].post;
        if (cells.contains({kind, post}))
            continue;
        const int preset = int(random() % 6);
        double dollars = presets[preset];
        clickCell(screen(), memberName(u"txtone"_s, preset));
        if (random() % 4 == 0) {
            clickCell(screen(), u"txtamt_0"_s); // a quarter more
            dollars += 0.25;
        }
        const int clicks = random() % 5 == 0 ? 2 : 1;
        clickCell(screen(), memberName(u"txtnumber"_s, 20 + 21 * (kind - 1) + post), clicks);
        cells[{kind, post}] = dollars * clicks;
    }

    QStringList lines;
    double standing = 0;
    double sheet = 0;
    for (const Wager &wager : std::as_const(books.wagers)) {
        if (wager.bettor == bettor) {
            lines << receiptLine(wager, false);
            standing += wager.dollars;
        }
    }
    for (const auto &[cell, dollars] : cells) {
        books.wagers.append({bettor, cell.second, cell.first, dollars});
        lines << receiptLine(books.wagers.back(), true);
        sheet += dollars;
    }
    QCOMPARE(labelText(screen(), u"lbltobeplaced"_s), u"to be placed: "_s + money(sheet));
    m_boxes->expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
    press(u"cmdplacebets"_s);
    QCOMPARE(fieldText(screen(), u"txttotprior"_s), money(standing + sheet));
    QCOMPARE(fieldText(screen(), u"txttotaltot"_s), QString());

    QCOMPARE(m_event->slips.size(), ++books.receipts);
    const Slip &receipt = m_event->slips.back();
    QVERIFY(receipt.bold && receipt.fontName == u"Courier New"_s && receipt.pointSize == 8);
    const QStringList head{u"Harbour Cup   Race3"_s,   u" "_s, u"BET SUMMARY FOR "_s, name, u" "_s,
                           u"HORSE              BET"_s};
    const QStringList foot{u" "_s, u"TOTAL BETS "_s + money(standing + sheet)};
    QCOMPARE(slipText(receipt), head + lines + foot);
}

void tst_racenight::checkOdds()
{
    const std::pair<double, QString> fractions[] = {
        {4.5, u"9/2"_s}, {4, u"4/1"_s},   {3.5, u"7/2"_s}, {3, u"3/1"_s},
        {2.5, u"5/2"_s}, {2, u"2/1"_s},   {1.8, u"9/5"_s}, {1.6, u"8/5"_s},
        {1.5, u"3/2"_s}, {1.4, u"7/5"_s}, {1.2, u"6/5"_s}, {1, u"1/1"_s}};
    for (const Entry &horse : field()) {
        const double money = sum([&](const Wager &wager) {
            return wager.kind == Win && sameInterest(wager.post, horse.post);
        });
        const double odds = (pool(Win) - money) / money;
        const auto fraction =
            std::ranges::find_if(fractions, [&](const auto &pair) { return pair.first <= odds; });
        QVERIFY(odds < 99 && fraction != std::end(fractions));
        QCOMPARE(fieldText(screen(), memberName(u"txtnumber"_s, 104 + horse.post)),
                 odds < 5 ? fraction->second : QString::number(std::floor(odds)) + u"/1"_s);
    }
}

void tst_racenight::scratch(int post)
{
    QStringList expected{
        u"REFUND BETS ON "_s + at(post).name, {}, u"Bettor Name                  Amount"_s, {}};
    for (int bettor = 1; bettor <= books.names.size(); ++bettor) {
        const double refund =
            sum([&](const Wager &wager) { return wager.bettor == bettor && wager.post == post; });
        if (refund != 0)
            expected << columns({{1, books.names[bettor - 1]}, {29, money(refund)}});
    }
    QVERIFY(expected.size() > 6);
    press(u"cmdenterhorses"_s);
    m_boxes->expect(u"Scratch a horse?"_s, u"Horses"_s, Answer::Yes);
    m_boxes->expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, QString::number(post));
    m_boxes->expect(u"Scratch "_s + at(post).name, u"Horses"_s);
    m_boxes->expect(at(post).name + u"Scratched"_s, u"Horses"_s);
    press(u"cmdscratch"_s);
    QCOMPARE(fieldText(screen(), memberName(u"txthorse"_s, post - 1)), QString());
    QCOMPARE(m_event->slips.size(), ++books.receipts);
    QCOMPARE(trimmedLines(m_event->slips.back()), expected);
    books.wagers.removeIf([&](const Wager &wager) { return wager.post == post; });
    press(u"cmdmainmenu"_s);
}

void tst_racenight::settle(int win, int place, int show)
{
    books.finish = {win, place, show};
    const auto stakes = stakesOf(0);
    for (const double stake : stakes)
        QVERIFY(stake > 0);
    const double placed = stakes[1] + stakes[3];
    const double shown = stakes[2] + stakes[4] + stakes[5];
    books.perDollar = {pool(Win) / stakes[0],
                       payoff(pool(Place), stakes[1], placed, 2),
                       payoff(pool(Show), stakes[2], shown, 3),
                       payoff(pool(Place), stakes[3], placed, 2),
                       payoff(pool(Show), stakes[4], shown, 3),
                       payoff(pool(Show), stakes[5], shown, 3)};
    for (double &dollars : books.perDollar)
        dollars *= 1 - housePercent / 100;

    press(u"cmdpay"_s);
    const std::pair<QString, int> finishers[] = {
        {u"cmdwinner"_s, win}, {u"cmdplace"_s, place}, {u"cmdshow"_s, show}};
    for (const auto &[button, post] : finishers) {
        selectInList(screen(), u"lsthorses"_s, at(post).number + u' ' + at(post).name);
        press(button);
    }
    QCOMPARE(fieldText(screen(), u"txtwinhorse"_s), QString::number(win));
    typeInto(screen(), u"txthousepct"_s, QString::number(housePercent));
    m_boxes->expect(u"House percentage is %1 %"_s.arg(housePercent), u"Payoff"_s);
    pressKey(Qt::Key_Return);
    press(u"cmdpayoff"_s);

    const double bet = pool(Win) + pool(Place) + pool(Show);
    const std::pair<QString, double> fields[] = {{u"txtwintotal"_s, pool(Win)},
                                                 {u"txtplacetotal"_s, pool(Place)},
                                                 {u"txtshowtotal"_s, pool(Show)},
                                                 {u"txttotaltotal"_s, bet},
                                                 {u"txtbet"_s, bet},
                                                 {u"txthousetot"_s, bet * housePercent / 100},
                                                 {u"txtwinwin"_s, 2 * books.perDollar[0]},
                                                 {u"txtwinplace"_s, 2 * books.perDollar[1]},
                                                 {u"txtwinshow"_s, 2 * books.perDollar[2]},
                                                 {u"txtplaceplace"_s, 2 * books.perDollar[3]},
                                                 {u"txtplaceshow"_s, 2 * books.perDollar[4]},
                                                 {u"txtshowshow"_s, 2 * books.perDollar[5]}};
    for (const auto &[name, dollars] : fields)
        QCOMPARE(fieldText(screen(), name), money(dollars));
}

void tst_racenight::payEveryone()
{
    QStringList winners;
    for (int bettor = 1; bettor <= books.names.size(); ++bettor) {
        if (owedTo(bettor) > 0)
            winners << books.names[bettor - 1];
    }
    QCOMPARE(listTexts(screen(), u"lstwinners"_s), winners);
    QVERIFY(winners.size() > 15);

    QStringList slip;
    double paid = 0;
    double rounded = 0;
    m_boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::Yes);
    std::ranges::reverse(winners); // in no order that the list suggests
    for (const QString &name : std::as_const(winners)) {
        const int bettor = int(books.names.indexOf(name)) + 1;
        const double owed = owedTo(bettor);
        paid += owed;
        rounded += toQuarter(owed);
        selectInList(screen(), u"lstwinners"_s, name);
        press(u"cmdpay"_s);
        QCOMPARE(fieldText(screen(), u"txtwinnername"_s), name);
        QCOMPARE(fieldText(screen(), u"txttotaltotal"_s), money(owed));
        QCOMPARE(fieldText(screen(), u"txttotalr"_s), money(toQuarter(owed)));
        QCOMPARE(fieldText(screen(), u"txtpaid"_s), money(paid));
        QCOMPARE(fieldText(screen(), u"txtrounded"_s), money(rounded));

        const auto stakes = stakesOf(bettor);
        slip << columns({{1, u"Bettor Name: "_s + name}, {45, u"Harbour Cup Race3"_s}})
             << columns({{25, u"Bet"_s},
                         {35, u"Paid"_s},
                         {45, u"Bet"_s},
                         {55, u"Paid"_s},
                         {65, u"Bet"_s},
                         {75, u"Paid"_s}});
        QList<std::pair<int, QString>> line;
        for (std::size_t i = 0; i < 6; ++i) {
            const auto [place, kind] = combinations[i];
            if (line.isEmpty())
                line.append({1, at(books.finish[std::size_t(place)]).number});
            line.append({5 + 20 * kind, money(stakes[i])});
            line.append({15 + 20 * kind, money(stakes[i] * books.perDollar[i])});
            if (kind == Show)
                slip << columns(std::exchange(line, {}));
        }
        slip << QString();
    }
    QVERIFY(listTexts(screen(), u"lstwinners"_s).isEmpty());
    // Every pool had winners: all that was bet is paid, but for the house's part.
    QVERIFY(std::abs(paid - (1 - housePercent / 100) * (pool(Win) + pool(Place) + pool(Show)))
            < 0.01);

    press(u"cmdreturn"_s);
    QVERIFY(isOpen(u"frmmenub"_s));
    QCOMPARE(labelText(screen(), u"lblnote"_s), QString());
    QCOMPARE(m_event->slips.size(), ++books.receipts);
    QCOMPARE(m_event->slips.back().fontName, u"Courier New"_s);
    QCOMPARE(trimmedLines(m_event->slips.back()), slip);
}

void tst_racenight::checkFiles()
{
    QByteArray bets;
    for (const Wager &wager : std::as_const(books.wagers)) {
        bets += QString(u"%1,%2,%3,%4\r\n"_s.arg(wager.bettor).arg(wager.post).arg(wager.kind))
                    .arg(wager.dollars)
                    .toLatin1();
    }
    QByteArray horses;
    for (int post = 1; post <= 21; ++post) {
        const auto horse = std::ranges::find_if(
            field(), [&](const Entry &entry) { return entry.post == post && post != 9; });
        horses += (horse == field().end() ? u"%1,0,\"  \",\"\"\r\n"_s.arg(post)
                                          : u"%1,%2,\"%3\",\"%4\"\r\n"_s.arg(post)
                                                .arg(horse->pool)
                                                .arg(horse->number.leftJustified(2), horse->name))
                      .toLatin1();
    }
    QByteArray bettors;
    for (int i = 0; i < books.names.size(); ++i)
        bettors += u"%1,\"%2\"\r\n"_s.arg(i + 1).arg(books.names[i]).toLatin1();

    const std::pair<QString, QByteArray> files[] = {
        {u"Bets%1 Race3"_s, bets}, {u"Horses%1 Race3"_s, horses}, {u"Bettors%1"_s, bettors},
        {u"Bets%1 Race1"_s, {}},   {u"Multibets%1 Race3"_s, {}},  {u"Bets%1 Race12"_s, {}},
    };
    for (const auto &[name, bytes] : files) {
        QCOMPARE(m_event->read(name.arg(QString())), bytes);
        QCOMPARE(m_event->read(name.arg(u"backup"_s)), bytes);
    }
    QCOMPARE(m_event->read(u"Init"_s), QByteArray("\"Harbour Cup\",\"C:\\Trelawn\\\",8,\"yes\",3,3,"
                                                  "0.25,1,5,10,5,20000,2000,0\r\n"));
}

void tst_racenight::exitProgram()
{
    QSignalSpy quits(qApp, &QCoreApplication::aboutToQuit);
    press(u"cmdexit"_s);
    QVERIFY(!screen()->isVisible());
}

// What keys go to. The offscreen platform does not hand the keyboard back when a box is closed.
QWidget *tst_racenight::focused() const
{
    screen()->activateWindow();
    if (!QTest::qWaitForWindowActive(screen()->window()) || !QApplication::focusWidget())
        qFatal("no control takes keys on %s", qPrintable(screen()->objectName()));
    return QApplication::focusWidget();
}

void tst_racenight::pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(focused(), key, modifiers);
    QCoreApplication::processEvents();
}

// Presses the button with Alt and its letter.
void tst_racenight::pressLetter(const QString &button) const
{
    const QKeySequence keys = child<QAbstractButton>(screen(), button)->shortcut();
    QVERIFY2(keys.count() == 1, qPrintable(button));
    QSignalSpy clicks(child<QAbstractButton>(screen(), button), &QAbstractButton::clicked);
    pressKey(keys[0].key(), keys[0].keyboardModifiers());
    QVERIFY2(clicks.count() == 1 || clicks.wait(), qPrintable(button));
    QCoreApplication::processEvents();
}

// A bet is placed and a winner paid with keys alone: letters for the buttons, arrows in the lists.
void tst_racenight::withoutMouse()
{
    m_event = std::make_unique<TestEvent>();
    m_boxes = std::make_unique<BoxRobot>();
    m_event->write(u"Horses Race1"_s, "1,0,\"1 \",\"COPPER KETTLE\"\r\n2,0,\"2 \",\"LATE "
                                      "PROMISE\"\r\n4,0,\"3 \",\"NINE TAILORS\"\r\n");
    m_event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"KING-ADA\"\r\n3,\"KING-ZOE\"\r\n");
    m_event->write(u"Bets Race1"_s, "2,1,1,6\r\n");
    m_event->open(u"frmmenub"_s);
    pressLetter(u"cmdbet"_s);
    QVERIFY(isOpen(u"frmsheetb"_s));
    QTest::keyClicks(focused(), u"king-z"_s);
    pressKey(Qt::Key_Return);
    QCOMPARE(labelText(screen(), u"lblselected"_s), u"KING-ZOE"_s);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_Down); // over the empty post
    pressKey(Qt::Key_4);
    pressKey(Qt::Key_Space);
    pressKey(Qt::Key_Right);
    pressKey(Qt::Key_2);
    pressKey(Qt::Key_Space);
    pressKey(Qt::Key_Minus);
    pressKey(Qt::Key_Space);
    pressKey(Qt::Key_Plus);
    pressKey(Qt::Key_Space);
    m_boxes->expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
    pressKey(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(m_boxes->allCame());
    QCOMPARE(m_event->read(u"Bets Race1"_s), QByteArray("2,1,1,6\r\n3,4,1,5\r\n3,4,2,2\r\n"));
    QCOMPARE(focused()->objectName(), u"txtname"_s);
    pressKey(Qt::Key_Tab);
    pressKey(Qt::Key_Escape);
    QCOMPARE(focused()->objectName(), u"txtname"_s);
    pressLetter(u"cmdmainmenu"_s);

    pressLetter(u"cmdpay"_s);
    QVERIFY(isOpen(u"frmpaywinnersb"_s));
    QCOMPARE(focused()->objectName(), u"lsthorses"_s);
    pressKey(Qt::Key_Down);
    pressKey(Qt::Key_End);
    pressLetter(u"cmdwinner"_s);
    QCOMPARE(fieldText(screen(), u"txtwinhorse"_s), u"4"_s);
    pressLetter(u"cmdpayoff"_s);
    QCOMPARE(focused()->objectName(), u"lstwinners"_s);
    pressKey(Qt::Key_Down);
    m_boxes->expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
    pressLetter(u"cmdpay"_s);
    QVERIFY(m_boxes->allCame());
    QCOMPARE(fieldText(screen(), u"txtwinnername"_s), u"KING-ZOE"_s);
    QCOMPARE(fieldText(screen(), u"txttotalr"_s), u"$13.00"_s);
    pressLetter(u"cmdreturn"_s);
    QVERIFY(isOpen(u"frmmenub"_s));
    QCOMPARE(labelText(screen(), u"lblnote"_s), QString());
}

TRELAWN_TEST(tst_racenight)
#include "tst_racenight.moc"
