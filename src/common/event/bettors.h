#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <string_view>

inline constexpr int anyBettorNumber = 1;
QString anyBettorName(); // "AnyBettor"

// One slot of the bettor table.
struct Bettor
{
    int number = 0; // 0: the slot is empty
    QString name;

    // A deleted slot has number 999 and no name; bettor 999 with a name is a bettor.
    bool isDeleted() const { return number == 999 && name.isEmpty(); }
    bool isEmpty() const { return number == 0; }
    bool isBettor() const { return !isEmpty() && !isDeleted(); }
};

// Reads one record line; false when it holds no bettor.
bool parseBettor(std::string_view line, Bettor &bettor);

// The name as a search compares it: upper case, without accents.
QString searchKey(const QString &name);

// The one list of bettors of the event. Slots are 1-based and in file order.
class BettorTable
{
public:
    // An empty table of \a limit slots.
    explicit BettorTable(int limit = 0);

    // Reads a Bettors file; the table grows to what the file holds. Lines that hold no bettor are
    // kept for the next rewrite and counted.
    static BettorTable parse(const QByteArray &bytes, int limit);

    int slotCount() const { return int(m_slots.size()); }
    const Bettor &slot(int slot) const { return m_slots[slot - 1]; }
    void setSlot(int slot, const Bettor &bettor) { m_slots[slot - 1] = bettor; }

    // The first slot with this name, exactly, or 0.
    int slotOf(const QString &name) const;

    // The name for a bettor number, or a null string when no bettor carries it.
    QString nameOf(int number) const;

    // The number of the first bettor with this name, or 0.
    int numberOf(const QString &name) const;

    // The highest bettor number, 0 when there is none.
    int highestNumber() const;

    // The number that the next new bettor gets: that of the last record read, plus 1.
    int nextNumber = 1;

    QList<QByteArray> damagedLines() const { return m_damaged; }

    // The bettors, or their names, in plain order of the names with accents stripped.
    QList<Bettor> sortedBettors() const;
    QStringList sortedNames() const;

    // The records of Bettors: every bettor in slot order, then the damaged lines.
    QByteArray records() const;

    // The records of Bettorsbackup: as above, but the scan stops at the first empty slot.
    QByteArray backupRecords() const;

private:
    QList<Bettor> m_slots;
    QList<QByteArray> m_damaged;
};

// Stores a new bettor under the next number, in the slot of that number; the place must be free.
// Returns the number.
int addBettor(BettorTable &bettors, const QString &name);

// What stands for the name of a number that no bettor carries: "12 Bad Bettor Number".
QString badBettorNumber(const QString &number);

// Looks up names by the bettor number of bet records; the first bettor with a number has it.
class BettorNames
{
public:
    explicit BettorNames(const BettorTable &bettors);

    // The name, or a null string when no bettor carries the number.
    QString nameOf(int number) const;
    QString nameOf(float number) const;

    // The name, or "12 Bad Bettor Number" when no bettor carries the number.
    QString listed(int number) const;
    QString listed(float number) const;

private:
    QHash<int, QString> m_names;
};

// The records of a new Bettors file: AnyBettor alone.
QByteArray newBettorRecords();
