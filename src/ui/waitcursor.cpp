#include "ui/waitcursor.h"

#include <QGuiApplication>

WaitCursor::WaitCursor(std::chrono::milliseconds before)
    : m_patience(before)
{
}

WaitCursor::~WaitCursor()
{
    end();
}

void WaitCursor::work()
{
    if (!m_begun.isValid()) {
        m_begun.start();
        // Comes when the handler has returned, or a box of it listens.
        QMetaObject::invokeMethod(this, &WaitCursor::end, Qt::QueuedConnection);
    }
    if (!m_isShown && m_begun.elapsed() >= m_patience.count()) {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        m_isShown = true;
    }
}

void WaitCursor::end()
{
    if (m_isShown)
        QGuiApplication::restoreOverrideCursor();
    m_isShown = false;
    m_begun.invalidate();
}
