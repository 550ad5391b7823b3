#pragma once

#include "ui/noteline.h"
#include "ui/waitcursor.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <map>
#include <vector>

class DisplayChoice;
class MainWindow;
class Navigator;
class QWidget;
class SlipPrinter;
struct Session;
struct Settings;

// What every screen is handed.
struct ScreenContext
{
    Session &session;
    Navigator &navigator;
    SlipPrinter &printer;
};

// A screen's place in the program.
struct ScreenEntry
{
    QString name;        // of the class and of its root widget
    QString title;       // of the window while it is shown
    QString closeButton; // the button that the close box presses
    std::function<QWidget *(const ScreenContext &)> make;

    // What the screen does once it can be seen: its first reading of files, and boxes about it.
    std::function<void(QWidget *)> entered = {};

    // Why the screen cannot be opened now, told by the screen that stays; empty when it can.
    QString (*refusal)(const Settings &) = nullptr;
    bool refusalIsNote = false; // told in the status line, not in a box
};

// Opens screens by name. Screens know only names, so none knows another. While a box is open no
// screen is opened and none is left, so a screen is never deleted under its own code.
class Navigator : public QObject
{
    Q_OBJECT

public:
    Navigator(Session &session, SlipPrinter &printer, const std::vector<ScreenEntry> &screens);
    ~Navigator() override;

    // Makes the screen fresh, shows it in the main window and deletes the one shown before. A
    // \a note of that \a kind goes to its status line. A screen that refuses to be opened tells why
    // instead; help that is open beside comes to the front instead.
    void open(const QString &name, const QString &note = {}, NoteKind kind = NoteKind::Plain);

    // Makes the screen as a window of its own beside the one shown; both stay usable. It comes to
    // the front, and closes when the main window does.
    QWidget *openBeside(const QString &name);

    // Brings the window of this name to the front that stands beside already; else opens it.
    void showBeside(const QString &name);

    // Brings a window beside to the front and makes it the one that is typed into, once the boxes
    // of the handler at work are answered. One that shows without activating itself leaves the keys
    // where they are.
    static void bringToFront(QWidget *beside);

    // Closes the windows beside; false when one refuses, which then stays.
    bool closeBeside();

    // Makes the screen shown now afresh. A \a note of that \a kind goes to its status line.
    void reopen(const QString &note = {}, NoteKind kind = NoteKind::Plain);

    QWidget *current() const;
    QString currentName() const;

    // The title of a screen's window; empty when it has no such screen.
    QString titleOf(const QString &name) const;

    // The name of the screen that was shown before the current one.
    QString previousName() const { return m_previous; }

    MainWindow *window() const { return m_window; }

    // Ends the program, unless a window beside refuses to close. Every change is on disk already.
    void exitProgram();

    // What F1 does everywhere: the help screen beside the screen in use, so that nothing typed is
    // lost, at that screen's chapter. One that is open already comes to the front.
    void showHelp();

protected:
    // An Alt letter presses its button at once. Qt does it a tenth of a second later, when the
    // operator may have gone on to something else.
    bool eventFilter(QObject *object, QEvent *event) override;

signals:
    // Help is wanted for the screen of this name.
    void helpAsked(const QString &screen);

private:
    const ScreenEntry &entry(const QString &name) const;
    QWidget *make(const ScreenEntry &entry);
    bool tellsRefusal(const ScreenEntry &entry);
    QString windowTitle(const ScreenEntry &entry) const;
    void show(const ScreenEntry &entry, const QString &note, NoteKind kind);
    void pressCloseButton();

    Session &m_session;
    SlipPrinter &m_printer;
    std::map<QString, ScreenEntry> m_screens;
    MainWindow *m_window;
    WaitCursor m_waitCursor;
    DisplayChoice *m_display;
    QString m_previous;
    QPointer<QWidget> m_help; // the help screen while it stands beside another
};
