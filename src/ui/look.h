#pragma once

class QApplication;

// The program's look: one palette and style on every system, so that screens are the same at every
// table of the room.
void applyLook(QApplication &application);
