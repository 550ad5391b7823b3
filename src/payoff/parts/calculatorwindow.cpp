#include "payoff/parts/calculatorwindow.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

CalculatorWindow::CalculatorWindow(const ScreenContext &context)
    : m_context(context)
{
}

void CalculatorWindow::open()
{
    if (!m_window || !m_window->isVisible()) {
        m_window = m_context.navigator.openBeside(u"frmanyb"_s);
        return;
    }
    m_window->findChild<QPushButton *>(u"cmdclear"_s)->click();
    Navigator::bringToFront(m_window);
}

void CalculatorWindow::close()
{
    if (m_window)
        m_window->close();
}
