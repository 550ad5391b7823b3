#include "common/event/bettors.h"

#include "common/files/recordfile.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

// One more is still a number.
constexpr int largestBettorNumber = std::numeric_limits<int>::max() - 1;

QByteArray record(const Bettor &bettor)
{
    return QByteArray::number(bettor.number) + ',' + quotedField(bettor.name) + recordEnd;
}

QString withoutAccents(const QString &name)
{
    constexpr char16_t firstBeyondAscii = 0x80;
    if (std::ranges::all_of(name, [](QChar letter) { return letter < firstBeyondAscii; }))
        return name;
    QString plain;
    for (const QChar character : name.normalized(QString::NormalizationForm_D)) {
        if (character.category() != QChar::Mark_NonSpacing)
            plain += character;
    }
    return plain;
}

} // namespace

QString anyBettorName()
{
    return u"AnyBettor"_s;
}

QString searchKey(const QString &name)
{
    return withoutAccents(name).toUpper();
}

bool parseBettor(std::string_view line, Bettor &bettor)
{
    std::vector<RecordField> fields;
    if (!splitRecord(line, fields) || fields.size() != 2)
        return false;
    const auto number = fieldInteger(fields[0], 1, largestBettorNumber);
    if (!number)
        return false;
    bettor = {*number, fieldText(fields[1])};
    return true;
}

BettorTable::BettorTable(int limit)
    : m_slots(limit)
{
}

BettorTable BettorTable::parse(const QByteArray &bytes, int limit)
{
    BettorTable table(limit);
    int slot = 0;
    forEachRecord(view(bytes), [&](std::string_view line) {
        Bettor bettor;
        if (!parseBettor(line, bettor)) {
            table.m_damaged.append(QByteArray(line.data(), qsizetype(line.size())));
            return;
        }
        if (++slot > table.slotCount())
            table.m_slots.append(Bettor{});
        table.setSlot(slot, bettor);
        table.nextNumber = bettor.number + 1;
    });
    return table;
}

int BettorTable::slotOf(const QString &name) const
{
    const auto found = std::ranges::find_if(
        m_slots, [&](const Bettor &bettor) { return bettor.isBettor() && bettor.name == name; });
    return found == m_slots.end() ? 0 : int(found - m_slots.begin()) + 1;
}

QString BettorTable::nameOf(int number) const
{
    const auto found = std::ranges::find_if(m_slots, [&](const Bettor &bettor) {
        return bettor.isBettor() && bettor.number == number;
    });
    return found == m_slots.end() ? QString() : found->name;
}

int BettorTable::numberOf(const QString &name) const
{
    const int slot = slotOf(name);
    return slot == 0 ? 0 : this->slot(slot).number;
}

int BettorTable::highestNumber() const
{
    int highest = 0;
    for (const Bettor &bettor : m_slots) {
        if (bettor.isBettor())
            highest = std::max(highest, bettor.number);
    }
    return highest;
}

QList<Bettor> BettorTable::sortedBettors() const
{
    QList<std::pair<QString, Bettor>> keyed;
    for (const Bettor &bettor : m_slots) {
        if (bettor.isBettor())
            keyed.append({withoutAccents(bettor.name), bettor});
    }
    std::ranges::stable_sort(keyed, {}, &std::pair<QString, Bettor>::first);
    QList<Bettor> sorted;
    sorted.reserve(keyed.size());
    for (const auto &[key, bettor] : keyed)
        sorted.append(bettor);
    return sorted;
}

QStringList BettorTable::sortedNames() const
{
    QStringList names;
    for (const Bettor &bettor : sortedBettors())
        names.append(bettor.name);
    return names;
}

QByteArray BettorTable::records() const
{
    QByteArray bytes;
    for (const Bettor &bettor : m_slots) {
        if (bettor.isBettor())
            bytes += record(bettor);
    }
    for (const QByteArray &line : m_damaged)
        bytes += line + recordEnd;
    return bytes;
}

QByteArray BettorTable::backupRecords() const
{
    QByteArray bytes;
    for (const Bettor &bettor : m_slots) {
        if (bettor.isEmpty())
            break;
        if (bettor.isBettor())
            bytes += record(bettor);
    }
    for (const QByteArray &line : m_damaged)
        bytes += line + recordEnd;
    return bytes;
}

QByteArray newBettorRecords()
{
    return record({anyBettorNumber, anyBettorName()});
}

int addBettor(BettorTable &bettors, const QString &name)
{
    const int number = bettors.nextNumber++;
    bettors.setSlot(number, {number, name});
    return number;
}

QString badBettorNumber(const QString &number)
{
    return number + u" Bad Bettor Number"_s;
}

BettorNames::BettorNames(const BettorTable &bettors)
{
    m_names.reserve(bettors.slotCount());
    for (int slot = 1; slot <= bettors.slotCount(); ++slot) {
        const Bettor &bettor = bettors.slot(slot);
        if (bettor.isBettor() && !m_names.contains(bettor.number))
            m_names.insert(bettor.number, bettor.name.isNull() ? u""_s : bettor.name);
    }
}

QString BettorNames::nameOf(int number) const
{
    return m_names.value(number);
}

QString BettorNames::nameOf(float number) const
{
    const bool whole = number == std::floor(number) && std::abs(number) < 1e6F;
    return whole ? nameOf(int(number)) : QString();
}

QString BettorNames::listed(int number) const
{
    const QString name = nameOf(number);
    return name.isNull() ? badBettorNumber(QString::number(number)) : name;
}

QString BettorNames::listed(float number) const
{
    const QString name = nameOf(number);
    return name.isNull() ? badBettorNumber(QString::fromStdString(recordNumber(number))) : name;
}
