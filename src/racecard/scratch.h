#pragma once

#include "common/event/session.h"
#include "common/print/slip.h"

// What scratching a horse comes to. Posts are 1-based; file work throws FileError and sets the
// operation label.

// The post for the answer to "Enter post position to scratch".
struct ScratchAnswer
{
    int post = 0;       // 1 to 21, or 0
    bool valid = false; // false with post 0: the answer is not a post and must be told so
};
ScratchAnswer scratchAnswer(const QString &answer);

// Reads the bettors and the current race's bets and composes the list of refunds for the post.
Slip scratchRefunds(Session &session, int post, const QString &horseName);

// Takes the bets on the post among the first \a listed records out of the current race's bet files
// and reloads the bets: what another computer adds after the list of refunds was made stays.
void removeBetsOn(Session &session, int post, std::size_t listed);

// "Post 3 has bets of $12.00", or an empty text when the loaded pools hold no money on the post.
QString betsNote(const PoolTable &pools, int post);

// The multibets that name a post of the current race: its own, and the later legs of those that
// were made on the one or two races before. A missing file holds none.
struct MultibetCount
{
    int bets = 0;
    double stakes = 0; // dollars
};
MultibetCount multibetsOn(Session &session, int post);
