#pragma once

#include "common/event/session.h"

// The Init file: one line of 14 fields on the Init drive.

// Each writer of Init has its own habit for the reserved fields 7 to 11.
enum class InitWriter {
    Setup,     // GO TO MENU and the banner: fields 7 to 10 as they were read, and 5
    Directory, // the event directory screen: 1, 2, 3, 4, 5
    Other,     // everybody else: 0.25, 1, 5, 10, 5
};

// This computer's path of Init.
QString initFile(const Session &session);

// Init drive + "\Trelawn\", in backslash form: the default event directory.
QString defaultEventDirectory(const Settings &settings);

// Makes the folder of Init on the Init drive (label "Init directory-Setup").
void makeInitFolder(Session &session);

// What the banner of every practice event begins with, so that screens, slips and reports say it.
inline constexpr QLatin1StringView practiceWord("PRACTICE");

// The banner that a text makes for this event.
QString bannerOf(const Session &session, const QString &text);

// Reads Init into the settings. What a damaged Init does not give is set to its default (a race,
// rounding or font index that it does not give stays unset), and the result is false. Throws
// FileError 53 when there is no Init (label "Init open-Setup").
bool loadInit(Session &session);

// Reads Init again in the middle of an event. The event directory, the race and what Init does not
// give stay as they are in this run; a damaged Init changes nothing, and the result is false.
// Throws FileError.
bool rereadInit(Session &session);

// The settings of a first start, when there is no Init.
void setFirstInit(Session &session);

// Rewrites Init from the settings; the labels are set before the file is opened and written. In
// network mode field 2 keeps the local directory.
void saveInit(Session &session, InitWriter writer, const QString &openLabel,
              const QString &outputLabel);
void saveInit(Session &session, InitWriter writer = InitWriter::Other);

// Switches receipt printing to the other state, which holds even when Init cannot be rewritten.
void switchReceiptPrinting(Session &session);
