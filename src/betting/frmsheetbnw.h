#pragma once

#include "betting/parts/betsheet.h"

// The bet sheet for the files in the master computer's shared folder, in network mode.
class frmsheetbnw : public BetSheet
{
    Q_OBJECT

public:
    explicit frmsheetbnw(const ScreenContext &context);
};
