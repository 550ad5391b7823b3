#include "racecard/scratch.h"

#include "betting/refundlist.h"
#include "common/eventfiles.h"
#include "common/format.h"
#include "common/racefiles.h"
#include "common/recordfile.h"

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

std::function<bool(const BetRow &)> isOn(int post)
{
    return [post](const BetRow &row) { return !row.damaged && row.bet.post == float(post); };
}

// The legs, as record fields, that a multibet of this type runs \a racesLater races after the race
// it was made on: doubles and pick threes have one leg a race, the others have all in their race.
std::pair<std::size_t, std::size_t> legsIn(std::string_view type, int racesLater)
{
    const auto later = std::size_t(racesLater);
    if (type == "DD")
        return {later, std::min<std::size_t>(later + 1, 2)};
    if (type == "P3")
        return {later, later + 1};
    return {0, racesLater == 0 ? 3 : 0};
}

void countMultibets(const QByteArray &bytes, int racesLater, int post, MultibetCount &count)
{
    std::string_view rest = view(bytes);
    std::string_view line;
    std::vector<RecordField> fields;
    while (nextRecordLine(rest, line)) {
        if (!splitRecord(line, fields) || fields.size() != 6)
            continue;
        const auto [first, end] = legsIn(fields[3].text, racesLater);
        bool named = false;
        for (std::size_t leg = first; leg < end; ++leg)
            named = named || fieldInteger(fields[leg], post, post);
        if (named) {
            ++count.bets;
            count.stakes += fieldNumber(fields[4]).value_or(0);
        }
    }
}

} // namespace

ScratchAnswer scratchAnswer(const QString &answer)
{
    const double value = numericValue(answer);
    if (value == 0)
        return {0, true};
    if (value < 1 || value > postCount || value != std::floor(value))
        return {0, false};
    return {int(value), true};
}

Slip scratchRefunds(Session &session, int post, const QString &horseName)
{
    loadBettors(session, u"Bettors input"_s);
    LoadRaceBets(session);
    RefundList list;
    list.titles = {"REFUND BETS ON "_L1 + horseName};
    list.heading = bettorRefundHeading();
    list.refunds = bettorRefunds(totalsByBettor(session.bets, isOn(post)), session.bettors);
    return refundSlip(list);
}

void removeBetsOn(Session &session, int post, std::size_t listed)
{
    removeBets(session, [&](const BetRow &row) {
        return isOn(post)(row) && std::size_t(&row - session.bets.rows.data()) < listed;
    });
}

QString betsNote(const PoolTable &pools, int post)
{
    const float amount = pools.amount(post, totalColumn);
    if (amount == 0)
        return {};
    return "Post "_L1 + QString::number(post) + " has bets of "_L1
           + formatMoney(amount, "$#,##0.00");
}

MultibetCount multibetsOn(Session &session, int post)
{
    MultibetCount count;
    session.settings.operationLabel = u"Multibets Input"_s;
    const int race = session.settings.currentRace;
    for (int racesLater = 0; racesLater < 3 && racesLater < race; ++racesLater) {
        const QString path = mainFile(session, RecordFile::Multibets, race - racesLater);
        if (QFileInfo::exists(path))
            countMultibets(readRecordFile(path), racesLater, post, count);
    }
    return count;
}
