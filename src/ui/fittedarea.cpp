#include "ui/fittedarea.h"

#include <QEvent>

#include <algorithm>
#include <utility>

namespace {

// Letters grow again only when so much room became free that it is worth the change: a note that
// comes and goes must not move what is about to be clicked.
constexpr double worthGrowing = 1.1;

} // namespace

FittedArea::FittedArea(QWidget *screen, double letters, double likely, QWidget *parent)
    : QScrollArea(parent)
    , m_scaling(this, screen)
    , m_letters(letters)
    , m_likely(likely)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    // Its size is what resizing this finds; the area needs none to begin with.
    screen->setAttribute(Qt::WA_Resized);
    setWidget(screen);
}

double FittedArea::suiting(const QSize &size)
{
    return std::max(1.0, std::min(double(size.width()) / drawnSize.width(),
                                  double(size.height()) / drawnSize.height()));
}

void FittedArea::setLetters(double letters)
{
    m_letters = letters;
    fitScreen();
}

bool FittedArea::isLimited() const
{
    return m_scaling.factor() < wish() - 0.03;
}

void FittedArea::fitScreen()
{
    m_scaling.fit(size(), wish(), std::exchange(m_likely, 0));
    widget()->resize(m_scaling.needed(size()).expandedTo(size()));
}

void FittedArea::resizeEvent(QResizeEvent *event)
{
    fitScreen();
    QScrollArea::resizeEvent(event);
}

bool FittedArea::eventFilter(QObject *object, QEvent *event)
{
    // The screen's contents changed.
    if (object == widget() && event->type() == QEvent::LayoutRequest
        && !testAttribute(Qt::WA_PendingResizeEvent)) {
        const double possible = m_scaling.possible(size());
        const bool canGrow = isLimited() && possible > m_scaling.factor() * worthGrowing;
        if (canGrow || possible < m_scaling.factor())
            fitScreen();
    }
    return QScrollArea::eventFilter(object, event);
}
