#pragma once

#include "common/event/pools.h"

#include <QByteArray>
#include <QString>

#include <array>

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

// A Horses file read; damaged lines leave their post unused and are counted.
struct HorseFile
{
    HorseTable horses;
    int damagedLines = 0;
};
HorseFile parseHorses(const QByteArray &bytes);
