#pragma once

#include <QObject>

#include <functional>

class MainWindow;
class QKeySequence;
struct Session;

// What the operator may choose about the display, from every screen: Ctrl+Plus, Ctrl+Minus and
// Ctrl+0 the size of letters, which is kept in a file, and F11 full screen. Boxes and tips get the
// letters of the main window.
class DisplayChoice : public QObject
{
    Q_OBJECT

public:
    DisplayChoice(Session &session, MainWindow *window);

    // Reads the kept choice once the Init drive is known. What cannot be read is no choice.
    void load();

    // Gives a window beside the main one its letters, and a size with which it fits on the display;
    // both follow the main window's from now on.
    void adopt(QWidget *beside);

private:
    void onKeys(const QKeySequence &keys, const std::function<void()> &work);
    void enlarge();
    void reduce();
    void choose(double letters);
    void tell(const QString &note);

    Session &m_session;
    MainWindow *m_window;
    bool m_isLoaded = false;
};
