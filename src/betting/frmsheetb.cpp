#include "betting/frmsheetb.h"

frmsheetb::frmsheetb(const ScreenContext &context)
    : BetSheet(context, localBetSheet())
{
}
