#include "multibets/legs.h"

#include "common/event/eventrecords.h"
#include "common/files/fileerror.h"

using namespace Qt::StringLiterals;

namespace {

void addPosts(std::set<int> &posts, const HorseTable &horses)
{
    for (const Horse &horse : horses) {
        if (!isUnused(horse))
            posts.insert(horse.post);
    }
}

// The horses of a later leg. A card that cannot be read is a note: the other legs do not need it.
HorseTable laterHorses(Session &session, int race, QStringList &notes)
{
    try {
        const HorseFile file = readHorses(session, race);
        if (!file.damage().isEmpty())
            notes += raceName(race).trimmed() + ": "_L1 + file.damage();
        return file.horses;
    } catch (const FileError &error) {
        notes += "The horses of"_L1 + raceName(race) + " cannot be read: "_L1 + error.description();
        return {};
    }
}

} // namespace

MultibetLegs loadLegs(Session &session, const MultibetType *type)
{
    const HorseFile card = readHorses(session, session.settings.currentRace);
    const HorseTable &horses = card.horses;
    QStringList notes{card.damage()};
    const int lines = type ? type->lines : 2;
    const int firstRace = session.settings.currentRace;
    MultibetLegs legs;
    for (std::size_t line = 0; line < legs.labels.size(); ++line)
        legs.labels[line] = "Line "_L1 + QString::number(line + 1);
    for (int line = 0; line < lines; ++line) {
        const auto at = std::size_t(line);
        const int race = type && type->races ? firstRace + line : firstRace;
        addPosts(legs.posts[at], horses);
        if (race == firstRace) {
            legs.horses[at] = horses;
        } else if (race <= raceCount) {
            legs.horses[at] = laterHorses(session, race, notes);
            addPosts(legs.posts[at], legs.horses[at]);
        }
        legs.races[at] = race <= raceCount ? race : 0;
        if (type && type->races && legs.races[at] != 0)
            legs.labels[at] += raceName(race);
    }
    const int lastRace = type && type->races ? firstRace + lines - 1 : firstRace;
    if (lastRace > raceCount) {
        notes += raceName(firstRace).trimmed() + " has no "_L1
                 + (firstRace == raceCount ? "next race"_L1 : "second race after it"_L1)
                 + ": this bet's last leg cannot be run"_L1;
    }
    notes.removeAll(QString());
    legs.note = notes.join(u' ');
    return legs;
}
