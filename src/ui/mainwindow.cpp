#include "ui/mainwindow.h"

#include "ui/fittedarea.h"
#include "ui/strip.h"
#include "ui/undisturbed.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QScreen>
#include <QStackedWidget>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace {

constexpr QMargins usualFrame(8, 32, 8, 8);

// As drawn: the least and the largest width of a strip that stands, and the height of one that
// lies.
constexpr int leastColumn = 200;
constexpr int largestColumn = 280;
constexpr int rowHeight = 64;

} // namespace

QSize roomFor(const QWidget *window)
{
    const QSize frame = window->frameGeometry().size() - window->size();
    const QSize free = window->screen()->availableGeometry().size();
    return frame.isNull() ? free.shrunkBy(usualFrame) : free - frame;
}

MainWindow::MainWindow(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_stack(new QStackedWidget(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addWidget(m_stack, 1);
    // Its size where no window manager makes it as large as the display.
    setGeometry(QWidget::screen()->availableGeometry().marginsRemoved(usualFrame));
    setWindowState(Qt::WindowMaximized);
}

void MainWindow::showScreen(QWidget *screen)
{
    // The screen chose its first control while it stood alone; being taken in forgets it.
    QWidget *first = screen->focusWidget();
    if (m_area)
        m_factors[m_screen->metaObject()] = m_area->factor();
    m_area = new FittedArea(screen, m_letters, m_factors.value(screen->metaObject()), m_stack);
    m_stack->addWidget(m_area);
    m_stack->setCurrentWidget(m_area);
    if (first)
        first->setFocus();
    m_screen = screen;
    while (m_stack->count() > 1) {
        QWidget *left = m_stack->widget(0);
        m_stack->removeWidget(left);
        left->hide();
        left->setGeometry({}); // what it stood on is painted again when it is deleted
        // Deleting takes time, and the next screen is to be seen first.
        QTimer::singleShot(
            0, left, [left] { Undisturbed::afterwards(left, [left] { left->deleteLater(); }); });
    }
}

void MainWindow::setStrip(Strip *strip)
{
    if (m_stripArea) {
        m_layout->removeWidget(m_stripArea);
        m_stripArea->hide();
        m_stripArea->deleteLater();
        m_stripArea = nullptr;
    }
    m_strip = strip;
    if (!strip)
        return;
    m_stripArea = new FittedArea(strip, wish(), 0, this);
    m_layout->addWidget(m_stripArea);
    placeStrip();
    m_stripArea->show();
}

// Screens keep the shape that they are drawn in, so a wide window has room beside them.
void MainWindow::placeStrip()
{
    if (!m_strip)
        return;
    const QSize drawn = FittedArea::drawnSize;
    const double factor =
        std::min(double(width()) / drawn.width(), double(height()) / drawn.height());
    const double room = width() - drawn.width() * factor;
    const bool upright = room >= leastColumn * factor;
    m_layout->setDirection(upright ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    m_strip->setUpright(upright);
    const int thickness =
        qRound(upright ? std::min(room, largestColumn * factor) : rowHeight * factor);
    m_stripArea->setMinimumSize(upright ? thickness : 0, upright ? 0 : thickness);
    m_stripArea->setMaximumSize(upright ? thickness : QWIDGETSIZE_MAX,
                                upright ? QWIDGETSIZE_MAX : thickness);
    m_stripArea->setLetters(wish());
}

void MainWindow::setLetters(double letters)
{
    m_letters = letters;
    if (m_area)
        m_area->setLetters(letters);
    placeStrip();
    emit wishChanged(wish());
}

double MainWindow::wish() const
{
    return m_letters * FittedArea::suiting(size());
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeStrip();
    emit wishChanged(wish());
}

void MainWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    connect(windowHandle(), &QWindow::screenChanged, this, &MainWindow::followDisplay,
            Qt::UniqueConnection);
    followDisplay();
}

// Keeps a window that does not fill its display within it.
void MainWindow::followDisplay()
{
    connect(QWidget::screen(), &QScreen::availableGeometryChanged, this, &MainWindow::followDisplay,
            Qt::UniqueConnection);
    if (isMaximized() || isFullScreen())
        return;
    const QRect free = QWidget::screen()->availableGeometry();
    if (free.contains(frameGeometry()))
        return;
    resize(size().boundedTo(roomFor(this)));
    const QRect frame = frameGeometry();
    move(std::clamp(frame.x(), free.x(), std::max(free.x(), free.right() - frame.width() + 1)),
         std::clamp(frame.y(), free.y(), std::max(free.y(), free.bottom() - frame.height() + 1)));
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_mayClose) {
        event->accept();
        return;
    }
    event->ignore();
    emit closeRequested();
}
