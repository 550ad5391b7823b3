#include "betting/frmsheetbnw.h"

frmsheetbnw::frmsheetbnw(const ScreenContext &context)
    : BetSheet(context, networkBetSheet())
{
}
