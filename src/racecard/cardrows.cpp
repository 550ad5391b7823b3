#include "racecard/cardrows.h"

#include "common/files/recordfile.h"

using namespace Qt::StringLiterals;

namespace {

CardRow &at(CardRows &rows, int post)
{
    return rows[std::size_t(post - 1)];
}

const CardRow &at(const CardRows &rows, int post)
{
    return rows[std::size_t(post - 1)];
}

} // namespace

CardRows rowsOf(const HorseTable &horses)
{
    CardRows rows;
    for (const Horse &horse : horses) {
        if (horse.name.trimmed() != "zzz"_L1)
            at(rows, horse.post) = {horse.number, horse.name, QString::number(horse.pool)};
    }
    return rows;
}

QList<int> postsWithBadPool(const CardRows &rows)
{
    QList<int> posts;
    for (int post = 1; post <= postCount; ++post) {
        const QString &pool = at(rows, post).pool;
        if (pool.size() != 1 || pool.front() < u'0' || pool.front() > u'9')
            posts.append(post);
    }
    return posts;
}

HorseTable horsesOf(const CardRows &rows)
{
    HorseTable horses;
    for (int post = 1; post <= postCount; ++post) {
        const CardRow &row = at(rows, post);
        horses.post(post) = {post, row.pool.toInt(), storableText(row.number.trimmed()),
                             storableText(row.name)};
    }
    return horses;
}

QList<int> changedPosts(const CardRows &rows, const CardRows &saved)
{
    QList<int> posts;
    for (int post = 1; post <= postCount; ++post) {
        if (at(rows, post) != at(saved, post))
            posts.append(post);
    }
    return posts;
}
