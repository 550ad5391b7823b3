#pragma once

#include "common/event/eventrecords.h"
#include "common/event/exactmoney.h"
#include "common/print/till.h"
#include "reports/reporttable.h"

#include <QMap>

#include <array>
#include <vector>

// What the record files say was taken in the evening, and where it goes; and the till report, which
// sets it beside what the cash journals say.

// One bet type of one race, or a sum of several. Bets already refunded have left the files and are
// not part of it.
struct CashLine
{
    QString type;
    ExactMoney taken = 0;
    ExactMoney houseCut = 0;     // whole cents
    ExactMoney refundsDue = 0;   // of bad records, which no payoff counts
    ExactMoney withoutHorse = 0; // of what is taken: on posts that no horse runs from; it stays in
                                 // the pool and goes to the winners

    ExactMoney forWinners() const { return taken - houseCut - refundsDue; }
    void add(const CashLine &line);
};

struct RaceCash
{
    int race = 0;                // 1 to 12
    std::vector<CashLine> types; // win, place, show and the five multibet types; at the end the
                                 // records that Pay Winners will not accept
    CashLine total;
};

// The house percentages that the report cuts by.
struct HousePercents
{
    std::array<double, raceCount + 1> straight{}; // win, place and show, by race from 1
    double multibets = 0;
    QString title; // what the report says about them

    // The same percentage for everything.
    static HousePercents all(double percent);

    // What each race was settled with; a race that was not settled yet has 0.
    static HousePercents asPaid(const QMap<int, double> &paid, double multibets);
};

struct EveningCash
{
    QString percentTitle;
    std::vector<RaceCash> races; // all that were given
    std::vector<CashLine> types; // the evening's sums, in the order of RaceCash::types
    CashLine total;
    int badRecords = 0;   // readable, but not acceptable; their money is due back
    int damagedLines = 0; // without a readable amount
};

// \a races must be all races that legs of their multibets run in.
EveningCash countCash(const std::vector<RaceRecords> &races, const BettorTable &bettors,
                      const HousePercents &percents);

// The till report: the tills of all computers, the races by their settlements, then what the record
// files hold: the totals of the evening, a row a race and type that took money, a total a race.
Report cashReport(const QString &banner, const EveningCash &cash, const CashJournal &journal,
                  const std::vector<RaceTill> &races);

// What the report can and cannot know, in the lines that end it.
QStringList cashReportNotes();
