#include "multibets/multisummary.h"

#include "common/event/bettypes.h"
#include "common/print/format.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

QString summaryLine(const QString &label, double total)
{
    return leftColumn(label, 10) + formatMoney(total, "$#,#00.00");
}

} // namespace

QStringList multibetSummary(const MultibetTable &bets, const QString &banner,
                            const QString &raceName)
{
    QHash<QString, double> totals;
    for (const MultibetRow &row : bets.rows) {
        if (!row.damaged)
            totals[row.bet.type] += row.bet.amount;
    }
    QStringList lines{banner + u' ' + raceName + u" Bet Summary"_s, u" "_s};
    double totalBet = 0;
    for (const QString &code : {u"T"_s, u"EX"_s, u"Q"_s, u"P3"_s, u"DD"_s}) {
        lines.append(summaryLine(multibetType(code)->summaryLabel, totals.value(code)));
        totalBet += totals.value(code);
    }
    lines.append(u" "_s);
    lines.append(summaryLine(u"Total Bet "_s, totalBet));
    return lines;
}
