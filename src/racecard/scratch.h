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

// A scratch before it is carried out.
struct Scratch
{
    int post = 0;
    Slip refunds;           // the list of what every bettor gets back
    std::size_t listed = 0; // records of the bet file when the list was made
};

// Reads the bettors, which the session holds then, and the current race's bets and composes the
// list of refunds for the post.
Scratch prepareScratch(Session &session, int post, const QString &horseName);

// Takes the bets that the list of refunds names out of the current race's bet files: what another
// computer added after the list was made stays.
void removeScratchedBets(Session &session, const Scratch &scratch);

// The horse has left the current race's card: the cash journal names it, so that every computer's
// odds board can say so.
void recordScratch(Session &session, int post, const QString &number, const QString &name);

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
