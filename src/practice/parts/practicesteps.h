#pragma once

#include "ui/navigator.h"

// What the buttons of practice do, wherever they stand. Files that fail are told in a box over the
// window of \a asker; then everything is as it was.

// Opens the practice event, which is made where there is none, with the panel beside the screens.
void goToPractice(QWidget *asker, const ScreenContext &context);

// Makes the practice event afresh and opens it, once the operator has said so.
void askBeginAgain(QWidget *asker, const ScreenContext &context);

// Goes back to the real event, once the operator has said so.
void askLeavePractice(QWidget *asker, const ScreenContext &context);
