#pragma once

#include <QByteArray>

#include <optional>

// The end of a record file that does not end with a line end: a power failure or a pulled drive may
// have cut its last record, and 10 dollars cut to 1 look as good as before.

// A line that ends so is damaged, whatever stands before it: the quote opens a text that never
// ends, or closes one that has more behind it.
inline constexpr char tornMark[] = ",\"torn\r\n";

enum class EndFate {
    Whole,     // no record is in question
    Taken,     // the last record stands as it is: there is no twin, or it ends the same way
    Completed, // the twin has the record whole
    Torn,      // nobody knows the record: it counts as damaged
};

struct FileEnd
{
    EndFate fate = EndFate::Whole;
    QByteArray missing; // what belongs behind the last byte, so that every line is ended

    bool isWhole() const { return fate == EndFate::Whole; }
};

// Weighs the end of a record file against its twin. What a torn record misses makes it one that no
// reader takes for good, now or after the next append.
FileEnd fileEnd(const QByteArray &bytes, const std::optional<QByteArray> &twin);
