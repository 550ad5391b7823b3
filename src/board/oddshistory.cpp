#include "board/oddshistory.h"

namespace {

// 2.5 for "5/2".
double oddsToOne(const QString &odds)
{
    const qsizetype slash = odds.indexOf(u'/');
    return odds.first(slash).toDouble() / odds.sliced(slash + 1).toDouble();
}

} // namespace

void OddsHistory::mark(BoardPicture &picture, qint64 now)
{
    for (BoardRow &row : picture.rows) {
        Times &times = m_seen[{picture.folder, picture.race, row.post}];
        row.move = OddsMove::None;
        if (row.odds.isEmpty()) {
            times.clear(); // its bets went back
            continue;
        }
        const double odds = oddsToOne(row.odds);
        if (times.empty() || times.back().odds != odds)
            times.push_back({now, odds});
        // The first one is what was in force when the span began.
        while (times.size() > 1 && times[1].time <= now - span)
            times.erase(times.begin());
        if (odds != times.front().odds)
            row.move = odds > times.front().odds ? OddsMove::Rising : OddsMove::Falling;
    }
}
