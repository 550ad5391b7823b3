#pragma once

#include "ui/navigator.h"

#include <QWidget>

// The bet sheet for this computer's own files.
class frmsheetb : public QWidget
{
    Q_OBJECT

public:
    explicit frmsheetb(const ScreenContext &context);
};
