#pragma once

#include "common/event/session.h"

// What this computer's part among several computers allows, and where it sends the operator.

// What opening the steps for several computers begins with: single-computer mode, and no bets added
// yet.
void startWithoutRole(Session &session);

// Why the computer's role forbids the bettor list or the horses screen; empty when it does not.
QString bettorsRefusal(const Settings &settings);
QString horsesRefusal(const Settings &settings);

// Why the event directory cannot be changed now; empty when it can. It is the shared folder as long
// as computers bet together.
QString directoryRefusal(const Settings &settings);

// True when several computers go by the list of bettors, so that none may take names out of it.
bool sharesBettors(const Settings &settings);

// The name of the bet sheet in use: for this computer's own files or for the shared folder's.
QString betSheetScreen(const Settings &settings);
