#include "transfer/addedtable.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

QString dollars(float amount)
{
    return formatMoney(amount, "$#,##0.00");
}

} // namespace

AddedBetsTable addedBetsTable(const QList<AddedBets> &races)
{
    AddedBetsTable table;
    if (races.isEmpty())
        return table;
    AddedBets all;
    QStringList imported;
    table.rows = {{u"Bets added"_s},
                  {u"Dollars added"_s},
                  {u"No horse"_s},
                  {u"Bets now"_s},
                  {u"Dollars now"_s}};
    const auto addColumn = [&table](const QString &heading, const AddedBets &sums) {
        table.columns << heading;
        table.rows[0] << QString::number(sums.bets);
        table.rows[1] << dollars(sums.dollars);
        table.rows[2] << QString::number(sums.withoutHorse);
        table.rows[3] << QString::number(sums.betsNow);
        table.rows[4] << dollars(sums.dollarsNow);
    };
    for (const AddedBets &race : races) {
        addColumn("Race "_L1 + QString::number(race.race), race);
        all.bets += race.bets;
        all.dollars += race.dollars;
        all.withoutHorse += race.withoutHorse;
        all.betsNow += race.betsNow;
        all.dollarsNow += race.dollarsNow;
        if (race.looksImported)
            imported << "Race"_L1 + QString::number(race.race);
    }
    addColumn(u"All"_s, all);
    if (!imported.isEmpty())
        table.note =
            imported.join(", "_L1) + " looks imported before: every bet added was on file"_L1;
    return table;
}
