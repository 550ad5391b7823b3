#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// The quoted, comma-separated line that every record file is made of. This header needs the
// standard library alone, so that settling a race costs no more than reading its bytes.

// One field of a record line. Blanks round the field are not part of it.
struct RecordField
{
    std::string_view text; // without its quotes
    bool quoted = false;
};

// Takes the next line off \a rest into \a line, without its end (LF or CR LF), a byte order mark or
// an end-of-file mark 0x1A. Returns false at the end of the file.
bool nextRecordLine(std::string_view &rest, std::string_view &line);

// True for a line that holds nothing but blanks; such a line is no record.
bool isBlankLine(std::string_view line);

// Calls \a use with each record of a file, in order; the line stays a view into \a bytes.
template<typename Use>
void forEachRecord(std::string_view bytes, Use &&use)
{
    std::string_view line;
    while (nextRecordLine(bytes, line)) {
        if (!isBlankLine(line))
            use(line);
    }
}

// The number of records in a file.
std::size_t countRecords(std::string_view bytes);

// The file again, record by record as it stands, without those at the places in \a dropped, from 0.
std::string recordsWithout(std::string_view bytes, const std::set<std::size_t> &dropped);

// Splits a line into its fields. Returns false when the line is damaged: an open quote, or text
// beside a quoted field.
bool splitRecord(std::string_view line, std::vector<RecordField> &fields);

// The number a field holds, quoted or bare ("12", 0.25, .25), or nothing when it holds no number.
std::optional<double> fieldNumber(const RecordField &field);

// The number as a whole number within \a lowest to \a highest, or nothing.
std::optional<int> fieldInteger(const RecordField &field, int lowest, int highest);

// A single-precision number as records hold it: at most 7 significant digits, always a point, a
// leading zero (0.25), never an exponent.
std::string recordNumber(float value);
