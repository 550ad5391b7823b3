#include "reports/eventreports.h"

#include "common/event/bettypes.h"
#include "common/event/eventrecords.h"
#include "common/print/format.h"
#include "common/print/till.h"
#include "reports/betlistings.h"
#include "reports/cashreport.h"

#include <algorithm>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

using Kind = ReportColumn::Kind;

// A row with what it is sorted by.
struct SortableRow
{
    QString name;      // as a search compares it
    double number = 0; // of bettor or post
    int race = 0;
    QStringList cells;
};

// Names of bettors with their sort keys; an evening's bets are many more than its bettors.
class SortNames
{
public:
    struct Name
    {
        QString name;
        QString key;
    };

    explicit SortNames(const BettorTable &bettors)
        : m_names(bettors)
    {
    }

    const Name &of(float number)
    {
        const auto [entry, isNew] = m_found.try_emplace(number);
        if (isNew) {
            entry->second.name = m_names.listed(number);
            entry->second.key = searchKey(entry->second.name);
        }
        return entry->second;
    }

private:
    BettorNames m_names;
    std::unordered_map<float, Name> m_found;
};

QList<ReportRow> sortedRows(std::vector<SortableRow> rows, const ReportRequest &request)
{
    const auto precedes = [&](const SortableRow &a, const SortableRow &b) {
        if (request.byName && a.name != b.name)
            return a.name < b.name;
        // Posts belong to their race; bettors have one number for the whole event.
        if (request.kind == ReportKind::Horses && a.race != b.race)
            return a.race < b.race;
        return a.number < b.number;
    };
    std::ranges::stable_sort(rows, [&](const SortableRow &a, const SortableRow &b) {
        return request.descending ? precedes(b, a) : precedes(a, b);
    });
    QList<ReportRow> sorted;
    sorted.reserve(qsizetype(rows.size()));
    for (SortableRow &row : rows)
        sorted.append({std::move(row.cells)});
    return sorted;
}

void remarkDamaged(Report &report, qsizetype damaged, const QString &file)
{
    if (damaged == 0)
        return;
    report.remarks.append(counted(std::size_t(damaged), u"damaged line"_s) + " of "_L1 + file
                          + (damaged == 1 ? " is not listed."_L1 : " are not listed."_L1));
}

Report titledReport(const Session &session, const ReportRequest &request, const QString &word)
{
    Report report;
    const QString races = request.race == 0 ? u" All Races"_s : raceName(request.race);
    report.name = word + races;
    report.titles = {session.settings.banner, word.toUpper() + races};
    return report;
}

Report horsesReport(Session &session, const ReportRequest &request)
{
    Report report = titledReport(session, request, u"Horses"_s);
    report.columns = {{u"Race"_s, Kind::Number},
                      {u"Post"_s, Kind::Number},
                      {u"No."_s, Kind::Text},
                      {u"Horse"_s, Kind::Text},
                      {u"Pool"_s, Kind::Number}};
    std::vector<SortableRow> rows;
    QStringList damaged;
    for (int race = 1; race <= raceCount; ++race) {
        if (request.race != 0 && request.race != race)
            continue;
        const HorseFile card = readHorses(session, race);
        if (const QString damage = card.damage(); !damage.isEmpty())
            damaged += raceName(race).trimmed() + ": "_L1 + damage;
        for (const Horse &horse : card.horses) {
            if (isUnused(horse))
                continue;
            rows.push_back({searchKey(horse.name),
                            double(horse.post),
                            race,
                            {QString::number(race), QString::number(horse.post), horse.number,
                             horse.name, QString::number(horse.pool)}});
        }
    }
    report.rows = sortedRows(std::move(rows), request);
    report.remarks.append("Horses: "_L1 + QString::number(report.rows.size()) + u'.');
    report.remarks += damaged;
    return report;
}

// What one bettor bet.
struct Betting
{
    int bets = 0;
    double straight = 0; // dollars
    double multi = 0;
};

void remarkDamagedBets(Report &report, const std::vector<RaceRecords> &races)
{
    qsizetype bets = 0;
    qsizetype multibets = 0;
    for (const RaceRecords &race : races) {
        bets += qsizetype(race.bets.damagedRows());
        multibets += std::ranges::count_if(race.multibets.rows, &MultibetRow::damaged);
    }
    if (report.name.startsWith("Multibets"_L1))
        return remarkDamaged(report, multibets, u"Multibets"_s);
    remarkDamaged(report, bets, u"Bets"_s);
    if (report.name.startsWith("Bettors"_L1))
        remarkDamaged(report, multibets, u"Multibets"_s);
}

Report bettorsReport(Session &session, const ReportRequest &request)
{
    Report report = titledReport(session, request, u"Bettors"_s);
    report.columns = {{u"No."_s, Kind::Number},      {u"Bettor"_s, Kind::Text},
                      {u"Bets"_s, Kind::Number},     {u"Win/place/show"_s, Kind::Money},
                      {u"Multibets"_s, Kind::Money}, {u"Total"_s, Kind::Money}};
    const BettorTable bettors = readBettors(session);
    const std::vector<RaceRecords> races = readRaces(session, request.race);
    std::unordered_map<float, Betting> byNumber;
    for (const RaceRecords &race : races) {
        for (const BetRow &row : race.bets.rows) {
            if (row.damaged)
                continue;
            Betting &betting = byNumber[row.bet.bettor];
            ++betting.bets;
            betting.straight += double(row.bet.amount);
        }
        for (const MultibetRow &row : race.multibets.rows) {
            if (row.damaged)
                continue;
            Betting &betting = byNumber[float(row.bet.bettor)];
            ++betting.bets;
            betting.multi += row.bet.amount;
        }
    }
    std::vector<SortableRow> rows;
    const auto addRow = [&](float number, const QString &name, const Betting &betting) {
        rows.push_back({searchKey(name),
                        double(number),
                        0,
                        {plainNumber(number), name, QString::number(betting.bets),
                         formatMoney(betting.straight), formatMoney(betting.multi),
                         formatMoney(betting.straight + betting.multi)}});
    };
    Betting all;
    for (const auto &[number, betting] : byNumber) {
        all.bets += betting.bets;
        all.straight += betting.straight;
        all.multi += betting.multi;
    }
    for (int slot = 1; slot <= bettors.slotCount(); ++slot) {
        const Bettor &bettor = bettors.slot(slot);
        if (!bettor.isBettor())
            continue;
        const auto found = byNumber.find(float(bettor.number));
        addRow(float(bettor.number), bettor.name,
               found == byNumber.end() ? Betting() : found->second);
        if (found != byNumber.end())
            byNumber.erase(found);
    }
    // What is left was bet under numbers that no bettor carries.
    for (const auto &[number, betting] : byNumber)
        addRow(number, badBettorNumber(plainNumber(number)), betting);
    report.rows = sortedRows(std::move(rows), request);
    report.rows.append({{{},
                         u"TOTAL"_s,
                         QString::number(all.bets),
                         formatMoney(all.straight),
                         formatMoney(all.multi),
                         formatMoney(all.straight + all.multi)},
                        true});
    remarkDamaged(report, bettors.damagedLines().size(), u"Bettors"_s);
    remarkDamagedBets(report, races);
    return report;
}

Report betsReport(Session &session, const ReportRequest &request)
{
    Report report = titledReport(session, request, u"Bets"_s);
    report.columns = {{u"Race"_s, Kind::Number}, {u"Bettor No."_s, Kind::Number},
                      {u"Bettor"_s, Kind::Text}, {u"No."_s, Kind::Text},
                      {u"Horse"_s, Kind::Text},  {u"Type"_s, Kind::Text},
                      {u"Amount"_s, Kind::Money}};
    SortNames names(readBettors(session));
    const std::vector<RaceRecords> races = readRaces(session, request.race);
    std::vector<SortableRow> rows;
    double total = 0;
    for (const RaceRecords &race : races) {
        for (const BetRow &row : race.bets.rows) {
            if (row.damaged)
                continue;
            const Bet &bet = row.bet;
            const Horse horse = horseOfBet(race.horses, bet);
            const SortNames::Name &name = names.of(bet.bettor);
            total += double(bet.amount);
            rows.push_back(
                {name.key,
                 double(bet.bettor),
                 race.race,
                 {QString::number(race.race), plainNumber(bet.bettor), name.name, horse.number,
                  horse.name, listedBetType(bet.type), formatMoney(bet.amount)}});
        }
    }
    report.rows = sortedRows(std::move(rows), request);
    report.rows.append({{{}, {}, u"TOTAL"_s, {}, {}, {}, formatMoney(total)}, true});
    report.remarks.append("Bets: "_L1 + QString::number(report.rows.size() - 1) + u'.');
    remarkDamagedBets(report, races);
    return report;
}

QString postsText(const Multibet &bet)
{
    QStringList posts;
    for (const int post : bet.posts) {
        if (post != 0)
            posts.append(QString::number(post));
    }
    return posts.join(u'-');
}

Report multibetsReport(Session &session, const ReportRequest &request)
{
    Report report = titledReport(session, request, u"Multibets"_s);
    report.columns = {{u"Race"_s, Kind::Number}, {u"Bettor No."_s, Kind::Number},
                      {u"Bettor"_s, Kind::Text}, {u"Type"_s, Kind::Text},
                      {u"Posts"_s, Kind::Text},  {u"Amount"_s, Kind::Money}};
    SortNames names(readBettors(session));
    const std::vector<RaceRecords> races = readRaces(session, request.race);
    std::vector<SortableRow> rows;
    double total = 0;
    for (const RaceRecords &race : races) {
        for (const MultibetRow &row : race.multibets.rows) {
            if (row.damaged)
                continue;
            const Multibet &bet = row.bet;
            const MultibetType *type = multibetType(bet.type);
            const SortNames::Name &name = names.of(float(bet.bettor));
            total += bet.amount;
            rows.push_back(
                {name.key,
                 double(bet.bettor),
                 race.race,
                 {QString::number(race.race), QString::number(bet.bettor), name.name,
                  type ? type->name : bet.type, postsText(bet), formatMoney(bet.amount)}});
        }
    }
    report.rows = sortedRows(std::move(rows), request);
    report.rows.append({{{}, {}, u"TOTAL"_s, {}, {}, formatMoney(total)}, true});
    report.remarks.append("Multibets: "_L1 + QString::number(report.rows.size() - 1) + u'.');
    remarkDamagedBets(report, races);
    return report;
}

// By race, what it was settled with last.
QMap<int, double> settledPercents(const CashJournal &journal)
{
    QMap<int, double> percents;
    for (int race = 1; race <= raceCount; ++race) {
        if (const CashEntry *settlement = lastSettlement(journal, race))
            percents.insert(race, settlement->settled->housePercent);
    }
    return percents;
}

} // namespace

Report makeReport(Session &session, const ReportRequest &request)
{
    switch (request.kind) {
    case ReportKind::Horses:
        return horsesReport(session, request);
    case ReportKind::Bettors:
        return bettorsReport(session, request);
    case ReportKind::Bets:
        return betsReport(session, request);
    case ReportKind::Multibets:
        return multibetsReport(session, request);
    case ReportKind::Cash:
        break;
    }
    const CashJournal journal = readCashJournal(session);
    const std::vector<RaceRecords> races = readRaces(session, 0);
    const BettorTable bettors = readBettors(session);
    const HousePercents percents =
        request.housePercent
            ? HousePercents::all(*request.housePercent)
            : HousePercents::asPaid(settledPercents(journal), session.multibetHousePercent);
    return cashReport(session.settings.banner, countCash(races, bettors, percents), journal,
                      raceTills(races, bettors, journal));
}
