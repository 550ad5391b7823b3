#include "transfer/addedtable.h"

#include "common/event/settings.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

} // namespace

AddedBetsTable addedBetsTable(const QList<AddedBets> &races)
{
    AddedBetsTable table;
    if (races.isEmpty())
        return table;
    AddedBets all;
    QStringList imported;
    QStringList full;
    table.rows = {{u"Bets added"_s},
                  {u"Dollars added"_s},
                  {u"No horse"_s},
                  {u"Bets now"_s},
                  {u"Dollars now"_s}};
    const auto addColumn = [&table](const QString &heading, const AddedBets &sums) {
        table.columns << heading;
        table.rows[0] << QString::number(sums.bets);
        table.rows[1] << formatMoney(sums.dollars);
        table.rows[2] << QString::number(sums.withoutHorse);
        table.rows[3] << QString::number(sums.betsNow);
        table.rows[4] << formatMoney(sums.dollarsNow);
    };
    for (const AddedBets &race : races) {
        addColumn("Race "_L1 + QString::number(race.race), race);
        all.bets += race.bets;
        all.dollars += race.dollars;
        all.withoutHorse += race.withoutHorse;
        all.betsNow += race.betsNow;
        all.dollarsNow += race.dollarsNow;
        all.unknownBettors += race.unknownBettors;
        if (race.looksImported)
            imported << raceName(race.race).trimmed();
        if (race.overLimit)
            full << raceName(race.race).trimmed();
    }
    addColumn(u"All"_s, all);
    QStringList notes;
    if (!imported.isEmpty())
        notes << imported.join(", "_L1) + " looks imported before: every bet added was on file"_L1;
    if (all.unknownBettors > 0)
        notes << "Bets added of bettor numbers that are not in the list of bettors: "_L1
                     + QString::number(all.unknownBettors);
    if (!full.isEmpty())
        notes << full.join(", "_L1) + " holds more bets now than the bet limit"_L1;
    table.note = notes.join(u'\n');
    return table;
}
