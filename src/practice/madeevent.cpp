#include "practice/madeevent.h"

#include "common/event/bettors.h"
#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/event/init.h"
#include "common/event/multibetrecords.h"
#include "common/event/racefiles.h"
#include "common/event/twinfiles.h"
#include "practice/guests.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int racesMade = 3;
constexpr int betsMade = 100;
constexpr quint32 sameEveryTime = 20;

// The first two horses of each card are one entry.
const std::array<QStringList, racesMade> &cards()
{
    static const std::array<QStringList, racesMade> names{
        QStringList{u"HARBOUR LIGHT"_s, u"LIGHTHOUSE KEEPER"_s, u"PAPER BOAT"_s,
                    u"SALT AND PEPPER"_s, u"LOW TIDE"_s, u"OLD ROPE"_s, u"SUNDAY SAILOR"_s,
                    u"KIPPER"_s},
        QStringList{u"SECOND HELPING"_s, u"THIRD HELPING"_s, u"APPLE CRUMBLE"_s, u"HOT MUSTARD"_s,
                    u"BURNT TOAST"_s, u"LAST BISCUIT"_s, u"MARMALADE"_s},
        QStringList{u"MORNING POST"_s, u"EVENING POST"_s, u"CROSSWORD"_s, u"STOP PRESS"_s,
                    u"SMALL PRINT"_s, u"FRONT PAGE"_s, u"LATE EDITION"_s, u"INKWELL"_s,
                    u"HEADLINE"_s}};
    return names;
}

HorseTable cardOf(const QStringList &names)
{
    HorseTable card;
    for (int post = 1; post <= int(names.size()); ++post) {
        const QString number = post == 2 ? u"1A"_s : QString::number(std::max(1, post - 1));
        card.post(post) = {post, post <= 2 ? 1 : 0, number, names[post - 1]};
    }
    return card;
}

void addGuests(Session &session)
{
    changeTwins(
        session, RecordFile::Bettors, 0,
        [&](const QByteArray &onFile) {
            BettorTable bettors = BettorTable::parse(onFile, session.settings.bettorLimit);
            for (const QString &name : guestNames())
                addBettor(bettors, name);
            return std::optional(TwinRecords(bettors.records()));
        },
        u"Bettors input"_s, u"Bettors output"_s, u"Bettorsbackup output"_s);
}

// The multibets of the n-th race made, from 0; their races are this one and those after it.
std::vector<Multibet> multibetsOfRace(int n)
{
    switch (n) {
    case 0:
        return {{{3, 5, 0}, u"EX"_s, 2, 4},  {{5, 3, 0}, u"EX"_s, 2, 4},
                {{1, 4, 0}, u"EX"_s, 5, 17}, {{6, 1, 0}, u"EX"_s, 1, 29},
                {{3, 4, 0}, u"DD"_s, 5, 8},  {{1, 3, 0}, u"DD"_s, 2, 33},
                {{3, 4, 5}, u"P3"_s, 2, 12}, {{1, 1, 3}, u"P3"_s, 2, 21}};
    case 1:
        return {{{4, 3, 1}, u"T"_s, 1, 6},
                {{3, 4, 1}, u"T"_s, 1, 6},
                {{5, 1, 6}, u"T"_s, 2, 38},
                {{3, 4, 0}, u"Q"_s, 2, 15},
                {{1, 6, 0}, u"Q"_s, 4, 25}};
    default:
        return {{{7, 2, 0}, u"EX"_s, 2, 10}, {{3, 5, 0}, u"Q"_s, 2, 40}};
    }
}

// Returns how many bets there are now, of which \a share is the aim.
int letGuestsBet(Session &session, Guests &guests, int placed, int share)
{
    constexpr int mostOnASheet = 3;
    while (placed < share)
        placed += guests.playSheet(session, std::min(mostOnASheet, share - placed)).bets;
    return placed;
}

} // namespace

const QStringList &guestNames()
{
    static const QStringList names{
        u"ABBOTT-JOAN"_s,   u"ARCHER-TIM"_s,    u"BAILEY-RUTH"_s,  u"BARKER-SAM"_s,
        u"BROOKS-ELLEN"_s,  u"CARVER-PAUL"_s,   u"CHANDLER-MAY"_s, u"COOPER-DAN"_s,
        u"CROFT-LUCY"_s,    u"DALE-HENRY"_s,    u"DRAPER-NINA"_s,  u"DYER-OSCAR"_s,
        u"FARMER-JILL"_s,   u"FISHER-MARK"_s,   u"FLETCHER-AMY"_s, u"FORD-GEORGE"_s,
        u"GARDNER-EVE"_s,   u"GLOVER-NICK"_s,   u"GROVE-HELEN"_s,  u"HARPER-LEO"_s,
        u"HAYWARD-ROSE"_s,  u"HOOPER-BEN"_s,    u"HUNTER-CLARA"_s, u"KELLER-MAX"_s,
        u"KNIGHT-ALICE"_s,  u"LAKE-VICTOR"_s,   u"MARSH-IRIS"_s,   u"MASON-HUGH"_s,
        u"MILLER-TESSA"_s,  u"PAGE-ROBERT"_s,   u"PORTER-JANE"_s,  u"REEVE-COLIN"_s,
        u"SADLER-WENDY"_s,  u"SHEPHERD-IAN"_s,  u"SLATER-FAY"_s,   u"TANNER-JACK"_s,
        u"TURNER-SOPHIE"_s, u"WAINWRIGHT-AL"_s, u"WEAVER-DORA"_s,  u"WOODS-PETER"_s};
    return names;
}

void makeEventOfGuests(Session &session, int emptyRace, const Progress &progress)
{
    constexpr int steps = racesMade + 1;
    makeInitFolder(session);
    CreateEventFiles(session, [&](int done, int total) { progress(done, steps * total); });
    addGuests(session);
    session.bettors = readBettors(session);
    Guests guests(sameEveryTime);
    int placed = 0;
    for (int race = 0; race < racesMade; ++race) {
        session.settings.currentRace = emptyRace + 1 + race;
        saveHorses(session, cardOf(cards()[std::size_t(race)]));
        placed = letGuestsBet(session, guests, placed, betsMade * (race + 1) / racesMade);
        appendMultibets(session, multibetsOfRace(race));
        progress(race + 2, steps);
    }
    session.settings.currentRace = emptyRace;
    saveInit(session);
}
