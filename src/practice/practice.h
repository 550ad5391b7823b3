#pragma once

#include "common/event/session.h"
#include "common/files/progress.h"

// The practice event: an event of its own in the folder practice of the program's data folder, with
// drives of its own. While it is open the session's paths lead nowhere else, so that nothing that
// is done in practice reaches the real event, another computer or a thumb drive. A start of the
// program always begins with the real event. All functions that touch files throw FileError.

// Race 1 is left to the pupil of the lesson; guests have bet on races 2 to 4.
inline constexpr int lessonRace = 1;

// This computer's folder of the practice event, from the real event or within practice.
QString practiceFolder(const Session &session);

// Whether there is a practice event to go on with. One that was not made to its end does not count.
bool isPracticeMade(const Session &session);

// Turns the session to the practice event, which is made first where there is none. On failure the
// session is as before.
void enterPractice(Session &session, const Progress &progress = {});

// Makes the practice event afresh and turns the session to it; the old one goes once the new one is
// whole.
void beginPracticeAgain(Session &session, const Progress &progress = {});

// Turns the session back to the real event, with everything as it was when it was left. Outside of
// practice nothing happens.
void leavePractice(Session &session);
