#pragma once

#include "ui/printing.h"

#include <QWidget>

#include <functional>

// The window of a list beside the screens, as those know it who open it.
class ListWindow : public QWidget
{
    Q_OBJECT

public:
    // Shows the lines of the slip; what is printed of them keeps its blocks whole.
    virtual void showLines(const Slip &slip) = 0;

    // The list should be on paper and is not: it stays until it is printed, or until the operator
    // says that it may go. \a print prints it, with its boxes over the given window.
    virtual void keepUntilPrinted(const std::function<Printed(QWidget *)> &print) = 0;
};
