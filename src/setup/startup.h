#pragma once

#include "common/event/session.h"

// What happens once a run before the setup screen shows its settings, without the questions.

// True for a drive that the start accepts: not less than "C" and not greater than "E" in plain
// string order.
bool isInitDriveAnswer(const QString &answer);

// True when the display has fewer pixels in width than the screens are designed for.
bool isDisplayTooNarrow(int physicalWidth);

// Gives unset settings their start values: race 1, rounding 0.01 and font index 8.
void completeSettings(Settings &settings);

// Reads Init, or writes a first one when there is none. Returns false when Init was damaged. Every
// setting has a value afterwards, also when it throws FileError because Init could not be read or
// written.
bool readOrCreateInit(Session &session);

// Empties the shared table of the bettors and gives it a slot for each that the limit allows.
// Tables of bets belong to who reads them and grow with their files.
void sizeTables(Session &session);

// Sets the event directory of a start, remembers that of the last run when it was another one, and
// rewrites Init; of a damaged Init a copy goes to Saved first. Returns a note that tells that the
// program is open twice and names the copy; or an empty text.
QString resetEventDirectory(Session &session, bool initWasDamaged);
