#pragma once

#include "common/event/session.h"

// How large the operator wants the letters on this display: the file Display beside Init. The
// choice belongs to the computer, not to the event.

// How many times as large as what suits the window, from 0.5 to 3; 1 when there is no such file or
// it holds nothing usable. Throws FileError.
double readLetters(Session &session);

// Throws FileError.
void saveLetters(Session &session, double letters);
