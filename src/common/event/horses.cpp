#include "common/event/horses.h"

#include "common/files/recordfile.h"

using namespace Qt::StringLiterals;

bool isUnused(const Horse &horse)
{
    const QString name = horse.name.trimmed();
    return name.isEmpty() || name == "zzz"_L1;
}

HorseTable::HorseTable()
{
    for (int k = 1; k <= postCount; ++k)
        post(k).post = k;
}

int HorseTable::couplingOf(int post) const
{
    const Horse &horse = this->post(post);
    return isUnused(horse) ? 0 : horse.pool;
}

bool HorseTable::runTogether(int post, int other) const
{
    return post == other || (couplingOf(post) != 0 && couplingOf(post) == couplingOf(other));
}

QByteArray horseRecords(const HorseTable &horses)
{
    QByteArray bytes;
    for (const Horse &horse : horses) {
        bytes += QByteArray::number(horse.post) + ',' + QByteArray::number(horse.pool) + ','
                 + quotedField(horse.number.leftJustified(2)) + ',' + quotedField(horse.name)
                 + recordEnd;
    }
    return bytes;
}

HorseFile parseHorses(const QByteArray &bytes)
{
    HorseFile file;
    std::string_view rest = view(bytes);
    std::string_view line;
    std::vector<RecordField> fields;
    while (nextRecordLine(rest, line)) {
        if (isBlankLine(line))
            continue;
        const bool whole = splitRecord(line, fields) && fields.size() == 4;
        const auto post = whole ? fieldInteger(fields[0], 1, postCount) : std::nullopt;
        // Screens allow 0 to 9; a downloaded card couples "10" and "10A" as pool 10.
        const auto pool = whole ? fieldInteger(fields[1], 0, 99) : std::nullopt;
        if (!post || !pool) {
            ++file.damagedLines;
            continue;
        }
        file.horses.post(*post) = {*post, *pool, fieldText(fields[2]).trimmed(),
                                   fieldText(fields[3])};
    }
    return file;
}
