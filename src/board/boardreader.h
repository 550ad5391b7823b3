#pragma once

#include "board/boardpicture.h"
#include "common/event/eventfiles.h"
#include "common/event/knownjournals.h"

#include <optional>

// What a board is to show.
struct BoardWish
{
    enum class Shows {
        Followed, // the race that is worked on
        OneRace,
        Settled, // the settled races in turn; the followed one as long as none is settled
    };
    HostPaths paths = HostPaths();
    QString eventDirectory = {}; // backslash form
    QString banner = {};
    QString computer = {}; // this computer's name in the event
    Shows shows = Shows::Followed;
    int race = 1; // the one to stay on, or the one chosen on this computer
    int turn = 0; // of the settled races: goes up by one each time

    bool operator==(const BoardWish &) const = default;
};

// Reads the files of an event for a board. It takes no lock and writes nothing, not even what
// others mend in passing: it looks, and only what changed is read. Nothing is thrown: what cannot
// be read now keeps the last picture of its race, with a note.
class BoardReader
{
public:
    // The picture, when it is another than that of the last look.
    std::optional<BoardPicture> look(const BoardWish &wish);

    // The files and the folder to watch after the look.
    QStringList watched() const { return m_watched; }

private:
    void begin(const BoardWish &wish);
    int raceFor(const BoardWish &wish);
    bool hasChanged();
    BoardPicture read();
    BoardPicture waiting();
    QByteArray bytesOf(RecordFile file);
    void rememberCard(const HorseTable &horses);
    QList<Horse> scratchedFrom(const HorseTable &horses);
    std::map<int, HorseTable> cards(const HorseTable &horses);

    Session m_session; // the paths and the event directory alone
    BoardWish m_wish;
    QString m_folder; // this computer's path
    KnownJournals m_journals;
    int m_race = 0;
    QStringList m_watched;
    QString m_state;      // of the files when they were read
    int m_looksAgain = 0; // at files that changed a moment ago
    bool m_isTorn = false;
    std::optional<BoardPicture> m_shown;

    // What is known of a race.
    struct Known
    {
        std::optional<BoardPicture> picture; // the last one that was whole
        HorseTable card;
        QList<Horse> gone; // horses that left it
    };
    std::map<int, Known> m_races;
};
