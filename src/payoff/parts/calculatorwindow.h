#pragma once

#include "ui/navigator.h"

#include <QPointer>
#include <QWidget>

// The window of the calculator for slips of AnyBettor, beside the pay-winners screen. There is
// never more than one.
class CalculatorWindow
{
public:
    explicit CalculatorWindow(const ScreenContext &context);

    // Opens the calculator; one that is open comes to the front and begins at 0 again.
    void open();

    void close();

private:
    ScreenContext m_context;
    QPointer<QWidget> m_window;
};
