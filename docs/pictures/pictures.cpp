// Takes the pictures of the README and the guide from the real program: the night of the practice
// event in a temporary folder, clicked through as an operator does. Usage: pictures FOLDER

#include "common/event/init.h"
#include "practice/madeevent.h"
#include "practice/practice.h"
#include "reports/eventreports.h"
#include "screens.h"
#include "ui/look.h"
#include "ui/mainwindow.h"
#include "ui/navigator.h"
#include "ui/slipprinter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// The program in a window of the smallest usual display. Questions are answered with Yes.
class Evening : public QObject
{
public:
    explicit Evening(const QString &pictures)
        : m_pictures(pictures)
    {
        m_session.paths = HostPaths(m_folder.path());
        m_session.files.computer = u"DESK1"_s;
        m_session.settings.initDrive = u"C:"_s;
        m_session.settings.started = true;
        setFirstInit(m_session);
        m_session.settings.eventDirectory = defaultEventDirectory(m_session.settings);
        makeFiles();
        m_printer.setDestination([](const Slip &) {});
        qApp->installEventFilter(this);
    }

    void open(const QString &screen, int race)
    {
        show(screen, QSize(1016, 690));
        press(u"optrace_"_s + QString::number(race));
    }

    void show(const QString &screen, const QSize &size)
    {
        m_navigator.open(screen);
        QCoreApplication::processEvents(); // shown for the first time, the window takes its own
                                           // size
        m_navigator.window()->resize(size);
    }

    // Until what is looked for every second has been seen.
    void wait()
    {
        QEventLoop loop;
        QTimer::singleShot(1500, &loop, &QEventLoop::quit);
        loop.exec();
    }

    void press(const QString &button)
    {
        if (auto *found = find<QAbstractButton>(button))
            found->click();
        QCoreApplication::processEvents();
    }

    void choose(const QString &list, const QString &start)
    {
        auto *found = find<QListWidget>(list);
        const auto items = found->findItems(start, Qt::MatchStartsWith);
        if (items.isEmpty())
            return;
        found->setCurrentItem(items.front());
        emit found->itemClicked(items.front());
        QCoreApplication::processEvents();
    }

    void type(const QString &field, const QString &text)
    {
        find<QLineEdit>(field)->setFocus();
        find<QLineEdit>(field)->setText(text);
    }

    void clickCell(const QString &cell)
    {
        auto *found = find<QWidget>(cell);
        const QPointF middle = found->rect().center();
        for (const auto kind : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent click(kind, middle, found->mapToGlobal(middle), Qt::LeftButton,
                              Qt::LeftButton, {});
            QCoreApplication::sendEvent(found, &click);
        }
    }

    void take(const QString &name)
    {
        QCoreApplication::processEvents();
        save(m_navigator.window()->grab(), name);
    }

    // The odds board once it has read the files.
    void takeBoard(const QString &name)
    {
        QWidget *board = m_navigator.openBeside(u"frmboard"_s);
        board->resize(1280, 820);
        auto *view = board->findChild<QWidget *>(u"board"_s);
        while (!view->accessibleDescription().contains(u"most backed"_s))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        save(view->grab(), name);
    }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(object);
        if (box && event->type() == QEvent::Paint) {
            QTimer::singleShot(0, box, [box] {
                QAbstractButton *yes = box->button(QMessageBox::Yes);
                if (yes)
                    yes->click();
                else
                    box->accept();
            });
        }
        return false;
    }

private:
    void save(const QPixmap &picture, const QString &name) const
    {
        const QString path = m_pictures + u'/' + name + u".png"_s;
        if (!picture.save(path))
            qFatal("cannot write %s", qPrintable(path));
    }

    template<typename Widget>
    Widget *find(const QString &name)
    {
        return m_navigator.current()->findChild<Widget *>(name);
    }

    // The made-up guests bet in practice alone; then it is a real night's event.
    void makeFiles()
    {
        m_session.realEvent = std::make_shared<const Session>(m_session);
        makeEventOfGuests(m_session, lessonRace, {});
        m_session.realEvent.reset();
        m_session.settings.banner = u"Harbour Club Race Night"_s;
        m_session.settings.roundingIndex = 3;
        saveInit(m_session);
    }

    const QString m_pictures;
    QTemporaryDir m_folder;
    Session m_session;
    SlipPrinter m_printer;
    Navigator m_navigator{m_session, m_printer, allScreens()};
};

void takePractice(Evening &evening)
{
    const QSize wide(1280, 690);
    evening.show(u"frmpractice"_s, wide);
    evening.press(u"cmdpractice"_s);
    evening.show(u"frmhorsesb"_s, wide);
    const QStringList horses{u"LUCKY CHARM"_s, u"PAPER MOON"_s, u"RED RIBBON"_s};
    for (int row = 0; row < int(horses.size()); ++row) {
        evening.type(u"txtnumber_"_s + QString::number(row), QString::number(row + 1));
        evening.type(u"txthorse_"_s + QString::number(row), horses[row]);
    }
    evening.press(u"cmdupdatehorses"_s);
    evening.show(u"frmbettorsb"_s, wide);
    evening.type(u"txtbettorname"_s, u"NEWMAN-PAT"_s);
    evening.wait();
    evening.take(u"practice"_s);
}

// What the organiser meets: the event, several computers, the till.
void takeSetting(Evening &evening)
{
    evening.open(u"frminitb"_s, 3);
    evening.take(u"setup"_s);
    evening.open(u"frmmc"_s, 3);
    evening.take(u"computers"_s);
    evening.open(u"frmreportb"_s, 3);
    evening.press(u"optreport_"_s + QString::number(int(ReportKind::Cash)));
    evening.type(u"txtfloat"_s, u"200"_s);
    evening.press(u"cmdsofar"_s);
    evening.take(u"till"_s);
}

void takePictures(Evening &evening)
{
    evening.open(u"frmsheetb"_s, 2);
    evening.choose(u"lstentries"_s, u"CHANDLER-MAY"_s);
    evening.clickCell(u"txtone_4"_s);
    evening.clickCell(u"txtnumber_21"_s);
    evening.clickCell(u"txtone_3"_s);
    evening.clickCell(u"txtnumber_44"_s);
    evening.clickCell(u"txtnumber_65"_s);
    evening.take(u"betsheet"_s);
    evening.press(u"cmdplacebets"_s);

    evening.open(u"frmpaywinnersb"_s, 2);
    const std::pair<QString, QString> finish[] = {
        {u"cmdwinner"_s, u"1 "_s}, {u"cmdplace"_s, u"3 "_s}, {u"cmdshow"_s, u"2 "_s}};
    for (const auto &[button, horse] : finish) {
        evening.choose(u"lsthorses"_s, horse);
        evening.press(button);
    }
    evening.type(u"txthousepct"_s, u"10"_s);
    evening.press(u"cmdpayoff"_s);
    evening.choose(u"lstwinners"_s, {});
    evening.press(u"cmdpay"_s);
    evening.take(u"paywinners"_s);

    evening.open(u"frmmulti"_s, 3);
    evening.choose(u"lstentries"_s, u"GROVE-HELEN"_s);
    evening.press(u"cmdtrifecta"_s);
    for (const int cell : {2, 21 + 4, 21 + 5, 42 + 6})
        evening.clickCell(u"txtnum_"_s + QString::number(cell));
    evening.clickCell(u"txtbetamt"_s);
    evening.take(u"multibets"_s);

    takeSetting(evening);
    evening.open(u"frmmenub"_s, 3);
    evening.take(u"menu"_s);
    evening.takeBoard(u"board"_s);
    takePractice(evening);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    applyLook(application);
    Evening evening(application.arguments().value(1));
    takePictures(evening);
    return 0;
}
