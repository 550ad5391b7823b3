#include "practice/guests.h"

#include "common/event/cashanswers.h"
#include "common/event/eventrecords.h"
#include "common/event/placement.h"
#include "practice/madeevent.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

std::vector<int> guestsOn(const BettorTable &bettors)
{
    std::vector<int> numbers;
    for (const QString &name : guestNames()) {
        if (const int number = bettors.numberOf(name))
            numbers.push_back(number);
    }
    return numbers;
}

std::vector<int> runners(const HorseTable &horses)
{
    std::vector<int> posts;
    for (const Horse &horse : horses) {
        if (!isUnused(horse))
            posts.push_back(horse.post);
    }
    return posts;
}

} // namespace

GuestSheet Guests::playSheet(Session &session, int most)
{
    if (!session.isPractice())
        return {GuestTurn::OutsidePractice};
    const int race = session.settings.currentRace;
    if (lastSettlement(lookIntoCashJournal(session), race))
        return {GuestTurn::Settled};
    const std::vector<int> posts = runners(readHorsesIfThere(session, race).horses);
    if (posts.empty())
        return {GuestTurn::NoHorses};
    session.bettors = readBettors(session);
    const std::vector<int> guests = guestsOn(session.bettors);
    if (guests.empty())
        return {GuestTurn::NoGuests};

    // Most like to win, and some horses are favourites.
    constexpr std::array types{BetType::Win, BetType::Win, BetType::Place, BetType::Show};
    constexpr std::array dollars{2, 2, 3, 5, 5, 10, 20};
    const int guest = guests[std::size_t(below(guests.size()))];
    BetEntries entries;
    for (int bets = 1 + below(std::size_t(most)); bets > 0; --bets) {
        const int place = std::min(below(posts.size()), below(posts.size()));
        const BetType type = types[std::size_t(below(types.size()))];
        entries.add(posts[std::size_t(place)], type,
                    float(dollars[std::size_t(below(dollars.size()))]));
    }
    const Placement placement =
        placeBets(session, planPlacement(entries, guest, 0, session.settings.betLimit));
    if (placement.raceIsFull)
        return {GuestTurn::RaceFull};
    return {GuestTurn::Bet, int(placement.rows.size())};
}

QString guestsNote(GuestTurn turn)
{
    switch (turn) {
    case GuestTurn::Bet:
        break;
    case GuestTurn::OutsidePractice:
        return u"Guests bet in practice alone."_s;
    case GuestTurn::NoHorses:
        return u"The guests wait for the horses of this race."_s;
    case GuestTurn::NoGuests:
        return u"None of the guests is on the list of bettors."_s;
    case GuestTurn::Settled:
        return u"This race is settled: the guests wait for another one."_s;
    case GuestTurn::RaceFull:
        return u"This race takes no more bets."_s;
    }
    return {};
}
