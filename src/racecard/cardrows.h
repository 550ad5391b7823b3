#pragma once

#include "common/event/horses.h"

#include <QList>

#include <array>

// The race card as the operator types it: 21 rows of texts, row k - 1 for post k.

struct CardRow
{
    QString number;
    QString name;
    QString pool = QStringLiteral("0");

    bool operator==(const CardRow &) const = default;
};
using CardRows = std::array<CardRow, postCount>;

// The rows of a race's horses. A post whose stored name is "zzz" shows an empty row of pool 0.
CardRows rowsOf(const HorseTable &horses);

// The posts whose pool text is not exactly one digit.
QList<int> postsWithBadPool(const CardRows &rows);

// The horses that the rows hold, texts as a record can hold them. An empty pool text is pool 0.
HorseTable horsesOf(const CardRows &rows);

// The posts at which the rows differ.
QList<int> changedPosts(const CardRows &rows, const CardRows &saved);
