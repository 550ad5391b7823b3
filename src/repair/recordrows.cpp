#include "repair/recordrows.h"

#include "common/event/betrecords.h"
#include "common/event/bettors.h"
#include "common/event/bettypes.h"
#include "common/event/multibetrecords.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr float leastAmount = 0.01F; // dollars, of one bet
constexpr float mostAmount = 1000;

const QString badHorse = u" Bad Horse Number"_s;
const QString badAmount = u" Bad Bet Amount"_s;
const QString nullBettor = u" Null Bettor Number"_s;

// The fields of a line, whatever it holds; those of a torn one count as missing, so that every
// column tells what it lacks.
class Record
{
public:
    explicit Record(std::string_view line)
    {
        if (!splitRecord(line, m_fields))
            m_fields.clear();
    }

    std::optional<double> number(std::size_t field) const
    {
        return field < m_fields.size() ? fieldNumber(m_fields[field]) : std::nullopt;
    }
    QString text(std::size_t field) const
    {
        return field < m_fields.size() ? fieldText(m_fields[field]) : QString();
    }

private:
    std::vector<RecordField> m_fields;
};

std::optional<int> wholeNumber(std::optional<double> number)
{
    constexpr double most = std::numeric_limits<int>::max();
    if (!number || *number != std::floor(*number) || std::abs(*number) > most)
        return {};
    return int(*number);
}

// Puts values and messages side by side and remembers whether a message was among them.
class RowMaker
{
public:
    // \a isRead tells whether the readers of the file take the record.
    RowMaker(int number, bool isRead)
        : m_isRead(isRead)
    {
        m_row.number = number;
        m_row.cells << QString::number(number);
    }

    void value(const QString &text) { m_row.cells << text; }
    void fault(const QString &text)
    {
        m_row.cells << text;
        m_row.isDamaged = true;
    }
    void checked(bool good, const QString &text, const QString &message)
    {
        good ? value(text) : fault(message);
    }
    // A record that is not read although each of its values would do, because it has too few or too
    // many of them, gets \a message in its last column.
    RecordRow row(std::string_view line, const QString &message)
    {
        if (!m_isRead && !m_row.isDamaged) {
            m_row.cells.removeLast();
            fault(message);
        }
        m_row.line = QByteArray(line.data(), qsizetype(line.size()));
        return std::move(m_row);
    }

private:
    RecordRow m_row;
    bool m_isRead;
};

// The name of a bettor who is on the list, else null.
const QString *bettorName(std::optional<double> number, const QHash<int, QString> &names)
{
    const auto whole = wholeNumber(number);
    const auto name = whole.value_or(0) != 0 ? names.constFind(*whole) : names.constEnd();
    return name == names.constEnd() ? nullptr : &*name;
}

void addBettor(RowMaker &row, std::optional<double> number, const QString &text,
               const QHash<int, QString> &names)
{
    const QString shown = number ? plainNumber(float(*number)) : text;
    row.value(shown);
    if (!number || *number == 0)
        return row.fault(nullBettor);
    const QString *name = bettorName(number, names);
    row.checked(name, name ? *name : QString(), badBettorNumber(shown));
}

bool isGoodAmount(float dollars)
{
    return dollars >= leastAmount && dollars <= mostAmount;
}

void addAmount(RowMaker &row, std::optional<double> amount)
{
    const float dollars = amount ? float(*amount) : 0;
    row.checked(amount && isGoodAmount(dollars), plainNumber(dollars), badAmount);
}

bool runs(const HorseTable &horses, int post)
{
    return post >= 1 && post <= postCount && !isUnused(horses.post(post));
}

// The program number of the horse on a line of a multibet, or nothing when none runs there. Posts
// of the race itself are offered on every line, so they pass on every line. Whose race's horses are
// not on file is shown as the post.
std::optional<QString> multibetHorse(const RecordLookup &lookup, const MultibetType &type,
                                     std::size_t line, int post)
{
    const std::size_t leg = type.races ? line : 0;
    for (const std::size_t race : {leg, std::size_t(0)}) {
        if (race < std::size_t(lookup.races) && runs(lookup.horses[race], post))
            return lookup.horses[race].post(post).number;
    }
    if (leg < std::size_t(lookup.races) && lookup.isHorsesMissing[leg] && post >= 1
        && post <= postCount)
        return "post "_L1 + QString::number(post);
    return {};
}

} // namespace

bool isGoodBet(std::string_view line, const RecordLookup &lookup)
{
    Bet bet;
    return parseBet(line, bet) && bettorName(double(bet.bettor), lookup.bettors)
           && runs(lookup.horses[0], wholeNumber(double(bet.post)).value_or(0))
           && !betTypeWord(bet.type).isNull() && isGoodAmount(bet.amount);
}

RecordRow betRow(int number, std::string_view line, RecordLookup &lookup)
{
    const Record record(line);
    Bet bet;
    const bool isRead = parseBet(line, bet);
    // What is read is what counts: single precision merges the largest numbers.
    const float values[] = {bet.bettor, bet.post, bet.type, bet.amount};
    const auto value = [&](std::size_t field) {
        return isRead ? std::optional(double(values[field])) : record.number(field);
    };
    RowMaker row(number, isRead);
    addBettor(row, value(0), record.text(0), lookup.bettors);
    const auto post = wholeNumber(value(1));
    const bool knownHorse = post && runs(lookup.horses[0], *post);
    row.value(knownHorse ? lookup.horses[0].post(*post).number : record.text(1));
    row.checked(knownHorse, knownHorse ? lookup.horses[0].post(*post).name : QString(), badHorse);
    const auto type = wholeNumber(value(2));
    const QString word = type ? betTypeWord(float(*type)) : QString();
    row.checked(!word.isNull(), u' ' + leftColumn(word, 5), u" Bad Bet Type - Not 1,2, or 3"_s);
    addAmount(row, value(3));
    return row.row(line, badAmount);
}

RecordRow multibetRow(int number, std::string_view line, RecordLookup &lookup)
{
    const Record record(line);
    Multibet bet;
    RowMaker row(number, parseMultibet(line, bet));
    addBettor(row, record.number(5), record.text(5), lookup.bettors);
    const MultibetType *type = multibetType(record.text(3));
    row.checked(type, type ? QString(u' ' + type->name) : QString(), u" Bad Bet Type"_s);
    QStringList horses; // posts as they stand where the type does not tell their races
    bool allRun = wholeNumber(record.number(2)).value_or(-1) >= 0; // the third post may be 0
    for (std::size_t i = 0; i < std::size_t(type ? type->lines : 3); ++i) {
        const auto post = wholeNumber(record.number(i));
        const auto horse = post && type ? multibetHorse(lookup, *type, i, *post) : std::nullopt;
        allRun = allRun && (type ? horse.has_value() : post && *post >= 0 && *post <= postCount);
        horses << horse.value_or(record.text(i));
    }
    row.checked(allRun, horses.join(u','), badHorse);
    addAmount(row, record.number(4));
    return row.row(line, badAmount);
}

// Bets under a number go to the first bettor who has it. A deleted slot's record is nobody.
RecordRow bettorRow(int number, std::string_view line, RecordLookup &lookup)
{
    const Record record(line);
    Bettor bettor;
    const bool isRead = parseBettor(line, bettor) && bettor.isBettor();
    const bool isFirst = isRead && !lookup.bettors.contains(bettor.number);
    if (isFirst)
        lookup.bettors.insert(bettor.number, bettor.name);
    const QString shown = isRead ? QString::number(bettor.number) : record.text(0);
    RowMaker row(number, isRead);
    row.checked(isFirst, shown,
                record.number(0).value_or(0) > 0 ? badBettorNumber(shown) : nullBettor);
    row.value(record.text(1));
    return row.row(line, badBettorNumber({}));
}

RecordRow horseRow(int number, std::string_view line, RecordLookup &lookup)
{
    const Record record(line);
    Horse horse;
    const bool isRead = parseHorse(line, horse);
    const bool isFirst = isRead && !std::exchange(lookup.isPostRead[std::size_t(horse.post)], true);
    RowMaker row(number, isRead);
    row.checked(isFirst, record.text(0), badHorse);
    row.value(record.text(3));
    row.value(record.text(2).trimmed());
    return row.row(line, badHorse);
}

RecordRow backupHorseRow(int number, std::string_view line, RecordLookup &lookup)
{
    RecordRow row = horseRow(number, line, lookup);
    row.cells = {row.cells[0], row.isDamaged ? badHorse : row.cells[3], row.cells[2]};
    return row;
}
