#pragma once

#include "common/event/pools.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <string_view>

// One post position of a race.
struct Horse
{
    int post = 0;   // 1 to 21
    int pool = 0;   // 0 runs alone; 1 to 9 is shared by the horses of a coupled entry
    QString number; // the program number, text such as "1A", without padding
    QString name;

    bool operator==(const Horse &) const = default;
};

// True when no horse runs from the post: its name, without blanks, is empty or "zzz".
bool isUnused(const Horse &horse);

// A race card: 21 posts, in order.
class HorseTable
{
public:
    HorseTable();

    Horse &post(int post) { return m_horses[std::size_t(post - 1)]; }
    const Horse &post(int post) const { return m_horses[std::size_t(post - 1)]; }

    auto begin() const { return m_horses.begin(); }
    auto end() const { return m_horses.end(); }

    // The pool number that counts for betting: that of an unused post is 0.
    int couplingOf(int post) const;

    // True when bets on \a other count for \a post: the same post or the same coupled entry.
    bool runTogether(int post, int other) const;

    bool operator==(const HorseTable &) const = default;

private:
    std::array<Horse, postCount> m_horses;
};

// The 21 records of a Horses file. The horse number is padded to 2 characters.
QByteArray horseRecords(const HorseTable &horses);

// What became of the horses from one card to the next, a line for each post that changed: "Post 3:
// ROSE runs no longer".
QStringList cardChanges(const HorseTable &before, const HorseTable &after);

// Reads one record line; false when it holds no horse.
bool parseHorse(std::string_view line, Horse &horse);

// A Horses file read. A line that holds no horse, or one of a post that a line before it holds, is
// damaged; a post without a good line is unused.
struct HorseFile
{
    HorseTable horses;
    int records = 0; // posts with a good line
    int damagedLines = 0;

    // What is wrong with the file, which must hold all 21 posts, as a sentence; empty when it is
    // whole.
    QString damage() const;
};
HorseFile parseHorses(const QByteArray &bytes);
