#pragma once

#include "common/settings.h"

// What the main menu shows and refuses, by the settings of the run.

// Banner and race; the banner "Vefioze" stands alone.
QString menuBanner(const Settings &settings);

// "Clear/Refund  Race3 Bets": the race's name brings a blank of its own.
QString clearBetsCaption(const Settings &settings);

// Why this computer's role forbids the bettor list or the horses screen; empty when it does not.
QString bettorsRefusal(const Settings &settings);
QString horsesRefusal(const Settings &settings);
