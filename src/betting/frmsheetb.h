#pragma once

#include "betting/parts/betsheet.h"

// The bet sheet for this computer's own files.
class frmsheetb : public BetSheet
{
    Q_OBJECT

public:
    explicit frmsheetb(const ScreenContext &context);
};
