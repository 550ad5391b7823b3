#include "board/frmboard.h"

#include "board/parts/boardview.h"
#include "board/parts/keepawake.h"
#include "common/event/session.h"
#include "ui/controls.h"
#include "ui/mainwindow.h"
#include "ui/noteline.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto betweenTicks = 500ms;
constexpr auto oneTurn = 10s;
constexpr auto untilStill = 3s;

// The race that a key stands for, 0 for none.
int raceOfKey(int key)
{
    switch (key) {
    case Qt::Key_0:
        return 10;
    case Qt::Key_Minus:
        return 11;
    case Qt::Key_Equal:
        return 12;
    default:
        return key >= Qt::Key_1 && key <= Qt::Key_9 ? key - Qt::Key_0 : 0;
    }
}

} // namespace

frmboard::frmboard(const ScreenContext &context)
    : m_context(context)
{
    m_clock.start();
    build();
    connectControls();
    // On a display of its own it leaves the keys to the operator's window.
    setAttribute(Qt::WA_ShowWithoutActivating, otherDisplay() != nullptr);
    m_picture.banner = context.session.settings.banner;
    m_picture.race = std::max(1, context.session.settings.currentRace);
    m_picture.note = waitingForFiles();
    follow();
}

frmboard::~frmboard() = default;

void frmboard::build()
{
    m_view = new BoardView(this);
    m_bar = buildBar();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_bar);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setFocus();
    assignAltLetters(this);
}

QWidget *frmboard::buildBar()
{
    auto *bar = new QWidget(this);
    const RaceOptions races =
        makeRaceOptions(bar, u"Stay on this race: keys 1 to 9, 0 - = for races 10 to 12"_s);
    m_races = races.group;
    chkfollow = makeCheck(bar, u"chkfollow"_s, u"Follow the race"_s,
                          u"The race that is worked on: key F"_s);
    chkturns = makeCheck(bar, u"chkturns"_s, u"Results in turn"_s,
                         u"The settled races one after the other: key T"_s);
    cmdfull = makeButton(bar, u"cmdfull"_s, u"Full Screen"_s, u"Key F11"_s);
    cmdreturn = makeButton(bar, u"cmdreturn"_s, u"Close"_s, u"Key Escape"_s);
    lblnote = makeNoteLine(bar);
    auto *choices = new QHBoxLayout;
    choices->addWidget(chkfollow);
    choices->addWidget(chkturns);
    choices->addStretch();
    choices->addWidget(cmdfull);
    choices->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(bar);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(races.frame);
    layout->addLayout(choices);
    layout->addWidget(lblnote);
    return bar;
}

void frmboard::connectControls()
{
    using Shows = BoardWish::Shows;
    connect(m_races, &QButtonGroup::idClicked, this,
            [this](int race) { showRaces(Shows::OneRace, race); });
    connect(chkfollow, &QCheckBox::clicked, this,
            [this](bool on) { showRaces(on ? Shows::Followed : Shows::OneRace, m_picture.race); });
    connect(chkturns, &QCheckBox::clicked, this,
            [this](bool on) { showRaces(on ? Shows::Settled : Shows::Followed); });
    connect(cmdfull, &QPushButton::clicked, this, &frmboard::switchFullScreen);
    connect(cmdreturn, &QPushButton::clicked, this, &frmboard::leave);
    connect(&m_watch, &BoardWatch::changed, this, [this](const BoardPicture &picture) {
        m_picture = picture;
        refresh();
    });
    connect(&m_watch, &BoardWatch::answers, this, [this](bool yes) {
        m_answers = yes;
        refresh();
    });
    connect(&m_tick, &QTimer::timeout, this, &frmboard::follow);
    connect(&m_turns, &QTimer::timeout, this, [this] {
        ++m_turn;
        follow();
    });
    m_still.setSingleShot(true);
    connect(&m_still, &QTimer::timeout, this, &frmboard::hideStillBar);
    m_tick.start(betweenTicks);
}

// What is chosen on this computer may have changed, and odds of some minutes ago are of more now.
void frmboard::follow()
{
    const Session &session = m_context.session;
    const int chosen = std::max(1, session.settings.currentRace);
    m_watch.follow({session.paths, session.settings.eventDirectory, session.settings.banner,
                    computerName(session), m_shows,
                    m_shows == BoardWish::Shows::OneRace ? m_race : chosen, m_turn});
    refresh();
}

void frmboard::refresh()
{
    BoardPicture picture = m_picture;
    m_history.mark(picture, m_clock.elapsed());
    if (!m_answers)
        picture.note = waitingForFiles();
    m_view->setPicture(picture);
    m_races->button(picture.race)->setChecked(true);
    chkfollow->setChecked(m_shows == BoardWish::Shows::Followed);
    chkturns->setChecked(m_shows == BoardWish::Shows::Settled);
}

void frmboard::showRaces(BoardWish::Shows shows, int race)
{
    m_shows = shows;
    m_race = race;
    m_turn = 0;
    if (shows == BoardWish::Shows::Settled)
        m_turns.start(oneTurn);
    else
        m_turns.stop();
    follow();
}

void frmboard::stepRace(int by)
{
    const int race = m_picture.race + by;
    if (race >= 1 && race <= raceCount)
        showRaces(BoardWish::Shows::OneRace, race);
}

void frmboard::entered()
{
    lblnote->setText(u"F11 full screen, Escape back; 1 to 9, 0 - = a race; F follow; T results"_s);
}

// The display that the operator's window is not on; null where there is only one.
QScreen *frmboard::otherDisplay() const
{
    const QScreen *operators = m_context.navigator.window()->QWidget::screen();
    if (isVisible() && screen() != operators)
        return screen();
    const QList<QScreen *> displays = QGuiApplication::screens();
    const auto other =
        std::ranges::find_if(displays, [&](const QScreen *one) { return one != operators; });
    return other == displays.end() ? nullptr : *other;
}

void frmboard::enterFullScreen()
{
    if (QScreen *other = otherDisplay()) {
        // Not to go down with the operator's window.
        windowHandle()->setTransientParent(nullptr);
        windowHandle()->setScreen(other);
        setGeometry(other->geometry());
    }
    setWindowState(windowState() | Qt::WindowFullScreen); // which activates nothing
}

void frmboard::switchFullScreen()
{
    if (!isWindow())
        return;
    if (isFullScreen())
        setWindowState(windowState() & ~Qt::WindowFullScreen);
    else
        enterFullScreen();
}

void frmboard::leave()
{
    if (isWindow())
        close();
    else
        m_context.navigator.open(u"frmmenub"_s);
}

void frmboard::showBar(bool yes)
{
    m_bar->setVisible(yes);
    if (yes)
        unsetCursor();
    else
        setCursor(Qt::BlankCursor);
}

void frmboard::hideStillBar()
{
    if (!isFullScreen())
        return;
    if (m_bar->underMouse())
        m_still.start(untilStill);
    else
        showBar(false);
}

// F11 is also a key of the operator's window.
bool frmboard::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isWindow()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_F11)
        event->accept();
    return QWidget::event(event);
}

void frmboard::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    setCaption(cmdfull, isFullScreen() ? u"Leave Full Screen"_s : u"Full Screen"_s);
    showBar(!isFullScreen());
}

void frmboard::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier))
        return QWidget::keyPressEvent(event);
    if (const int race = raceOfKey(key); race != 0)
        showRaces(BoardWish::Shows::OneRace, race);
    else if (key == Qt::Key_PageUp || key == Qt::Key_PageDown)
        stepRace(key == Qt::Key_PageDown ? 1 : -1);
    else if (key == Qt::Key_F)
        showRaces(BoardWish::Shows::Followed);
    else if (key == Qt::Key_T)
        showRaces(BoardWish::Shows::Settled);
    else if (key == Qt::Key_F11 || (key == Qt::Key_Escape && isFullScreen()))
        switchFullScreen();
    else if (key == Qt::Key_Escape)
        leave();
    else
        QWidget::keyPressEvent(event);
}

void frmboard::mouseMoveEvent(QMouseEvent *event)
{
    QWidget::mouseMoveEvent(event);
    if (!isFullScreen())
        return;
    showBar(true);
    m_still.start(untilStill);
}

void frmboard::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_awake)
        return;
    m_awake = std::make_unique<KeepAwake>();
    // Before the system shows it: a window of the operator's that is shown there gets the keys.
    if (isWindow() && !event->spontaneous() && otherDisplay())
        enterFullScreen();
}

void frmboard::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_awake.reset();
}
