#include "common/print/cashtexts.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

QString dollarsText(ExactMoney money)
{
    return formatMoney(dollarsOf(money));
}

QString amountAndTime(const PaidBefore &paid)
{
    return dollarsText(paid.dollars) + u" at "_s + paid.clock;
}

} // namespace

QString paidText(const PaidBefore &paid)
{
    return u"paid "_s + amountAndTime(paid);
}

QString paidBeforeNote(const QList<PaidBefore> &paid, int ofAll)
{
    constexpr qsizetype named = 3;
    if (paid.isEmpty())
        return {};
    QStringList names;
    for (const PaidBefore &person : paid.first(qMin(named, paid.size())))
        names += person.name + u' ' + amountAndTime(person);
    QString note = QString::number(paid.size()) + u" of "_s + QString::number(ofAll)
                   + (paid.size() == 1 ? u" was"_s : u" were"_s) + u" paid before: "_s
                   + names.join(u", "_s);
    if (paid.size() > named)
        note += u" and "_s + QString::number(paid.size() - named) + u" more"_s;
    return note;
}

QString payAgainQuestion(const PaidBefore &paid, ExactMoney now)
{
    QString question = paid.name + u" was "_s + paidText(paid) + u'.';
    if (const ExactMoney more = now - paid.dollars; more != 0) {
        question += u" Now it is "_s + dollarsText(now) + u", "_s + dollarsText(qAbs(more))
                    + (more > 0 ? u" more."_s : u" less."_s);
    }
    return question + u" Pay again?"_s;
}

QString settledText(const CashEntry &settlement, const HorseTable &horses)
{
    const RaceSettled &settled = *settlement.settled;
    QStringList numbers;
    for (const int post : settled.payoffs.finishers) {
        if (!isUnused(horses.post(post)))
            numbers += horses.post(post).number.trimmed();
    }
    QString text = raceName(settlement.race).trimmed() + u" was settled at "_s + settlement.clock()
                   + u": "_s + numbers.join(u", "_s) + u", house "_s
                   + QString::number(settled.housePercent) + u" %"_s;
    if (settled.payoffs.is532)
        text += u", 532 payoff"_s;
    if (settled.payoffs.usesTrack)
        text += u", track payoffs"_s;
    return text;
}

QString settledNote(Session &session, int race, const HorseTable &horses)
{
    const CashEntry *settled = lastSettlement(lookIntoCashJournal(session), race);
    return settled ? settledText(*settled, horses) : QString();
}

QString journalNote(const CashJournal &journal)
{
    QStringList notes;
    if (journal.damaged > 0)
        notes +=
            u"Damaged lines of the cash journal, skipped: "_s + QString::number(journal.damaged);
    if (!journal.unreadable.isEmpty())
        notes +=
            u"The cash journal of "_s + journal.unreadable.join(u", "_s) + u" could not be read"_s;
    return notes.join(u"; "_s);
}
