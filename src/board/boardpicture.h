#pragma once

#include "common/event/cashanswers.h"
#include "common/event/eventrecords.h"

#include <QList>
#include <QString>

#include <array>
#include <map>

// What the odds board shows of one race, as plain data.

// How win odds moved in the last minutes.
enum class OddsMove { None, Rising, Falling };

// A horse, or all horses of a coupled entry.
struct BoardRow
{
    int post = 0;           // of its first horse
    QString number = {};    // "4", "1, 1A"
    QStringList names = {}; // of its horses
    QString odds = {};      // win odds as the bet sheet shows them, empty without money
    OddsMove move = OddsMove::None;
    std::array<float, 3> money{}; // dollars to win, place and show
    bool isScratched = false;

    QString name() const { return names.join(QStringLiteral(", ")); }
    float total() const { return money[0] + money[1] + money[2]; }
    bool operator==(const BoardRow &) const = default;
};

// The pool of a bet type of multibets.
struct BoardPool
{
    QString name; // "Exacta"
    double dollars = 0;

    bool operator==(const BoardPool &) const = default;
};

// A horse of the finish, and what $2 on it pays to win, place and show, empty for nothing.
struct BoardFinisher
{
    QString number;
    QString name;
    std::array<QString, 3> pays;

    bool operator==(const BoardFinisher &) const = default;
};

// What a multibet pays.
struct BoardPayoff
{
    QString name;   // "Exacta", "Daily Double, races 1-2"
    QString horses; // their numbers: "4, 7"; "no winner"
    QString pays;   // "$36.00"; "stakes back"

    bool operator==(const BoardPayoff &) const = default;
};

struct BoardPicture
{
    QString folder; // of the event, this computer's path
    QString banner;
    int race = 0;
    QList<BoardRow> rows;         // in the order of the posts
    std::array<float, 4> pools{}; // dollars to win, place and show, and of all three
    int mostBacked = -1;          // the row with the most money on it, -1 for none
    QList<BoardPool> multibets;   // those with money
    QList<BoardFinisher> finish;  // the first three, once the payoff was calculated
    QList<BoardPayoff> payoffs;   // of multibets that were settled
    QString note;                 // about what cannot be read now

    bool operator==(const BoardPicture &) const = default;
};

// The race's picture without folder and banner. \a scratched are the horses that ran before; \a
// cards are those of the races around it, for bets that run over several.
BoardPicture boardPicture(const RaceRecords &race, const QList<Horse> &scratched,
                          const CashJournal &journal, const std::map<int, HorseTable> &cards);

// The note of a picture whose files do not answer or are not whole.
QString waitingForFiles();

// Everything on the picture in words, a line each: what a screen reader says.
QStringList boardText(const BoardPicture &picture);

// The words of a move; empty for none.
QString moveText(OddsMove move);

// "$1,234", with cents where there are any.
QString boardDollars(double dollars);

// The races with a settlement that holds.
QList<int> settledRaces(const CashJournal &journal);

// The race that the board of this \a computer follows: the one that is \a chosen there. Where no
// money moved on the computer, which is a board alone then, the one that was last bet on or settled
// anywhere.
int followedRace(const CashJournal &journal, const QString &computer, int chosen);
