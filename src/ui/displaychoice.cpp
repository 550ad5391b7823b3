#include "ui/displaychoice.h"

#include "common/event/display.h"
#include "ui/fittedarea.h"
#include "ui/mainwindow.h"
#include "ui/noteline.h"
#include "ui/prompts.h"

#include <QApplication>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double choiceStep = 1.1;
constexpr double leastChoice = 0.5;
constexpr double largestChoice = 3;

// Scales a window beside the main one, as long as that window lives.
class BesideWindow : public QObject
{
public:
    explicit BesideWindow(QWidget *window)
        : QObject(window)
        , m_window(window)
        , m_scaling(window, window)
    {
    }

    void fit(double wish)
    {
        const QSize room = roomFor(m_window);
        const bool hasSize = m_window->testAttribute(Qt::WA_Resized);
        const QSizeF drawn =
            QSizeF(hasSize ? m_window->size() : m_window->sizeHint()) / m_scaling.factor();
        m_scaling.fit(room, wish);
        if (!m_window->isFullScreen())
            m_window->resize((drawn * m_scaling.factor()).toSize().boundedTo(room));
    }

private:
    QWidget *m_window;
    Scaling m_scaling;
};

} // namespace

DisplayChoice::DisplayChoice(Session &session, MainWindow *window)
    : QObject(window)
    , m_session(session)
    , m_window(window)
{
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_Plus), [this] { enlarge(); });
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { enlarge(); }); // plus without Shift
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { reduce(); });
    onKeys(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { choose(1); });
    onKeys(QKeySequence(Qt::Key_F11),
           [this] { m_window->setWindowState(m_window->windowState() ^ Qt::WindowFullScreen); });
    connect(m_window, &MainWindow::wishChanged, this, [](double wish) {
        for (const char *kind : {"QDialog", "QTipLabel"})
            QApplication::setFont(houseFont(wish), kind);
    });
}

void DisplayChoice::onKeys(const QKeySequence &keys, const std::function<void()> &work)
{
    auto *shortcut = new QShortcut(keys, m_window);
    shortcut->setContext(Qt::ApplicationShortcut);
    connect(shortcut, &QShortcut::activated, this, work);
}

void DisplayChoice::load()
{
    if (m_isLoaded || m_session.settings.initDrive.isEmpty())
        return;
    m_isLoaded = true;
    try {
        m_window->setLetters(readLetters(m_session));
    } catch (const FileError &) {
    }
}

void DisplayChoice::enlarge()
{
    if (m_window->area() && m_window->area()->isLimited())
        return tell(u"Larger letters do not fit into this window."_s);
    choose(m_window->letters() * choiceStep);
}

// From what is in force, so that the key is never without effect.
void DisplayChoice::reduce()
{
    double letters = m_window->letters();
    if (m_window->area() && m_window->area()->isLimited())
        letters *= m_window->area()->factor() / m_window->wish();
    choose(letters / choiceStep);
}

void DisplayChoice::choose(double letters)
{
    // As it is kept; steps up and down again end where they began.
    letters = std::round(std::clamp(letters, leastChoice, largestChoice) * 100) / 100;
    if (std::abs(letters - 1) < 0.04)
        letters = 1;
    m_window->setLetters(letters);
    if (m_session.settings.initDrive.isEmpty())
        return;
    trapErrors(m_window->screen(), ErrorStyle::DescriptionAndLabel,
               [&] { saveLetters(m_session, letters); });
}

void DisplayChoice::tell(const QString &note)
{
    if (NoteLine *line = noteLineOf(m_window->screen()))
        line->setText(note);
}

void DisplayChoice::adopt(QWidget *beside)
{
    auto *scaled = new BesideWindow(beside);
    scaled->fit(m_window->wish());
    connect(m_window, &MainWindow::wishChanged, scaled,
            [scaled](double wish) { scaled->fit(wish); });
}
