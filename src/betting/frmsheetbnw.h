#pragma once

#include "ui/navigator.h"

#include <QWidget>

// The bet sheet for the files in the master computer's shared folder, in network mode.
class frmsheetbnw : public QWidget
{
    Q_OBJECT

public:
    explicit frmsheetbnw(const ScreenContext &context);
};
