#pragma once

#include "board/boardpicture.h"

#include <map>
#include <vector>

// The win odds of the last minutes, as long as the board stands. What it is told is a steady time
// in milliseconds: no clock that can be set.
class OddsHistory
{
public:
    static constexpr qint64 span = 3 * 60 * 1000;

    // Says of each row of the picture whether its odds are higher or lower than they were when the
    // span began, or when they were first seen within it, and remembers them.
    void mark(BoardPicture &picture, qint64 now);

private:
    struct Seen
    {
        qint64 time;
        double odds; // to one
    };
    using Times = std::vector<Seen>; // when the odds became these, in order

    std::map<std::tuple<QString, int, int>, Times> m_seen; // by event, race and post
};
