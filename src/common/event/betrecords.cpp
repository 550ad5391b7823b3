#include "common/event/betrecords.h"

#include "common/files/recordlines.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// What a number as this program writes it may have: few enough digits that both its digits and the
// power of ten are exact in single precision, so that their quotient is the number rounded once.
constexpr std::array<float, 8> powersOfTen{1, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F};
constexpr int exactDigits = 7;

// Takes digits with at most one point among them up to \a mark off the line; anything else is left
// to the full reader.
bool takePlainNumber(const char *&at, const char *end, char mark, float &value)
{
    int digits = 0;
    int decimals = 0;
    int number = 0;
    bool pastPoint = false;
    for (; at != end && *at != mark; ++at) {
        const auto digit = unsigned(*at - '0');
        if (digit <= 9) {
            number = number * 10 + int(digit);
            decimals += pastPoint ? 1 : 0;
            if (++digits > exactDigits)
                return false;
        } else if (*at == '.' && !pastPoint) {
            pastPoint = true;
        } else {
            return false;
        }
    }
    value = float(number);
    if (decimals > 0)
        value /= powersOfTen[std::size_t(decimals)];
    return digits > 0;
}

bool takeField(const char *&at, const char *end, float &value)
{
    if (!takePlainNumber(at, end, ',', value) || at == end)
        return false;
    ++at;
    return true;
}

bool parsePlainBet(std::string_view line, Bet &bet)
{
    const char *at = line.data();
    const char *end = at + line.size();
    return takeField(at, end, bet.bettor) && takeField(at, end, bet.post)
           && takeField(at, end, bet.type) && takePlainNumber(at, end, '\n', bet.amount);
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
