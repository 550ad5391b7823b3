#pragma once

#include "common/event/session.h"

#include <QList>
#include <QString>

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The Multibets record: one single bet of a race.
struct Multibet
{
    std::array<int, 3> posts{}; // 1-based posts on lines 1 to 3; 0 where the bet has none
    QString type;               // "DD", "EX", "Q", "T" or "P3"
    double amount = 0;          // dollars, exact to four decimals
    int bettor = 0;             // number in Bettors

    bool operator==(const Multibet &) const = default;
};

// One line of a Multibets file. A damaged line keeps its place and its bytes but has no values.
struct MultibetRow
{
    Multibet bet;
    std::size_t start = 0; // of the line within the file's bytes
    std::size_t length = 0;
    bool damaged = false;
};

// A race's multibets in file order.
struct MultibetTable
{
    std::string bytes; // the file as it was read
    std::vector<MultibetRow> rows;
};

// Reads one record line; false when it does not hold a multibet.
bool parseMultibet(std::string_view line, Multibet &bet);

// Reads a whole Multibets file.
MultibetTable parseMultibets(std::string bytes);

// The record line of a multibet, with its line end.
QByteArray multibetLine(const Multibet &bet);

// The bets of one bettor, in file order.
QList<Multibet> multibetsOf(const MultibetTable &bets, int bettor);

// The sum of the bets in dollars.
double totalOf(const QList<Multibet> &bets);

// The functions below work on the files of the current race. They throw FileError and set the
// operation label.

// Reads the Multibets file (label "Multibets input"). A missing file is created empty, and so is
// its twin, a full one only after a copy went to Saved.
MultibetTable loadOrCreateMultibets(Session &session);

// Appends the bets to the file and to its twin, one write and flush each (label "Append Bets"), and
// to the cash journal.
void appendMultibets(Session &session, std::span<const Multibet> bets);

// A bettor's saved bet and its place among the bettor's bets in the file, from 0.
struct PlacedMultibet
{
    int place = 0;
    Multibet bet;
};

// Reads the file again and rewrites it and its twin without exactly these bets of the bettor, after
// a copy of both went to Saved, and writes the refund into the cash journal. When a place now holds
// another bet, nothing is changed and the result is false. All other lines stay byte for byte. When
// the twin could not be rewritten, the bets are gone all the same: the error's aftermath says so.
bool removeMultibets(Session &session, int bettor, const QList<PlacedMultibet> &removed);
