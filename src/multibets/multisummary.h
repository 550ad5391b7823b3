#pragma once

#include "common/event/multibetrecords.h"

#include <QStringList>

// The lines of the summary: the heading, then the total of each bet type and of all of them.
QStringList multibetSummary(const MultibetTable &bets, const QString &banner,
                            const QString &raceName);
