#pragma once

#include "common/event/eventfiles.h"
#include "common/event/horses.h"
#include "common/event/init.h"
#include "common/event/racefiles.h"
#include "common/event/session.h"
#include "common/files/fileerror.h"
#include "common/files/hostsystem.h"
#include "ui/mainwindow.h"
#include "ui/navigator.h"
#include "ui/slipprinter.h"

#include <QtTest>
#include <QtWidgets>

#include <functional>
#include <memory>

// What the tests share: an event in a temporary folder, answers to boxes, slips that were printed,
// tables of cases. It brings in Qt Test, Qt Widgets and the headers that nearly every test needs.

using namespace Qt::StringLiterals;

// How a test answers a box: Ok, Yes, No, Cancel.
using Answer = QMessageBox::StandardButton;

// Answers real message and input boxes from a queue, in order, and demands the exact texts. An
// unexpected box, or one that did not come until the robot's end, fails the test. All robots share
// one queue, so that two computers' events can be played in one test.
class BoxRobot
{
public:
    BoxRobot();
    ~BoxRobot();
    Q_DISABLE_COPY_MOVE(BoxRobot)

    // A message box or question with exactly this text and title.
    void expect(const QString &text, const QString &title, Answer answer = Answer::Ok);

    // An input box; a null \a typed cancels it.
    void expectInput(const QString &text, const QString &title, const QString &typed);

    // An input box whose text is accepted as it stands there.
    void expectInputKept(const QString &text, const QString &title);

    // Leaves the boxes to the test itself, until the last robot's end.
    void rest();

    // True when all expected boxes came and no other. A test that goes on calls it through QVERIFY
    // where it matters that a box came before the next step.
    bool allCame();
};

// A session whose drives lie in a temporary folder, with Init drive C: and the event directory
// C:\Trelawn\ (made, and filled with new record files unless told otherwise), race 1. From its
// making to the end of the test function any Qt warning fails the test.
class TestEvent
{
public:
    explicit TestEvent(bool withFiles = true);

    BoxRobot boxes;
    Session session;
    SlipPrinter printer; // hands its slips to `slips`
    QList<Slip> slips;

    // This computer's path of a file in the event directory, or of a path with a drive or computer.
    // The functions below take the same names; writing makes the folders, removing demands that the
    // file is there.
    QString path(const QString &name) const;
    QByteArray read(const QString &name) const;
    void write(const QString &name, const QByteArray &bytes) const;
    bool exists(const QString &name) const;
    void remove(const QStringList &names) const;

    // A record file and its twin: both are written; what both hold, or what tells them apart.
    void writeTwins(const QString &fileName, const QByteArray &bytes) const;
    QByteArray readTwins(const QString &fileName) const;

    // The names of a record file and its twin.
    static QStringList twins(const QString &fileName);

    // Lets this computer find \\HOST\Tshare, or that of another computer, in a folder.
    void joinShare(const QString &folder, const QString &computer = u"HOST"_s) const;

    // Puts a folder where the file was, so that nothing can open it.
    void block(const QString &fileName) const;

    // The names of the copies in the folder Saved.
    QStringList saved() const;

    // What the copies of a file in the Saved folder hold, oldest first.
    QByteArrayList savedCopies(const QString &fileName) const;

    // The navigator with every screen of the program; made on first use.
    Navigator &navigator();

    // Opens a screen and gives it time to be shown.
    QWidget *open(const QString &screen);
    QWidget *current() { return navigator().current(); }
    bool isOpen(const QString &screen) { return navigator().currentName() == screen; }

    // What stands in the note line of the open screen.
    QString note();

    // The lines of the list window that stands beside the screens, which is closed; none without
    // one.
    QStringList takeListing();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<Navigator> m_navigator;
};

// A control of the screen by object name; fails the test and lists what there is when there is
// none.
template<typename Widget>
Widget *child(QWidget *screen, const QString &name)
{
    if (auto *found = screen->findChild<Widget *>(name))
        return found;
    QStringList names;
    for (const QWidget *widget : screen->findChildren<QWidget *>())
        names << widget->objectName();
    qFatal("no control %s; there are: %s", qPrintable(name), qPrintable(names.join(u' ')));
}

void clickButton(QWidget *screen, const QString &name);
void clickCell(QWidget *screen, const QString &name, int times = 1);
QString fieldText(QWidget *screen, const QString &name);
QString labelText(QWidget *screen, const QString &name);
void typeInto(QWidget *screen, const QString &name, const QString &text);
void selectInList(QWidget *screen, const QString &name, const QString &text);
QString caption(QWidget *screen, const QString &name);

// The texts of a list, from the first row to the last.
QStringList listTexts(QWidget *screen, const QString &name);

// The rows of a table, their cells joined by "|".
QStringList tableTexts(QWidget *screen, const QString &name);

// The texts with single blanks alone.
QStringList simplified(QStringList texts);

// A race card of these horses; the other posts are unused.
HorseTable cardOf(std::initializer_list<Horse> horses);

// Ends the program through the window's close box; true when that ended it.
bool closeBoxEnds(Navigator &navigator);

// A table of cases: each row is a name and the columns.
//
//     Rows<QString, QString> rows;
//     rows("half a cent", u"0.005"_s, u"$0.01"_s);
//     for (const auto &[row, typed, shown] : rows)
//
// When a test function ends in mid-table, the table tells in which row.
template<typename... Columns>
class Rows
{
public:
    using Row = std::tuple<const char *, Columns...>;
    Rows() = default;
    ~Rows()
    {
        if (m_begun && m_current < m_rows.size())
            qInfo("in the row: %s", std::get<0>(m_rows[m_current]));
    }
    Q_DISABLE_COPY_MOVE(Rows)

    void operator()(const char *name, Columns... columns) { m_rows.push_back({name, columns...}); }

    struct Iterator
    {
        Rows &rows;
        const Row &operator*() const { return rows.m_rows[rows.m_current]; }
        void operator++() { ++rows.m_current; }
        bool operator!=(std::default_sentinel_t) const
        {
            return rows.m_current < rows.m_rows.size();
        }
    };
    Iterator begin()
    {
        m_begun = true;
        return {*this};
    }
    std::default_sentinel_t end() const { return {}; }

private:
    std::vector<Row> m_rows;
    size_t m_current = 0;
    bool m_begun = false;
};

// The number of the file error that the work fails with, 0 when it does not fail.
int errorOf(const std::function<void()> &work);

// What a test program can do, by its first argument; the other arguments are handed on. A folder's
// tests are one program, and each of its test classes one entry in it, under its own name.
struct ProgramEntry
{
    ProgramEntry(const char *name, int (*run)(int argc, char *argv[]));
};

// What is made with links, or with drives and shares that are folders.
#define SKIP_ON_WINDOWS()                                                                          \
    if (hasNativeDrives())                                                                         \
    QSKIP("Windows has no such thing")

// Enters a test class into the program of its folder.
#define TRELAWN_TEST(TestClass)                                                                    \
    static const ProgramEntry entryOf_##TestClass(#TestClass, runTest<TestClass>);

// Offscreen, C locale, the program's look.
void prepareTestApplication(QApplication &application);

template<typename TestClass>
int runTest(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    prepareTestApplication(application);
    TestClass test;
    return QTest::qExec(&test, argc, argv);
}
