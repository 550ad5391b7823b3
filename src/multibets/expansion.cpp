#include "multibets/expansion.h"

#include "common/print/format.h"

#include <algorithm>
#include <set>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using LineOrder = std::array<int, 3>; // lines 0 to 2
using Posts = std::array<int, 3>;

// The orders in which the lines are crossed, the unboxed one first.
std::vector<LineOrder> lineOrders(const std::array<bool, 3> &boxed, bool twoLines)
{
    LineOrder order{0, 1, 2};
    if (twoLines)
        return boxed[0] && boxed[1] ? std::vector{order, LineOrder{1, 0, 2}} : std::vector{order};
    if (boxed[0] && boxed[1] && boxed[2]) {
        std::vector<LineOrder> orders;
        do {
            orders.push_back(order);
        } while (std::ranges::next_permutation(order).found);
        return orders;
    }
    std::vector orders{order};
    for (std::size_t a = 0; a < 3; ++a) {
        for (std::size_t b = a + 1; b < 3; ++b) {
            if (!boxed[a] || !boxed[b])
                continue;
            LineOrder exchanged = order;
            std::swap(exchanged[a], exchanged[b]);
            orders.push_back(exchanged);
        }
    }
    return orders;
}

// Every post of the first line of the order with every one of the second, and of the third.
std::vector<Posts> crossed(const MultibetEntry &entry, const LineOrder &order, bool twoLines)
{
    static const QList<int> noThird{0};
    const auto line = [&](std::size_t place) { return entry.posts[std::size_t(order[place])]; };
    std::vector<Posts> all;
    for (const int first : line(0)) {
        for (const int second : line(1)) {
            for (const int third : twoLines ? noThird : line(2))
                all.push_back({first, second, third});
        }
    }
    return all;
}

QString postsText(const Posts &posts)
{
    QString text = QString::number(posts[0]) + u',' + QString::number(posts[1]);
    if (posts[2] != 0)
        text += u',' + QString::number(posts[2]);
    return text;
}

} // namespace

bool hasSingleBox(const MultibetEntry &entry)
{
    return std::ranges::count(entry.boxed, true) == 1;
}

MultibetPreview expandEntry(const MultibetEntry &entry)
{
    const bool twoLines = entry.posts[2].isEmpty();
    const QString prefix = entry.type + u' ' + formatMoney(entry.stake) + u' ';
    MultibetPreview preview;
    std::set<Posts> listed;
    for (const LineOrder &order : lineOrders(entry.boxed, twoLines)) {
        for (const Posts &posts : crossed(entry, order, twoLines)) {
            if (!listed.insert(posts).second)
                continue;
            preview.pending.append({posts, entry.type, entry.stake, entry.bettor});
            if (preview.pending.size() == pendingLimit) {
                preview.full = true;
                return preview;
            }
            preview.lines.append(prefix + postsText(posts));
            preview.total += entry.stake;
        }
    }
    return preview;
}
