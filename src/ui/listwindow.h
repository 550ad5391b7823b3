#pragma once

#include "common/print/slip.h"
#include "ui/navigator.h"

// Opens the list window frmlistb with these lines beside the screen shown; both stay usable.
void showListing(const ScreenContext &context, const QStringList &lines);

// Prints a list that must be seen, because what it lists is about to disappear: on the printer when
// \a mayPrint and the printer takes it, else in the list window. Returns whether it reached paper.
bool printOrList(const ScreenContext &context, const Slip &slip, bool mayPrint);
