#include "betting/frmsheetbnw.h"

#include "betting/parts/betsheet.h"

#include <QVBoxLayout>

frmsheetbnw::frmsheetbnw(const ScreenContext &context)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new BetSheet(context, networkBetSheet(), this));
}
