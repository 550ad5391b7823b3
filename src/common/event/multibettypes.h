#pragma once

#include <QString>

#include <array>

// One of the five bet types of multibets, with the words that stand for it.
struct MultibetType
{
    QString code;         // as records hold it
    QString button;       // the control's name
    QString caption;      // of the button
    QString toolTip;      // of the button
    QString printedName;  // on the list of winners
    QString summaryLabel; // on the summary
    int lines = 2;        // post numbers of a bet: 2 or 3
    bool races = false;   // each line is a race of its own, from the selected race on
};

// Daily double, exacta, quinela, trifecta and pick 3, in the order of their buttons.
const std::array<MultibetType, 5> &multibetTypes();

// The type with this code, or nullptr for any other code.
const MultibetType *multibetType(const QString &code);
