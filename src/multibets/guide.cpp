#include "multibets/guide.h"

#include "common/event/bettypes.h"
#include "common/event/horses.h"
#include "common/event/session.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

// The first line that the type needs and that is empty, counted from 0; -1 when none is.
int emptyLine(const MultibetType &type, const MultibetEntry &entry)
{
    for (int line = 0; line < type.lines; ++line) {
        if (entry.posts[std::size_t(line)].isEmpty())
            return line;
    }
    return -1;
}

QString chooseHorse(const MultibetType &type, int line, int race)
{
    const QString onLine = " on line "_L1 + QString::number(line + 1);
    if (type.races)
        return "Choose the winner of"_L1 + raceName(race + line) + onLine;
    constexpr const char *places[] = {"first", "second", "third"};
    return "Choose a "_L1 + QLatin1StringView(places[line]) + " horse"_L1 + onLine;
}

} // namespace

QString postText(const Horse &horse, const QString &place)
{
    QString text = "Post "_L1 + QString::number(horse.post) + place + ": "_L1;
    if (isUnused(horse))
        return text += "no horse"_L1;
    return text += "number "_L1 + horse.number.trimmed() + u' ' + horse.name;
}

QString chosenText(const EntryProgress &progress)
{
    const MultibetType *type = multibetType(progress.entry.type);
    QString text = type ? type->name : QString();
    if (progress.race != 0)
        text += " in"_L1 + raceName(progress.race);
    if (progress.entry.bettor != 0)
        text += " for "_L1 + progress.bettorName;
    return text.trimmed();
}

QString nextStep(const EntryProgress &progress)
{
    const MultibetEntry &entry = progress.entry;
    const MultibetType *type = multibetType(entry.type);
    if (progress.race == 0)
        return u"Choose a race"_s;
    if (!type)
        return u"Choose a bet type"_s;
    const bool lacksLaterRace = type->races && progress.race + type->lines - 1 > raceCount;
    if (lacksLaterRace)
        return u"Choose another bet type: there are not enough races left"_s;
    if (const int line = emptyLine(*type, entry); line >= 0)
        return chooseHorse(*type, line, progress.race);
    if (hasSingleBox(entry))
        return u"Box another line, or none"_s;
    if (entry.bettor == 0)
        return u"Choose a bettor"_s;
    if (entry.stake == 0)
        return u"Click the amount of a single bet"_s;
    if (progress.stage == EntryProgress::Stage::Saved)
        return u"Saved. Mark the next bet or choose the next bettor"_s;
    return progress.stage == EntryProgress::Stage::Previewed
               ? u"Collect the money and make the bet"_s
               : u"Preview the bet"_s;
}

QString costText(const EntryProgress &progress)
{
    const MultibetEntry &entry = progress.entry;
    const MultibetType *type = multibetType(entry.type);
    if (!type || emptyLine(*type, entry) >= 0 || hasSingleBox(entry))
        return {};
    const MultibetPreview preview = expandEntry(entry);
    QString text = preview.full ? u"More than "_s : QString();
    text += counted(std::size_t(preview.lines.size()), u"combination"_s);
    if (entry.stake != 0)
        text += " at "_L1 + formatMoney(entry.stake) + ": "_L1 + formatMoney(preview.total);
    return text;
}
