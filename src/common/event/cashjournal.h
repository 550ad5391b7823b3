#pragma once

#include "common/event/exactmoney.h"
#include "common/event/racepayoffs.h"
#include "common/event/session.h"
#include "common/files/recordlines.h"

#include <QString>

#include <optional>
#include <vector>

// The cash journal: what every computer of the event did with money, a line each. A computer
// appends to a file of its own, `Cash NAME`, which needs no lock, and reads those of all.

enum class CashKind {
    Bets,            // a sheet was placed
    Multibets,       // multibets were placed
    Added,           // bets came from another computer's files; the money is in that one's till
    Refund,          // bets left the files and their stakes went back
    Settled,         // a calculation listed winners
    Paid,            // a winner of win, place and show was paid
    Slip,            // somebody was paid for slips of AnyBettor
    MultibetPaid,    // a winning multibet was paid, or one of a pool that nobody won was paid back
    TakenBack,       // a payment was undone: its money is in the till again
    Float,           // what was in the till at the start; the last one counts
    Counted,         // what is in the till by hand count; the last one counts
    Closed,          // the till was closed; the dollars are what was expected in it
    MultibetSettled, // the winners of a type of multibets were found, or that there are none
    Scratched,       // a horse left the card; what goes back for it is a refund
};
inline constexpr int cashKindCount = 14;

// Whether money goes out by it to somebody who won.
bool isPayment(CashKind kind);

// The word of a kind in the journal, such as "paid".
QString cashKindWord(CashKind kind);

// Bets whose deletion was undone: the detail of the line that takes their money again.
inline constexpr QLatin1StringView deletionUndone("deletion undone");

// Why bets were refunded: the detail of such a line. Clearing a race ends what its payments and its
// settlement say.
inline constexpr QLatin1StringView refundPriorBets("prior bets");
inline constexpr QLatin1StringView refundScratch("scratch");
inline constexpr QLatin1StringView refundBettor("bettor deleted");
inline constexpr QLatin1StringView refundRace("race cleared");
inline constexpr QLatin1StringView refundMultibets("multibets deleted");
inline constexpr QLatin1StringView refundRaceMultibets("multibets cleared");

// What stands behind the type of a multibet that nobody won: "EX refund".
inline constexpr QLatin1StringView multibetRefund("refund");

// How a race was settled: with it everybody's payoff can be worked out again.
struct RaceSettled
{
    RacePayoffs payoffs; // without those before the house percentage
    double housePercent = 0;
    int roundingIndex = 0; // 1 = 0.01 to 5 = 1.00

    // The same finishers, mode and house percentage: what the operator entered.
    bool isSameAs(const RaceSettled &other) const;
};

struct CashEntry
{
    CashKind kind = CashKind::Bets;
    int race = 0; // 1 to 12; 0 for what belongs to none
    int bettor = 0;
    QString name = {};
    ExactMoney dollars = 0; // that moved
    QString detail = {};    // number of bets, reason of a refund, text of a ticket, post and number
    ExactMoney owed = 0;    // of payments: before rounding; MultibetSettled: what $1 pays
    std::optional<RaceSettled> settled = {};
    int takesBack = 0; // TakenBack: the turn of the payment; the detail is its kind

    // What writing adds.
    QString computer = {}; // whose file it is in
    QString time = {};     // there, with its offset: "2026-05-02T20:41:09+02:00"
    // Greater than all turns that the computer could read in any journal then: what came later
    // among settlements, payments and clearings, whatever the clocks say. Others have 0.
    int turn = 0;

    // "20:41".
    QString clock() const { return time.mid(11, 5); }
};

struct CashJournal
{
    std::vector<CashEntry> lines; // each computer's in the order written
    int damaged = 0;        // lines that hold nothing readable, such as one cut off by a crash
    QStringList unreadable; // computers whose file could not be read
};

// This computer's name in the event and in the name of its journal: its network name, with what a
// file name may not be able to hold turned into hyphens.
QString computerName(const Session &session);

// The paths of the journals in a folder of this computer.
QStringList cashFiles(const QString &folder);

// The computer whose journal has this path.
QString journalComputer(const QString &path);

// All journals of the event. One that cannot be read is named; nothing is thrown. The second holds
// until anything of the journals is read or written again, and costs a call for each journal and
// three where it has grown. On a share it does not look for what a second program on this very
// computer wrote.
CashJournal readCashJournal(Session &session);
const CashJournal &lookIntoCashJournal(Session &session);

// Appends the lines to this computer's journal with its time, in one write that is flushed. What
// moves money calls it when the records are on file, and never fails by it: when the journal cannot
// be written, the operator is told what to write down by hand, and the result is false.
bool recordCash(Session &session, std::vector<CashEntry> lines);

// The record of a line, with its line end; and the line of a record, or nothing when it is damaged.
QByteArray cashRecord(const CashEntry &line);
std::optional<CashEntry> parseCash(std::string_view record);

// The same; \a fields is room that the lines of a file share.
std::optional<CashEntry> parseCash(std::string_view record, std::vector<RecordField> &fields);
