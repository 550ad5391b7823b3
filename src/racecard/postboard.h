#pragma once

#include "common/event/horses.h"
#include "common/event/settings.h"

#include <QByteArray>
#include <QStringList>

#include <array>

// The file "postboard": the race cards of all 12 races as somebody published them.

// What a published card holds.
struct PublishedCard
{
    // Posts that are not on the card carry the name "zzz".
    std::array<HorseTable, raceCount> races;
    int entries = 0;     // horses taken
    int closedRaces = 0; // races that end with END
    int damaged = 0;     // lines and entries that could not be read
    int openRace = 0;    // the race in which the text ends without END, 0 when it ends after one
    QStringList refused; // one message an entry whose post position is out of range
};

// The file for a downloaded text: one quoted field around the text as it came.
QByteArray postboardRecord(const QByteArray &text);

// Reads the file: between its first and its last quote stand the fields of the entries, three
// each (post position, horse number, horse name); "END" closes a race. A heading field may stand
// before the first entry. Entries of the post "AE" or "MTO" are left out.
PublishedCard parsePostboard(const QByteArray &file);
