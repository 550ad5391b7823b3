#include "common/event/betrecords.h"

#include "common/files/recordlines.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

// A bare number followed by a comma or the end of the line, as this program writes them; anything
// else is left to the full reader.
bool takePlainNumber(const char *&at, const char *end, float &value)
{
    const auto [next, error] = std::from_chars(at, end, value);
    if (error != std::errc() || !std::isfinite(value))
        return false;
    if (next != end && *next != ',')
        return false;
    at = next == end ? end : next + 1;
    return true;
}

bool parsePlainBet(std::string_view line, Bet &bet)
{
    const char *at = line.data();
    const char *end = at + line.size();
    return std::count(at, end, ',') == 3 && takePlainNumber(at, end, bet.bettor)
           && takePlainNumber(at, end, bet.post) && takePlainNumber(at, end, bet.type)
           && takePlainNumber(at, end, bet.amount) && line.back() != ',';
}

} // namespace

std::size_t BetTable::damagedRows() const
{
    return std::size_t(std::ranges::count_if(rows, &BetRow::damaged));
}

bool parseBet(std::string_view line, Bet &bet)
{
    if (parsePlainBet(line, bet))
        return true;
    std::vector<RecordField> fields;
    if (!splitRecord(line, fields) || fields.size() != 4)
        return false;
    float *values[] = {&bet.bettor, &bet.post, &bet.type, &bet.amount};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto number = fieldNumber(fields[i]);
        if (!number || !std::isfinite(float(*number)))
            return false;
        *values[i] = float(*number);
    }
    return true;
}

BetTable parseBets(std::string bytes)
{
    BetTable table;
    table.bytes = std::move(bytes);
    table.rows.reserve(table.bytes.size() / 8);
    forEachRecord(table.bytes, [&](std::string_view line) {
        BetRow row;
        row.start = std::size_t(line.data() - table.bytes.data());
        row.length = line.size();
        row.damaged = !parseBet(line, row.bet);
        if (row.damaged)
            row.bet = {};
        table.rows.push_back(row);
    });
    return table;
}

std::string betLine(const Bet &bet)
{
    return recordNumber(bet.bettor) + ',' + recordNumber(bet.post) + ',' + recordNumber(bet.type)
           + ',' + recordNumber(bet.amount) + "\r\n";
}
