#include "reports/tillreport.h"

#include "common/print/cashtexts.h"
#include "common/print/format.h"

#include <QTime>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using Kind = ReportColumn::Kind;

QString tillDollars(ExactMoney money)
{
    return formatMoney(dollarsOf(money));
}

QString tillDollars(const std::optional<ExactMoney> &money)
{
    return money ? tillDollars(*money) : QString();
}

QString plain(const std::optional<ExactMoney> &money)
{
    return money ? QString::number(dollarsOf(*money), 'f', 2) : QString();
}

ReportTable tillTable(const std::vector<Till> &tills)
{
    std::vector<Till> columns = tills;
    if (tills.size() != 1)
        columns.push_back(allTills(tills));
    ReportTable table{u"TILLS"_s, {{u"Till"_s, Kind::Text}}, {}};
    for (const Till &till : columns)
        table.columns.append({till.computer, Kind::Money});
    const auto addRow = [&](const QString &name, const auto &amountOf, bool isTotal = false) {
        ReportRow row{{name}, isTotal};
        for (const Till &till : columns)
            row.cells += tillDollars(amountOf(till));
        table.rows.append(row);
    };
    addRow(u"Float at the start"_s, [](const Till &till) { return till.floated; });
    addRow(u"Bets taken"_s, [](const Till &till) { return till.bets; });
    addRow(u"Multibets taken"_s, [](const Till &till) { return till.multibets; });
    addRow(u"Refunds"_s, [](const Till &till) { return -till.refunds; });
    addRow(u"Paid to winners"_s, [](const Till &till) { return -till.paid; });
    addRow(u"Paid on multibets"_s, [](const Till &till) { return -till.multibetsPaid; });
    addRow(
        u"Expected in the till"_s, [](const Till &till) { return till.expected(); }, true);
    addRow(u"Counted"_s, [](const Till &till) { return till.counted; });
    addRow(u"Difference"_s, [](const Till &till) { return till.difference(); });
    addRow(
        u"Kept by rounding"_s, [](const Till &till) { return till.rounding; }, true);
    return table;
}

ReportTable raceTable(const std::vector<RaceTill> &races)
{
    ReportTable table{u"RACES"_s,
                      {{u"Race"_s, Kind::Text},
                       {u"Settled"_s, Kind::Text},
                       {u"Pools"_s, Kind::Money},
                       {u"House"_s, Kind::Text},
                       {u"Cut"_s, Kind::Money},
                       {u"Owed"_s, Kind::Money},
                       {u"Paid"_s, Kind::Money},
                       {u"Unpaid"_s, Kind::Money},
                       {u"Multibets"_s, Kind::Money},
                       {u"Paid on them"_s, Kind::Money}},
                      {}};
    for (const RaceTill &race : races) {
        if (race.pools == 0 && race.multibets == 0 && race.paid == 0 && race.multibetsPaid == 0)
            continue;
        ExactMoney unpaid = 0;
        for (const Unpaid &winner : race.unpaid)
            unpaid += winner.dollars;
        const bool isSettled = !race.settledAt.isEmpty();
        table.rows.append(
            {{u"Race "_s + QString::number(race.race), isSettled ? race.settledAt : u"no"_s,
              tillDollars(race.pools),
              isSettled ? QString::number(race.housePercent) + u" %"_s : QString(),
              tillDollars(race.houseCut), tillDollars(race.owed), tillDollars(race.paid),
              tillDollars(unpaid), tillDollars(race.multibets), tillDollars(race.multibetsPaid)}});
    }
    return table;
}

ReportTable unpaidTable(const std::vector<RaceTill> &races)
{
    ReportTable table{
        u"STILL TO BE PAID"_s,
        {{u"Race"_s, Kind::Text}, {u"Winner"_s, Kind::Text}, {u"Unpaid"_s, Kind::Money}},
        {}};
    for (const RaceTill &race : races) {
        for (const Unpaid &winner : race.unpaid)
            table.rows.append({{u"Race "_s + QString::number(race.race), winner.name,
                                tillDollars(winner.dollars)}});
    }
    return table;
}

} // namespace

QString tillState(const std::vector<Till> &tills)
{
    QStringList closed;
    for (const Till &till : tills) {
        if (!till.closedAt.isEmpty())
            closed += till.computer + u" closed at "_s + till.closedAt;
    }
    if (closed.isEmpty() || closed.size() < qsizetype(tills.size()))
        closed.prepend(u"so far at "_s + QTime::currentTime().toString(u"hh:mm"_s));
    return closed.join(u", "_s);
}

QList<ReportTable> tillTables(const std::vector<Till> &tills, const std::vector<RaceTill> &races)
{
    QList<ReportTable> tables;
    for (const ReportTable &table : {tillTable(tills), raceTable(races), unpaidTable(races)}) {
        if (!table.rows.isEmpty())
            tables.append(table);
    }
    return tables;
}

QStringList tillRemarks(const CashJournal &journal, const std::vector<Till> &tills,
                        const std::vector<RaceTill> &races)
{
    constexpr qsizetype most = 40;
    QStringList remarks;
    qsizetype unworded = 0;
    for (const Till &till : tills) {
        if (!till.closedAt.isEmpty() && till.movedSinceClose > 0)
            remarks += till.computer + u" was closed at "_s + till.closedAt
                       + u", but money moved there after that."_s;
    }
    if (const QString note = journalNote(journal); !note.isEmpty())
        remarks += note + u'.';
    if (journal.lines.empty())
        remarks += u"No cash journal was kept in this event directory."_s;
    else
        for (const RaceTill &race : races) {
            remarks += race.disagreements;
            unworded += race.moreDisagreements;
        }
    if (const qsizetype more = remarks.size() - most + unworded; remarks.size() > most)
        remarks =
            remarks.first(most) + QStringList{u"And "_s + QString::number(more) + u" more."_s};
    if (!remarks.isEmpty())
        remarks.prepend(u"To be looked into:"_s);
    return remarks;
}

TillEntries tillEntries(const CashJournal &journal, const QString &computer)
{
    const auto typed = [&](CashKind kind) {
        const CashEntry *entry = lastOf(journal, computer, kind);
        return entry ? plain(entry->dollars) : QString();
    };
    return {typed(CashKind::Float), typed(CashKind::Counted)};
}

QString enterTill(Session &session, const TillEntries &typed, bool close)
{
    const CashJournal journal = readCashJournal(session);
    const QString computer = computerName(session);
    const TillEntries before = tillEntries(journal, computer);
    std::vector<CashEntry> entries;
    const std::tuple<CashKind, QString, QString, QString> fields[] = {
        {CashKind::Float, u"float"_s, typed.floated.trimmed(), before.floated},
        {CashKind::Counted, u"counted money"_s, typed.counted.trimmed(), before.counted}};
    for (const auto &[kind, name, text, known] : fields) {
        if (text.isEmpty())
            continue;
        if (!isNumeric(text) || numericAmount(text) < 0)
            return u"The "_s + name + u" is no sum of money: "_s + text;
        const ExactMoney money = exactMoney(numericAmount(text));
        if (plain(money) != known)
            entries.push_back({kind, 0, 0, {}, money});
    }
    if (close && typed.counted.trimmed().isEmpty())
        return u"Count the till and type the sum before it is closed."_s;
    recordCash(session, entries);
    if (close) {
        const std::vector<Till> tills = tillsOf(readCashJournal(session));
        const auto own = std::ranges::find(tills, computer, &Till::computer);
        recordCash(
            session,
            {{CashKind::Closed, 0, 0, {}, own == tills.end() ? ExactMoney(0) : own->expected()}});
    }
    return {};
}

QString tillText(const CashJournal &journal, const QString &computer)
{
    const std::vector<Till> tills = tillsOf(journal);
    const auto own = std::ranges::find(tills, computer, &Till::computer);
    const Till till = own == tills.end() ? Till() : *own;
    QString text = u"Expected "_s + tillDollars(till.expected());
    if (const auto difference = till.difference()) {
        text += *difference == 0 ? u", and it is there"_s
                                 : u", "_s + tillDollars(qAbs(*difference))
                                       + (*difference < 0 ? u" missing"_s : u" too much"_s);
    }
    return text;
}
