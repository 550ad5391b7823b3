#pragma once

#include "common/event/settings.h"

// What the main menu shows, by the settings of the run.

// Banner and race; the banner "Vefioze" stands alone.
QString menuBanner(const Settings &settings);

// "Clear/Refund  Race3 Bets": the race's name brings a blank of its own.
QString clearBetsCaption(const Settings &settings);

// Beside the button that starts networked betting: this computer's part in it, or an empty text.
QString networkStatus(const Settings &settings);
