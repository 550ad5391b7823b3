#pragma once

#include "common/event/session.h"

#include <QRandomGenerator>

// Made-up guests who bet in practice.

enum class GuestTurn {
    Bet,             // a sheet was placed
    OutsidePractice, // nobody made up ever bets in a real event
    NoHorses,
    NoGuests, // none of them is on the list of bettors
    Settled,  // the race has been run
    RaceFull, // its bet limit leaves no room
};

// What came of a guest's turn.
struct GuestSheet
{
    GuestTurn turn = GuestTurn::Bet;
    int bets = 0; // that were placed
};

class Guests
{
public:
    // Guests of one \a seed bet the same at every event alike.
    explicit Guests(quint32 seed)
        : m_random(seed)
    {
    }

    // The next guest brings a sheet of one to \a most bets on the session's current race. It is
    // placed as every sheet is; the session's list of bettors is read anew. Throws FileError.
    GuestSheet playSheet(Session &session, int most = 3);

private:
    int below(std::size_t end) { return m_random.bounded(int(end)); }

    QRandomGenerator m_random;
};

// Why no guest bets now, in words; empty after a bet.
QString guestsNote(GuestTurn turn);
