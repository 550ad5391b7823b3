#pragma once

#include "common/event/session.h"

#include <QList>

// The lesson of the practice event: one race from its horses to the till at the end. What has been
// done is decided by the files alone, so it does not matter on which screen, or in which run of the
// program, somebody did it.

struct LessonStep
{
    QString title; // "Take a bet"
    QString how;   // what to press, a sentence or two
    bool isDone = false;
};

// The eight steps of the lesson in their order. Reads the race of the lesson, the list of bettors
// and the cash journals; throws FileError.
QList<LessonStep> lessonSteps(Session &session);

// The place of the first step that is not done, from 0; the number of steps after the last.
int nextStepOf(const QList<LessonStep> &steps);
