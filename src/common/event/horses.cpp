#include "common/event/horses.h"

#include "common/files/recordfile.h"

#include <utility>

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

QStringList cardChanges(const HorseTable &before, const HorseTable &after)
{
    QStringList changes;
    for (int post = 1; post <= postCount; ++post) {
        const Horse &old = before.post(post);
        const Horse &now = after.post(post);
        if (old == now || (isUnused(old) && isUnused(now)))
            continue;
        const QString line = "Post "_L1 + QString::number(post) + ": "_L1;
        if (isUnused(now))
            changes += line + old.name + " runs no longer"_L1;
        else if (isUnused(old))
            changes += line + now.number + u' ' + now.name + " is new"_L1;
        else if (old.name == now.name && old.number == now.number)
            changes += line + now.name + " has pool number "_L1 + QString::number(now.pool);
        else
            changes +=
                line + old.number + u' ' + old.name + " is now "_L1 + now.number + u' ' + now.name;
    }
    return changes;
}

bool parseHorse(std::string_view line, Horse &horse)
{
    std::vector<RecordField> fields;
    if (!splitRecord(line, fields) || fields.size() != 4)
        return false;
    const auto post = fieldInteger(fields[0], 1, postCount);
    // Screens allow 0 to 9; a downloaded card couples "10" and "10A" as pool 10.
    const auto pool = fieldInteger(fields[1], 0, 99);
    if (!post || !pool)
        return false;
    horse = {*post, *pool, fieldText(fields[2]).trimmed(), fieldText(fields[3])};
    return true;
}

HorseFile parseHorses(const QByteArray &bytes)
{
    HorseFile file;
    std::array<bool, postCount + 1> isRead{};
    forEachRecord(view(bytes), [&](std::string_view line) {
        Horse horse;
        if (!parseHorse(line, horse) || std::exchange(isRead[std::size_t(horse.post)], true)) {
            ++file.damagedLines;
            return;
        }
        ++file.records;
        file.horses.post(horse.post) = horse;
    });
    return file;
}

QString HorseFile::damage() const
{
    QStringList faults;
    if (records < postCount)
        faults += "only "_L1 + QString::number(records) + " of 21 posts"_L1;
    if (damagedLines > 0)
        faults += QString::number(damagedLines)
                  + (damagedLines == 1 ? " damaged line"_L1 : " damaged lines"_L1);
    return faults.isEmpty() ? QString() : "The horse file has "_L1 + faults.join(", "_L1) + u'.';
}
