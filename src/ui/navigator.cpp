#include "ui/navigator.h"

#include "common/event/init.h"
#include "ui/displaychoice.h"
#include "ui/lockwait.h"
#include "ui/mainwindow.h"
#include "ui/prompts.h"
#include "ui/undisturbed.h"

#include <QAbstractButton>
#include <QApplication>
#include <QShortcut>
#include <QShortcutEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString helpScreen = u"frmhelpb"_s;

// Puts the note before what the screen's status line says itself.
void addNote(const QWidget *screen, const QString &note, NoteKind kind)
{
    if (NoteLine *line = noteLineOf(screen))
        line->addBefore(note, kind);
}

} // namespace

Navigator::Navigator(Session &session, SlipPrinter &printer,
                     const std::vector<ScreenEntry> &screens)
    : m_session(session)
    , m_printer(printer)
    , m_window(new MainWindow)
    , m_display(new DisplayChoice(session, m_window))
{
    for (const ScreenEntry &screen : screens)
        m_screens.emplace(screen.name, screen);
    connect(m_window, &MainWindow::closeRequested, this, &Navigator::pressCloseButton);
    m_session.files.notices = [this](const QString &holder) {
        return showLockWait(m_window, holder);
    };
    m_session.files.working = [this] { m_waitCursor.work(); };
    m_session.files.tell = [this](const QString &note) {
        // Once the handler that is reading has shown its own note.
        Undisturbed::afterwards(this,
                                [this, note] { addNote(current(), note, NoteKind::Warning); });
    };
    auto *help = new QShortcut(Qt::Key_F1, m_window);
    help->setContext(Qt::ApplicationShortcut);
    connect(help, &QShortcut::activated, this, &Navigator::showHelp);
    QCoreApplication::instance()->installEventFilter(this);
}

Navigator::~Navigator()
{
    m_session.files.notices = {};
    m_session.files.working = {};
    m_session.files.tell = {};
    delete m_window;
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

bool Navigator::tellsRefusal(const ScreenEntry &entry)
{
    const QString reason = entry.refusal ? entry.refusal(m_session.settings) : QString();
    if (reason.isEmpty())
        return false;
    if (entry.refusalIsNote)
        noteLineOf(current())->warn(reason);
    else
        showMessage(current(), reason);
    return true;
}

// Screens without a banner say so too.
QString Navigator::windowTitle(const ScreenEntry &entry) const
{
    return m_session.isPractice() ? practiceWord + " - "_L1 + entry.title : entry.title;
}

void Navigator::show(const ScreenEntry &entry, const QString &note, NoteKind kind)
{
    QWidget *screen = make(entry);
    m_window->showScreen(screen);
    m_window->setWindowTitle(windowTitle(entry));
    m_window->show();
    m_display->load();
    if (entry.entered)
        entry.entered(screen);
    m_display->load(); // the first screen asks for the drive
    addNote(screen, note, kind);
}

void Navigator::open(const QString &name, const QString &note, NoteKind kind)
{
    if (Undisturbed::isAny())
        return;
    if (name == helpScreen && m_help && m_help->isVisible())
        return showHelp();
    if (tellsRefusal(entry(name)))
        return;
    m_previous = currentName();
    m_session.files.unsure.reset(); // with the sheet that could place them again
    show(entry(name), note, kind);
}

void Navigator::reopen(const QString &note, NoteKind kind)
{
    if (!Undisturbed::isAny())
        show(entry(currentName()), note, kind);
}

QWidget *Navigator::openBeside(const QString &name)
{
    const ScreenEntry &beside = entry(name);
    QWidget *screen = make(beside);
    QWidget *focused = screen->focusWidget();
    // A dialog's window stays above the main window; another would soon be hidden by it.
    screen->setParent(m_window,
                      Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->setWindowTitle(windowTitle(beside));
    if (focused)
        focused->setFocus();
    m_display->adopt(screen);
    screen->show();
    if (beside.entered)
        beside.entered(screen);
    bringToFront(screen);
    return screen;
}

void Navigator::showBeside(const QString &name)
{
    for (auto *beside : m_window->findChildren<QWidget *>(name, Qt::FindDirectChildrenOnly)) {
        if (beside->isWindow() && beside->isVisible())
            return bringToFront(beside);
    }
    openBeside(name);
}

void Navigator::bringToFront(QWidget *beside)
{
    const auto bring = [beside] {
        beside->setWindowState(beside->windowState() & ~Qt::WindowMinimized);
        beside->raise();
        if (!beside->testAttribute(Qt::WA_ShowWithoutActivating))
            beside->activateWindow();
    };
    bring();
    Undisturbed::afterwards(beside, bring); // boxes give the front back to whom they took it from
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
    const auto found = m_screens.find(name);
    return found == m_screens.end() ? QString() : found->second.title;
}

bool Navigator::closeBeside()
{
    const auto beside = m_window->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    return std::ranges::all_of(beside, [](QWidget *window) {
        return !window->isWindow() || !window->isVisible() || window->close();
    });
}

void Navigator::exitProgram()
{
    if (Undisturbed::isAny() || !closeBeside())
        return;
    m_window->allowClose();
    m_window->close();
    QApplication::quit();
}

void Navigator::showHelp()
{
    const QWidget *active = QApplication::activeWindow();
    const bool isBeside = active && active != m_window && m_screens.contains(active->objectName());
    const QString screen = isBeside ? active->objectName() : currentName();
    if (screen == helpScreen)
        return;
    if (m_help && m_help->isVisible()) {
        bringToFront(m_help);
    } else if (currentName() != helpScreen) {
        m_help = openBeside(helpScreen);
    }
    emit helpAsked(screen);
}

bool Navigator::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Shortcut) {
        auto *button = qobject_cast<QAbstractButton *>(object);
        if (button && !static_cast<QShortcutEvent *>(event)->isAmbiguous()) {
            if (button->isCheckable())
                button->setFocus(Qt::ShortcutFocusReason);
            button->click();
            return true;
        }
    }
    return QObject::eventFilter(object, event);
}
