#pragma once

#include "common/event/betrecords.h"

#include <QString>

#include <array>

// "Win", "Place" or "Show" for the type of a Bets record; a null string for any other number.
QString betTypeWord(float type);
inline QString betTypeWord(BetType type)
{
    return betTypeWord(float(type));
}

// One of the five bet types of multibets, with the words that stand for it.
struct MultibetType
{
    QString code;         // as records hold it
    QString name;         // "Daily Double"
    QString button;       // the control's name
    QString caption;      // of the button
    QString toolTip;      // of the button
    QString summaryLabel; // on the summary
    int lines = 2;        // post numbers of a bet: 2 or 3
    bool races = false;   // each line is a race of its own, from the selected race on
};

// Daily double, exacta, quinela, trifecta and pick 3, in the order of their buttons.
const std::array<MultibetType, 5> &multibetTypes();

// The type with this code, or nullptr for any other code.
const MultibetType *multibetType(const QString &code);
