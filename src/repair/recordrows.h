#pragma once

#include "common/event/horses.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

#include <array>
#include <string_view>

// A record as the repair screen lists it. The readers that betting and paying use decide whether it
// is good: one that they pass over is marked, so that a list without marks is a file of which
// nothing is ignored.
struct RecordRow
{
    int number = 0;         // of the record in the file, from 1
    QStringList cells;      // the first is the number; those that take time may be missing
    QByteArray line;        // as the file holds it
    bool isRecord = true;   // false for the row of the total
    bool isDamaged = false; // at least one cell holds a message in place of its value
};

// What records are compared with, and what the rows made so far have shown.
struct RecordLookup
{
    QHash<int, QString> bettors;      // the first of each number
    std::array<HorseTable, 3> horses; // of the race and the two after it
    int races = 1;                    // of these that there are
    std::array<bool, 3> isHorsesMissing{};
    std::array<bool, postCount + 1> isPostRead{};
};

// Whether the row of a bet would hold no message.
bool isGoodBet(std::string_view line, const RecordLookup &lookup);

// The row of a record line, by the kind of its file.
RecordRow betRow(int number, std::string_view line, RecordLookup &lookup);
RecordRow multibetRow(int number, std::string_view line, RecordLookup &lookup);
RecordRow bettorRow(int number, std::string_view line, RecordLookup &lookup);
RecordRow horseRow(int number, std::string_view line, RecordLookup &lookup);
RecordRow backupHorseRow(int number, std::string_view line, RecordLookup &lookup);
