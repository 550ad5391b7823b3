#include "common/event/multibetrecords.h"

#include "common/event/bettypes.h"
#include "common/event/cashstakes.h"
#include "common/event/twinfiles.h"
#include "common/files/recordfile.h"
#include "common/files/recordlines.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestField = std::numeric_limits<int>::max();

// Dollars as they stand in the record: exact to four decimals, without trailing zeros.
QByteArray recordAmount(double amount)
{
    QByteArray text = QByteArray::number(amount, 'f', 4);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text;
}

// The code of a known type is shared by all its bets.
QString typeText(const RecordField &field)
{
    for (const MultibetType &type : multibetTypes()) {
        if (type.code == QLatin1StringView(field.text.data(), qsizetype(field.text.size())))
            return type.code;
    }
    return fieldText(field);
}

// \a fields is room that the lines of a file share.
bool parseWith(std::vector<RecordField> &fields, std::string_view line, Multibet &bet)
{
    if (!splitRecord(line, fields) || fields.size() != 6)
        return false;
    for (std::size_t i = 0; i < bet.posts.size(); ++i) {
        const auto post = fieldInteger(fields[i], 0, largestField);
        if (!post)
            return false;
        bet.posts[i] = *post;
    }
    const auto amount = fieldNumber(fields[4]);
    const auto bettor = fieldInteger(fields[5], 0, largestField);
    if (!amount || !bettor)
        return false;
    bet.type = typeText(fields[3]);
    bet.amount = *amount;
    bet.bettor = *bettor;
    return true;
}

// The places in the table of the bettor's bets, from 0.
std::vector<std::size_t> placesOf(const MultibetTable &bets, int bettor)
{
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < bets.rows.size(); ++place) {
        if (!bets.rows[place].damaged && bets.rows[place].bet.bettor == bettor)
            places.push_back(place);
    }
    return places;
}

} // namespace

bool parseMultibet(std::string_view line, Multibet &bet)
{
    std::vector<RecordField> fields;
    return parseWith(fields, line, bet);
}

MultibetTable parseMultibets(std::string bytes)
{
    MultibetTable table;
    table.bytes = std::move(bytes);
    std::vector<RecordField> fields;
    table.rows.reserve(table.bytes.size() / 14);
    forEachRecord(table.bytes, [&](std::string_view line) {
        MultibetRow &row = table.rows.emplace_back();
        row.start = std::size_t(line.data() - table.bytes.data());
        row.length = line.size();
        row.damaged = !parseWith(fields, line, row.bet);
        if (row.damaged)
            row.bet = {};
    });
    return table;
}

QByteArray multibetLine(const Multibet &bet)
{
    QByteArray line;
    for (const int post : bet.posts)
        line += QByteArray::number(post) + ',';
    line += quotedField(bet.type) + ',' + recordAmount(bet.amount) + ',';
    return line + QByteArray::number(bet.bettor) + recordEnd;
}

QList<Multibet> multibetsOf(const MultibetTable &bets, int bettor)
{
    QList<Multibet> own;
    for (const std::size_t place : placesOf(bets, bettor))
        own.append(bets.rows[place].bet);
    return own;
}

double totalOf(const QList<Multibet> &bets)
{
    double total = 0;
    for (const Multibet &bet : bets)
        total += bet.amount;
    return total;
}

MultibetTable loadOrCreateMultibets(Session &session)
{
    const QString label = u"Multibets input"_s;
    const int race = session.settings.currentRace;
    if (const auto bytes = readMainFileIfThere(session, RecordFile::Multibets, race, label))
        return parseMultibets(bytes->toStdString());
    tell(session, createMissingTwins(session, RecordFile::Multibets, race, label, label));
    return parseMultibets(readMainFile(session, RecordFile::Multibets, race, label).toStdString());
}

void appendMultibets(Session &session, std::span<const Multibet> bets)
{
    QByteArray lines;
    for (const Multibet &bet : bets)
        lines += multibetLine(bet);
    appendTwins(
        session, RecordFile::Multibets, session.settings.currentRace,
        [&](const QByteArray &) { return lines; }, u"Append Bets"_s, u"Append Bets"_s,
        u"Append Bets"_s);
    recordCash(session, stakeLines(session, CashKind::Multibets, session.settings.currentRace,
                                   stakesOf(bets), QString::number(bets.size())));
}

bool removeMultibets(Session &session, int bettor, const QList<PlacedMultibet> &removed)
{
    const int race = session.settings.currentRace;
    QList<Multibet> refunded;
    for (const PlacedMultibet &bet : removed)
        refunded.append(bet.bet);
    const auto withoutRemoved = [&](const QByteArray &bytes) -> std::optional<QByteArray> {
        const MultibetTable bets = parseMultibets(bytes.toStdString());
        const std::vector<std::size_t> own = placesOf(bets, bettor);
        std::set<std::size_t> dropped;
        for (const PlacedMultibet &bet : removed) {
            const auto place = std::size_t(bet.place);
            if (place >= own.size() || bets.rows[own[place]].bet != bet.bet)
                return {};
            dropped.insert(own[place]);
        }
        return QByteArray::fromStdString(recordsWithout(bets.bytes, dropped));
    };
    return changeWithCash(
        session,
        [&] {
            return changeTwins(session, RecordFile::Multibets, race, withoutRemoved,
                               u"Multibets input"_s, u"Multibets output"_s,
                               u"Multibetsbackup output"_s);
        },
        [&] {
            return stakeLines(session, CashKind::Refund, race, stakesOf(refunded), refundMultibets);
        });
}
