#include "racecard/postboard.h"

#include "common/files/recordfile.h"
#include "common/print/format.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// A field of the published text.
struct CardField
{
    QString text;
    bool endsEntry = false; // the line ends behind it, and lines do not break within an entry
};

bool isEnd(const QString &field)
{
    return field.trimmed() == "END"_L1;
}

bool isLeftOut(const QString &post)
{
    const QString word = post.trimmed();
    return word == "AE"_L1 || word == "MTO"_L1;
}

QString withoutLeftBlanks(QString text)
{
    while (text.startsWith(u' '))
        text.remove(0, 1);
    return text;
}

QList<QStringList> linesOf(const QByteArray &file, int &damagedLines)
{
    QList<QStringList> lines;
    const qsizetype first = file.indexOf('"');
    const qsizetype last = file.lastIndexOf('"');
    if (last <= first)
        return lines;
    const auto entries = view(file).substr(size_t(first + 1), size_t(last - first - 1));
    std::vector<RecordField> fields;
    forEachRecord(entries, [&](std::string_view line) {
        if (!splitRecord(line, fields)) {
            ++damagedLines;
            return;
        }
        lines.append(QStringList());
        for (const RecordField &field : fields)
            lines.last().append(fieldText(field));
    });
    return lines;
}

// Where most lines are one entry each, every line is: one that holds less was damaged. Otherwise
// lines break anywhere.
bool holdsEntryPerLine(const QList<QStringList> &lines)
{
    qsizetype entries = 0;
    qsizetype others = 0;
    for (const QStringList &line : lines) {
        if (line.size() == 3)
            ++entries;
        else if (line.size() != 1 || !isEnd(line.first()))
            ++others;
    }
    return entries > 0 && entries >= others;
}

// A publisher may put a heading before the first entry. A first field that could be a post is a
// heading all the same when there is one field too many with it.
bool beginsWithHeading(const QList<QStringList> &lines, bool entryPerLine)
{
    const QString &first = lines.first().first();
    if (isEnd(first))
        return false;
    if (!isNumeric(first) && !isLeftOut(first))
        return true;
    if (entryPerLine)
        return lines.first().size() % 3 == 1;
    qsizetype fieldsOfFirstRace = 0;
    for (const QStringList &line : lines) {
        const auto end = std::ranges::find_if(line, isEnd);
        fieldsOfFirstRace += end - line.begin();
        if (end != line.end())
            break;
    }
    return fieldsOfFirstRace % 3 == 1;
}

QList<CardField> fieldsOf(const QList<QStringList> &lines)
{
    QList<CardField> card;
    if (lines.isEmpty())
        return card;
    const bool entryPerLine = holdsEntryPerLine(lines);
    for (const QStringList &line : lines) {
        for (const QString &field : line)
            card.append({field, false});
        card.last().endsEntry = entryPerLine;
    }
    if (beginsWithHeading(lines, entryPerLine))
        card.removeFirst();
    return card;
}

// The leading digits of a horse number and the one letter behind them: "1A" is 1 and A.
struct ProgramNumber
{
    int digits = 0;
    QChar letter;
    bool simple = false; // digits and at most one letter
};

ProgramNumber programNumber(const QString &number)
{
    qsizetype length = 0;
    while (length < number.size() && number[length].isDigit())
        ++length;
    const qsizetype letters = number.size() - length;
    const bool simple =
        length > 0 && length < 4 && (letters == 0 || (letters == 1 && number[length].isLetter()));
    return {number.left(length).toInt(), letters > 0 ? number[length].toUpper() : QChar(), simple};
}

// The pool of a horse whose number ends in A: the number before the letter.
int poolOfNumber(const QString &number)
{
    if (!number.endsWith(u'A'))
        return 0;
    return int(numericValue(number.left(number.size() == 3 ? 2 : 1)));
}

// The main horse "1", and a "1B", run with the "1A".
void coupleEntries(HorseTable &race)
{
    for (const Horse &entry : HorseTable(race)) {
        const ProgramNumber key = programNumber(entry.number);
        if (entry.pool == 0 || !key.simple)
            continue;
        for (int post = 1; post <= postCount; ++post) {
            Horse &horse = race.post(post);
            const ProgramNumber other = programNumber(horse.number);
            if (!isUnused(horse) && other.simple && other.digits == key.digits)
                horse.pool = entry.pool;
        }
    }
}

void takeEntry(PublishedCard &card, HorseTable &race, const QString &postText,
               const QString &number, const QString &name)
{
    const double post = numericValue(postText);
    if (post < 1 || (post <= postCount && post != std::floor(post))) {
        card.refused.append(u"Invalid post position - download error"_s);
        return;
    }
    if (post > postCount) {
        card.refused.append(u"Invalid post position-download error"_s);
        return;
    }
    race.post(int(post)) = {int(post), poolOfNumber(number), number, name};
    if (!isUnused(race.post(int(post))))
        ++card.entries;
}

} // namespace

QByteArray postboardRecord(const QByteArray &text)
{
    return '"' + text + '"' + recordEnd;
}

PublishedCard parsePostboard(const QByteArray &file)
{
    PublishedCard card;
    for (HorseTable &race : card.races) {
        for (int post = 1; post <= postCount; ++post)
            race.post(post).name = u"zzz"_s;
    }
    const QList<CardField> fields = fieldsOf(linesOf(file, card.damaged));
    std::size_t race = 0;
    QStringList entry;
    for (const CardField &field : fields) {
        if (isEnd(field.text) && entry.size() < 2) {
            card.damaged += int(entry.size());
            entry.clear();
            card.openRace = 0;
            ++card.closedRaces;
            if (++race == raceCount)
                break;
            continue;
        }
        card.openRace = int(race) + 1;
        entry.append(field.text);
        if (entry.size() == 3) {
            if (!isLeftOut(entry[0]))
                takeEntry(card, card.races[race], entry[0], withoutLeftBlanks(entry[1]), entry[2]);
            entry.clear();
        } else if (field.endsEntry) {
            ++card.damaged;
            entry.clear();
        }
    }
    if (!entry.isEmpty())
        ++card.damaged;
    for (HorseTable &horses : card.races)
        coupleEntries(horses);
    return card;
}
