#include "common/files/recordlines.h"

#include <array>
#include <charconv>
#include <cmath>
#ifndef __cpp_lib_to_chars
#include <locale>
#include <sstream>
#endif

namespace {

constexpr std::string_view blanks = " \t";
constexpr char endOfFileMark = '\x1a';

std::string_view trimmed(std::string_view text)
{
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

#ifdef __cpp_lib_to_chars
std::optional<double> decimalNumber(std::string_view text)
{
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return {};
    return value;
}
#else
// Some standard libraries read floating numbers from streams alone.
std::optional<double> decimalNumber(std::string_view text)
{
    double value = 0;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    const bool isDecimal = text.find_first_not_of("0123456789.eE+-") == std::string_view::npos
                           && !text.starts_with('+');
    if (!isDecimal || !(stream >> value) || stream.peek() != std::istringstream::traits_type::eof())
        return {};
    return value;
}
#endif

} // namespace

bool nextRecordLine(std::string_view &rest, std::string_view &line)
{
    if (rest.starts_with("\xef\xbb\xbf"))
        rest.remove_prefix(3);
    if (rest.empty())
        return false;
    const size_t end = rest.find('\n');
    line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    // A carriage return too many is left by transfers that translate line ends twice.
    while (line.ends_with('\r') || line.ends_with(endOfFileMark))
        line.remove_suffix(1);
    while (line.starts_with('\r') || line.starts_with(endOfFileMark))
        line.remove_prefix(1);
    return true;
}

bool isBlankLine(std::string_view line)
{
    return line.find_first_not_of(blanks) == std::string_view::npos;
}

std::size_t countRecords(std::string_view bytes)
{
    std::size_t count = 0;
    forEachRecord(bytes, [&](std::string_view) { ++count; });
    return count;
}

std::string recordsWithout(std::string_view bytes, const std::set<std::size_t> &dropped)
{
    std::string kept;
    kept.reserve(bytes.size());
    std::size_t place = 0;
    forEachRecord(bytes, [&](std::string_view line) {
        if (!dropped.contains(place++))
            kept.append(line).append("\r\n");
    });
    return kept;
}

bool splitRecord(std::string_view line, std::vector<RecordField> &fields)
{
    fields.clear();
    for (;;) {
        const size_t start = line.find_first_not_of(blanks);
        line.remove_prefix(start == std::string_view::npos ? line.size() : start);
        if (line.starts_with('"')) {
            const size_t quote = line.find('"', 1);
            if (quote == std::string_view::npos)
                return false;
            fields.push_back({line.substr(1, quote - 1), true});
            line.remove_prefix(quote + 1);
            const size_t next = line.find_first_not_of(blanks);
            line.remove_prefix(next == std::string_view::npos ? line.size() : next);
            if (!line.empty() && line.front() != ',')
                return false;
        } else {
            const std::string_view text = trimmed(line.substr(0, line.find(',')));
            if (text.find('"') != std::string_view::npos)
                return false;
            fields.push_back({text, false});
            const size_t comma = line.find(',');
            line.remove_prefix(comma == std::string_view::npos ? line.size() : comma);
        }
        if (line.empty())
            return true;
        line.remove_prefix(1);
    }
}

std::optional<double> fieldNumber(const RecordField &field)
{
    std::string_view text = trimmed(field.text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    const std::optional<double> value = decimalNumber(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<int> fieldInteger(const RecordField &field, int lowest, int highest)
{
    const std::optional<double> value = fieldNumber(field);
    if (!value || *value != std::floor(*value) || *value < lowest || *value > highest)
        return {};
    return int(*value);
}

std::string recordNumber(float value)
{
    // std::to_chars knows no locale; printf would write a comma where the system's language does.
    std::array<char, 64> buffer;
    const auto text = [&](std::chars_format format, int precision) {
        const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                          double(value), format, precision);
        return std::string(buffer.data(), result.ptr);
    };
    std::string number = text(std::chars_format::general, 7);
    if (number.find('e') == std::string::npos)
        return number;
    number = text(std::chars_format::fixed, std::abs(value) < 1 ? 10 : 0);
    if (number.find('.') != std::string::npos) {
        number.erase(number.find_last_not_of('0') + 1);
        if (number.ends_with('.'))
            number.pop_back();
    }
    return number;
}
