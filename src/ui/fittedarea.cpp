#include "ui/fittedarea.h"

#include <QEvent>

#include <algorithm>

namespace {

// Letters grow again only when so much room became free that it is worth the change: a note that
// comes and goes must not move what is about to be clicked.
constexpr double worthGrowing = 1.1;

} // namespace

FittedArea::FittedArea(QWidget *screen, double letters, double likely, QWidget *parent)
    : QScrollArea(parent)
    , m_scaling(this, screen)
    , m_letters(letters)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    // Laid out and measured once only, as large as it probably becomes.
    resize(parent->size());
    screen->setParent(viewport());
    if (likely > 0)
        m_scaling.apply(Scaling::stepped(std::min(wish(), likely)));
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
    m_scaling.fit(size(), wish());
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
