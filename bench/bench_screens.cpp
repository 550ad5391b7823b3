// How long the operator waits: from a click to the painted screen, in a full race.

#include "common/event/eventrecords.h"
#include "fullevent.h"
#include "screens.h"
#include "ui/mainwindow.h"
#include "ui/navigator.h"
#include "ui/printing.h"
#include "ui/slipprinter.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

namespace {

// The program on a full race. Questions are answered as soon as they are painted: with Yes, but
// with No whether to print.
class Desk : public QObject
{
public:
    explicit Desk(const QString &screen)
    {
        qApp->installEventFilter(this);
        open(screen);
        settle();
    }

    // Opens the screen and paints it; what it leaves behind goes afterwards.
    void open(const QString &screen)
    {
        navigator.open(screen);
        QCoreApplication::processEvents();
    }

    // Everything that is to be painted is painted, and what was left is gone.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void press(const QString &button)
    {
        find<QAbstractButton>(button)->click();
        settle();
        navigator.window()->activateWindow(); // as a window manager does after a box
    }

    // Types the text into a field.
    void type(const QString &field, const QString &text)
    {
        find<QLineEdit>(field)->selectAll();
        QTest::keyClicks(find<QLineEdit>(field), text);
        settle();
    }

    void pressKey(Qt::Key key)
    {
        QTest::keyClick(navigator.window()->focusWidget(), key);
        QCoreApplication::processEvents();
    }

    void selectRow(const QString &list, int row)
    {
        find<QListWidget>(list)->setCurrentRow(row);
        settle();
    }

    template<typename Widget>
    Widget *find(const QString &name)
    {
        return navigator.window()->findChild<Widget *>(name);
    }

    FullEvent event;
    SlipPrinter printer;
    Navigator navigator{event.session, printer, allScreens()};

protected:
    bool eventFilter(QObject *object, QEvent *shown) override
    {
        auto *box = qobject_cast<QMessageBox *>(object);
        if (box && shown->type() == QEvent::Paint)
            QTimer::singleShot(0, box, [box] { answer(box); });
        return false;
    }

private:
    static void answer(QMessageBox *box)
    {
        const bool prints = box->text().startsWith(u"Print"_s);
        QAbstractButton *button = box->button(prints ? QMessageBox::No : QMessageBox::Yes);
        if (button)
            button->click();
        else
            box->accept();
    }
};

// Bytes of memory that the process has taken; 0 where the system does not tell.
double memoryTaken()
{
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4096;
}

void openBetSheet(benchmark::State &state)
{
    Desk desk(u"frmsheetb"_s);
    const auto leave = [] {
        for (int n = 0; n < 4; ++n) // it takes its time
            Desk::settle();
    };
    for (int n = 0; n < 50; ++n) {
        desk.open(u"frmsheetb"_s);
        leave();
    }
    const double before = memoryTaken();
    for (auto _ : state) {
        desk.open(u"frmsheetb"_s);
        state.PauseTiming();
        leave();
        state.ResumeTiming();
    }
    state.counters["growth_bytes"] = (memoryTaken() - before) / double(state.iterations());
}
BENCHMARK(openBetSheet)->Unit(benchmark::kMillisecond);

// Enter in the search field, once the name is typed: the prior bets and the odds are read anew.
void selectBettor(benchmark::State &state)
{
    Desk desk(u"frmsheetb"_s);
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        desk.find<QLineEdit>(u"txtname"_s)->setFocus();
        desk.type(u"txtname"_s, u"BETTOR %1"_s.arg(++n % 2 == 0 ? 791 : 586));
        state.ResumeTiming();
        desk.pressKey(Qt::Key_Return);
    }
    state.counters["bets"] = double(desk.find<QListWidget>(u"lstpriorbets"_s)->count());
}
BENCHMARK(selectBettor)->Unit(benchmark::kMillisecond);

// Two bets, the question and the flush of both files and of the cash journal included.
void placeSheet(benchmark::State &state)
{
    Desk desk(u"frmsheetb"_s);
    desk.event.session.settings.betLimit = 1000000;
    desk.event.session.settings.setReceiptPrinting(false);
    const auto betsOnFile = [&] { return readBets(desk.event.session, 1, {}).rows.size(); };
    const auto before = betsOnFile();
    for (auto _ : state) {
        state.PauseTiming();
        desk.find<QLineEdit>(u"txtname"_s)->setFocus();
        desk.type(u"txtname"_s, u"BETTOR 791"_s);
        for (const auto key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space})
            desk.pressKey(key);
        state.ResumeTiming();
        desk.press(u"cmdplacebets"_s);
    }
    state.counters["placed"] = double(betsOnFile() - before);
}
BENCHMARK(placeSheet)->Unit(benchmark::kMillisecond)->Iterations(50);

void finish(Desk &desk)
{
    int row = 2;
    for (const QString &button : {u"cmdwinner"_s, u"cmdplace"_s, u"cmdshow"_s}) {
        desk.selectRow(u"lsthorses"_s, row);
        desk.press(button);
        row += 5;
    }
}

void calculate(benchmark::State &state)
{
    Desk desk(u"frmpaywinnersb"_s);
    finish(desk);
    for (auto _ : state)
        desk.press(u"cmdpayoff"_s);
    state.counters["winners"] = double(desk.find<QListWidget>(u"lstwinners"_s)->count());
}
BENCHMARK(calculate)->Unit(benchmark::kMillisecond);

void payWinner(benchmark::State &state)
{
    Desk desk(u"frmpaywinnersb"_s);
    finish(desk);
    desk.press(u"cmdpayoff"_s);
    desk.selectRow(u"lstwinners"_s, 0);
    desk.press(u"cmdpay"_s);
    for (auto _ : state) {
        state.PauseTiming();
        desk.selectRow(u"lstwinners"_s, 0);
        state.ResumeTiming();
        desk.press(u"cmdpay"_s);
    }
    state.counters["left"] = double(desk.find<QListWidget>(u"lstwinners"_s)->count());
}
BENCHMARK(payWinner)->Unit(benchmark::kMillisecond)->Iterations(100);

// The list window with every bet of the race, as long as a bet's line is.
void listAllBets(benchmark::State &state)
{
    Desk desk(u"frmmenub"_s);
    QStringList lines;
    for (int n = 1; n <= fullRace; ++n)
        lines.append(QString::number(n) + u"  SECOND WIND           Win            $1,234.50"_s);
    for (auto _ : state) {
        showListing({desk.event.session, desk.navigator, desk.printer}, lines);
        Desk::settle();
        state.PauseTiming();
        desk.press(u"cmdreturn"_s);
        state.ResumeTiming();
    }
}
BENCHMARK(listAllBets)->Unit(benchmark::kMillisecond);

// The repair screen: the bet file in its grid, then sorted by amount.
void showBetFile(benchmark::State &state)
{
    Desk desk(u"frmfixb"_s);
    desk.press(u"optflight_1"_s);
    for (auto _ : state)
        desk.press(u"cmdbets"_s);
}
BENCHMARK(showBetFile)->Unit(benchmark::kMillisecond);

void sortBetFile(benchmark::State &state)
{
    Desk desk(u"frmfixb"_s);
    desk.press(u"optflight_1"_s);
    desk.press(u"cmdbets"_s);
    auto *grid = desk.find<QAbstractItemView>(u"grdfix"_s);
    grid->setCurrentIndex(grid->model()->index(0, 6));
    for (auto _ : state)
        desk.press(u"chknum"_s);
}
BENCHMARK(sortBetFile)->Unit(benchmark::kMillisecond);

} // namespace
