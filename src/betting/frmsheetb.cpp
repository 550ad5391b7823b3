#include "betting/frmsheetb.h"

#include "betting/parts/betsheet.h"

#include <QVBoxLayout>

frmsheetb::frmsheetb(const ScreenContext &context)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new BetSheet(context, localBetSheet(), this));
}
