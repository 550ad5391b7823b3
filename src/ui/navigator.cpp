#include "ui/navigator.h"

#include "common/event/session.h"
#include "ui/lockwait.h"
#include "ui/mainwindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

const QString helpScreen = u"frmhelpb"_s;

} // namespace

Navigator::Navigator(Session &session, SlipPrinter &printer,
                     const std::vector<ScreenEntry> &screens)
    : m_session(session)
    , m_printer(printer)
    , m_window(new MainWindow)
{
    for (const ScreenEntry &screen : screens)
        m_screens.emplace(screen.name, screen);
    connect(m_window, &MainWindow::closeRequested, this, &Navigator::pressCloseButton);
    m_session.files.notices = [this](const QString &holder) {
        return showLockWait(m_window, holder);
    };
    m_session.files.tell = [this](const QString &note) {
        // Once the handler that is reading has shown its own note.
        QMetaObject::invokeMethod(
            this, [this, note] { addNote(note); }, Qt::QueuedConnection);
    };
    auto *help = new QShortcut(Qt::Key_F1, m_window);
    help->setContext(Qt::ApplicationShortcut);
    connect(help, &QShortcut::activated, this, &Navigator::showHelp);
}

Navigator::~Navigator()
{
    m_session.files.notices = {};
    m_session.files.tell = {};
    delete m_window;
}

// Adds a line to the notes of the screen in use, unless it is there already.
void Navigator::addNote(const QString &note)
{
    auto *line = current() ? current()->findChild<QLabel *>(u"lblnote"_s) : nullptr;
    if (line && !line->text().contains(note))
        line->setText(line->text().isEmpty() ? note : line->text() + u'\n' + note);
}

bool Navigator::has(const QString &name) const
{
    return m_screens.contains(name);
}

const ScreenEntry &Navigator::entry(const QString &name) const
{
    return m_screens.at(name);
}

QWidget *Navigator::make(const ScreenEntry &entry)
{
    QWidget *screen = entry.make({m_session, *this, m_printer});
    screen->setObjectName(entry.name);
    return screen;
}

void Navigator::open(const QString &name, const QString &note)
{
    if (name == helpScreen && m_help && m_help->isVisible())
        return showHelp();
    m_previous = currentName();
    m_session.files.unsure.reset(); // with the sheet that could place them again
    QWidget *screen = make(entry(name));
    m_window->showScreen(screen);
    m_window->setWindowTitle(entry(name).title);
    if (auto *line = screen->findChild<QLabel *>(u"lblnote"_s); line && !note.isEmpty())
        line->setText(note);
    m_window->show();
}

void Navigator::reopen(const QString &note)
{
    const QString previous = m_previous;
    open(currentName(), note);
    m_previous = previous;
}

QWidget *Navigator::openBeside(const QString &name)
{
    QWidget *screen = make(entry(name));
    QWidget *focused = screen->focusWidget();
    // A dialog's window stays above the main window; another would soon be hidden by it.
    screen->setParent(m_window,
                      Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->setWindowTitle(entry(name).title);
    if (focused)
        focused->setFocus();
    screen->show();
    return screen;
}

QWidget *Navigator::current() const
{
    return m_window->screen();
}

QString Navigator::currentName() const
{
    return current() ? current()->objectName() : QString();
}

void Navigator::pressCloseButton()
{
    if (!current())
        return exitProgram();
    auto *button = current()->findChild<QAbstractButton *>(entry(currentName()).closeButton);
    if (button && button->isEnabled())
        button->click();
}

QString Navigator::titleOf(const QString &name) const
{
    return has(name) ? entry(name).title : QString();
}

void Navigator::exitProgram()
{
    const auto beside = m_window->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *window : beside) {
        if (window->isWindow() && window->isVisible() && !window->close())
            return;
    }
    m_window->allowClose();
    m_window->close();
    QApplication::quit();
}

void Navigator::showHelp()
{
    if (!has(helpScreen))
        return;
    const QWidget *active = QApplication::activeWindow();
    const bool isBeside = active && active != m_window && has(active->objectName());
    const QString screen = isBeside ? active->objectName() : currentName();
    if (screen == helpScreen)
        return;
    if (m_help && m_help->isVisible()) {
        m_help->setWindowState(m_help->windowState() & ~Qt::WindowMinimized);
        m_help->raise();
        m_help->activateWindow();
    } else if (currentName() != helpScreen) {
        m_help = openBeside(helpScreen);
    }
    emit helpAsked(screen);
}
