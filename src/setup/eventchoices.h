#pragma once

#include "common/event/session.h"

// The choices of the setup screen: what each does to the settings, and how it reads.

// "Bet receipts will print" or "Bet receipts will not print".
QString receiptsCaption(const Settings &settings);

// "Round payoff to nearest 0.25".
QString roundingCaption(const Settings &settings);

// "Print Font size is 12".
QString fontCaption(const Settings &settings);

// The next rounding step; after 1.00 comes 0.01.
void stepRounding(Settings &settings);

// Takes the receipt font size from the operator's answer: 8, 10, 12 or 14. Returns false, and
// changes nothing, for any other.
bool setReceiptFontSize(Settings &settings, const QString &answer);

// Makes the text the banner and rewrites Init; when that fails the banner is as before.
void changeBanner(Session &session, const QString &text);

// Makes the race the current one and rewrites Init.
void changeRace(Session &session, int race);
