#include "common/event/cashjournal.h"

#include "common/event/eventfiles.h"
#include "common/event/knownjournals.h"
#include "common/event/networkmode.h"
#include "common/event/tornend.h"
#include "common/files/hostsystem.h"
#include "common/files/recordfile.h"

#include <QDateTime>
#include <QDir>
#include <QSysInfo>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char *, cashKindCount> kindWords{
    "bets",      "multibets", "added", "refund",  "settled", "paid",         "slip",
    "multipaid", "takenback", "float", "counted", "closed",  "multisettled", "scratched"};
constexpr std::array<const char *, 3> modeWords{"normal", "532", "track"};

const QString fileStart = u"Cash "_s;

bool isInFileName(QChar letter)
{
    return letter.isLetterOrNumber() || letter == u'-' || letter == u'_';
}

// The fields that every line has, and those that come after them.
constexpr std::size_t commonFields = 8;
constexpr std::size_t settledFields = commonFields + finishCount + combinationCount + 2;

template<std::size_t Count>
std::optional<int> placeOf(const std::array<const char *, Count> &words, std::string_view word)
{
    const auto found =
        std::ranges::find(words, word, [](const char *w) { return std::string_view(w); });
    if (found == words.end())
        return {};
    return int(found - words.begin());
}

bool hasTurn(const CashEntry &line)
{
    switch (line.kind) {
    case CashKind::Settled:
    case CashKind::Paid:
    case CashKind::Slip:
    case CashKind::MultibetPaid:
    case CashKind::TakenBack:
    case CashKind::MultibetSettled:
        return true;
    case CashKind::Refund:
        return line.detail == refundRace || line.detail == refundRaceMultibets;
    default:
        return false;
    }
}

int modeOf(const RacePayoffs &payoffs)
{
    return payoffs.usesTrack ? 2 : payoffs.is532 ? 1 : 0;
}

// As many digits as tell the number from every other, so that payoffs come back as they were.
QByteArray exactNumber(auto number)
{
    std::array<char, 400> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    return {text.data(), end.ptr - text.data()};
}

QByteArray settledRecord(const RaceSettled &settled)
{
    QByteArray fields;
    for (const int post : settled.payoffs.finishers)
        fields += ',' + QByteArray::number(post);
    fields += ',' + exactNumber(settled.housePercent);
    for (const float payoff : settled.payoffs.perDollar)
        fields += ',' + exactNumber(payoff);
    return fields + ',' + QByteArray::number(settled.roundingIndex);
}

// Whether a field with an amount comes after the common ones.
bool hasOwed(CashKind kind)
{
    return isPayment(kind) || kind == CashKind::MultibetSettled;
}

std::optional<RaceSettled> parseSettled(const std::vector<RecordField> &fields, int race)
{
    const auto mode = placeOf(modeWords, fields[commonFields - 1].text);
    if (fields.size() != settledFields || !mode)
        return {};
    RaceSettled settled;
    settled.payoffs.race = race;
    settled.payoffs.is532 = *mode == 1;
    settled.payoffs.usesTrack = *mode == 2;
    auto field = fields.begin() + commonFields;
    for (int &post : settled.payoffs.finishers) {
        const auto value = fieldInteger(*field++, 1, 21);
        if (!value)
            return {};
        post = *value;
    }
    const auto percent = fieldNumber(*field++);
    for (float &payoff : settled.payoffs.perDollar) {
        const auto value = fieldNumber(*field++);
        if (!value)
            return {};
        payoff = float(*value);
    }
    const auto rounding = fieldInteger(*field, 0, 5);
    if (!percent || !rounding)
        return {};
    settled.housePercent = *percent;
    settled.roundingIndex = *rounding;
    return settled;
}

// The file, open for appending; the first time it is made.
std::unique_ptr<HostFile> openJournal(const QString &path)
{
    for (;;) {
        try {
            return std::make_unique<HostFile>(path, HostFile::Mode::Append);
        } catch (const FileError &error) {
            if (error.number() != ErrorNumber::FileNotFound)
                throw;
        }
        if (auto made = HostFile::createNew(path)) {
            flushFolder(QFileInfo(path).path());
            return made;
        }
    }
}

QString ownJournal(const Session &session)
{
    return eventFolder(session) + u'/' + fileStart + computerName(session);
}

KnownJournals &known(Session &session)
{
    if (!session.files.journals)
        session.files.journals = std::make_shared<KnownJournals>();
    return *session.files.journals;
}

// Appends to this computer's file, which several programs may have open: in one write, and nothing
// of another's is ever cut off.
void appendToJournal(Session &session, const QByteArray &lines)
{
    const QString path = ownJournal(session);
    const std::unique_ptr<HostFile> file = openJournal(path);
    const qint64 size = file->size();
    const bool isTorn = !known(session).isWhole(path, size) && file->read(size - 1, 1) != "\n";
    const QByteArray all = isTorn ? tornMark + lines : lines;
    try {
        file->append(all);
        file->flush();
    } catch (FileError &error) {
        error.setAftermath(Aftermath::Unsure);
        if (all.startsWith(file->read(size, all.size() + 1)) && file->cutTo(size))
            error.setAftermath(Aftermath::AsBefore);
        throw;
    }
    known(session).added(path, size, all);
}

QString localTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    return now.toOffsetFromUtc(now.offsetFromUtc()).toString(Qt::ISODate);
}

int nextTurn(Session &session)
{
    int highest = 0;
    for (const CashEntry &line : lookIntoCashJournal(session).lines)
        highest = std::max(highest, line.turn);
    return highest + 1;
}

// "paid BAKER-ANN $16.00 Race1": what the operator writes down.
QString byHand(const CashEntry &line)
{
    QStringList parts{cashKindWord(line.kind), line.name};
    if (line.dollars != 0)
        parts += u'$' + QString::number(dollarsOf(line.dollars), 'f', 2);
    if (line.race != 0)
        parts += raceName(line.race).trimmed();
    parts.removeAll(QString());
    return parts.join(u' ');
}

QString failureNote(const std::vector<CashEntry> &lines, const FileError &error)
{
    constexpr std::size_t most = 5;
    QStringList named;
    for (std::size_t i = 0; i < std::min(most, lines.size()); ++i)
        named += byHand(lines[i]);
    QString note = u"The cash journal was not written ("_s + error.description() + u"). "_s;
    if (error.aftermath() == Aftermath::Unsure)
        note = u"The cash journal may not hold this ("_s + error.description() + u"). "_s;
    note += u"Write down: "_s + lines.front().clock() + u' ' + named.join(u", "_s);
    if (lines.size() > most)
        note += u" and "_s + QString::number(lines.size() - most) + u" more"_s;
    return note + u'.';
}

} // namespace

bool isPayment(CashKind kind)
{
    return kind == CashKind::Paid || kind == CashKind::Slip || kind == CashKind::MultibetPaid;
}

QString cashKindWord(CashKind kind)
{
    return QString::fromLatin1(kindWords[std::size_t(kind)]);
}

bool RaceSettled::isSameAs(const RaceSettled &other) const
{
    return payoffs.finishers == other.payoffs.finishers && modeOf(payoffs) == modeOf(other.payoffs)
           && housePercent == other.housePercent;
}

QString computerName(const Session &session)
{
    QString name = session.files.computer.isEmpty() ? networkNameOf(QSysInfo::machineHostName())
                                                    : session.files.computer;
    for (QChar &letter : name) {
        if (!isInFileName(letter))
            letter = u'-';
    }
    return name.isEmpty() ? u"-"_s : name;
}

QStringList cashFiles(const QString &folder)
{
    const QDir found(folder);
    QStringList paths;
    for (const QString &name : found.entryList({fileStart + u'*'}, QDir::Files, QDir::Name)) {
        // Not a report that somebody saved here, nor an editor's copy.
        if (std::all_of(name.begin() + fileStart.size(), name.end(), isInFileName))
            paths += found.filePath(name);
    }
    return paths;
}

QString journalComputer(const QString &path)
{
    return QFileInfo(path).fileName().mid(fileStart.size());
}

CashJournal readCashJournal(Session &session)
{
    known(session).update(eventFolder(session));
    return known(session).journal();
}

const CashJournal &lookIntoCashJournal(Session &session)
{
    const bool isOnShare = session.settings.isNetworked();
    known(session).update(eventFolder(session), isOnShare ? ownJournal(session) : QString());
    return known(session).journal();
}

bool recordCash(Session &session, std::vector<CashEntry> lines)
{
    if (lines.empty())
        return true;
    const int turn = std::ranges::any_of(lines, hasTurn) ? nextTurn(session) : 0;
    const QString time = localTime();
    QByteArray records;
    for (CashEntry &line : lines) {
        line.time = time;
        line.turn = hasTurn(line) ? turn : 0;
        records += cashRecord(line);
    }
    try {
        appendToJournal(session, records);
        return true;
    } catch (const FileError &error) {
        tell(session, failureNote(lines, error));
        return false;
    }
}

QByteArray cashRecord(const CashEntry &line)
{
    const QString detail =
        line.settled ? QString::fromLatin1(modeWords[std::size_t(modeOf(line.settled->payoffs))])
                     : line.detail;
    QByteArray record = quotedField(line.time) + ",\"" + kindWords[std::size_t(line.kind)] + "\","
                        + QByteArray::number(line.race) + ',' + QByteArray::number(line.bettor)
                        + ',' + quotedField(line.name) + ',' + recordDollars(line.dollars) + ','
                        + QByteArray::number(line.turn) + ',' + quotedField(detail);
    if (line.settled)
        record += settledRecord(*line.settled);
    else if (hasOwed(line.kind))
        record += ',' + recordDollars(line.owed);
    else if (line.kind == CashKind::TakenBack)
        record += ',' + QByteArray::number(line.takesBack);
    return record + recordEnd;
}

std::optional<CashEntry> parseCash(std::string_view record)
{
    std::vector<RecordField> fields;
    return parseCash(record, fields);
}

std::optional<CashEntry> parseCash(std::string_view record, std::vector<RecordField> &fields)
{
    constexpr int anyNumber = std::numeric_limits<int>::max();
    constexpr std::size_t timeLength = 16; // up to the minutes
    if (!splitRecord(record, fields) || fields.size() < commonFields)
        return {};
    const auto kind = placeOf(kindWords, fields[1].text);
    const auto race = fieldInteger(fields[2], 0, raceCount);
    const auto bettor = fieldInteger(fields[3], 0, anyNumber);
    const auto dollars = fieldNumber(fields[5]);
    const auto turn = fieldInteger(fields[6], 0, anyNumber - 1);
    if (fields[0].text.size() < timeLength || !kind || !race || !bettor || !dollars || !turn)
        return {};
    CashEntry line{CashKind(*kind),     *race, *bettor, fieldText(fields[4]), exactMoney(*dollars),
                   fieldText(fields[7])};
    line.time = fieldText(fields[0]);
    line.turn = *turn;
    if (line.kind == CashKind::Settled) {
        line.settled = parseSettled(fields, *race);
        return line.settled && *race != 0 ? std::optional(line) : std::nullopt;
    }
    if (!hasOwed(line.kind) && line.kind != CashKind::TakenBack)
        return line;
    if (fields.size() == commonFields)
        return {};
    const RecordField &last = fields[commonFields];
    const auto owed = fieldNumber(last);
    line.owed = hasOwed(line.kind) ? exactMoney(owed.value_or(0)) : 0;
    line.takesBack = hasOwed(line.kind) ? 0 : fieldInteger(last, 1, anyNumber).value_or(0);
    return owed ? std::optional(line) : std::nullopt;
}
