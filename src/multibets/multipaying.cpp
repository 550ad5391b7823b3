#include "multibets/multipaying.h"

#include <QHash>

using namespace Qt::StringLiterals;

QList<std::optional<PaidBefore>> paidBefore(const CashJournal &journal, int race,
                                            const QList<MultibetPayment> &payments)
{
    QHash<std::pair<int, QString>, QList<PaidBefore>> paid;
    for (const CashEntry *entry : paymentsOf(journal, race, CashKind::MultibetPaid))
        paid[{entry->bettor, entry->detail}] += {entry->name, entry->dollars, entry->clock()};
    QList<std::optional<PaidBefore>> before;
    before.reserve(payments.size());
    for (const MultibetPayment &payment : payments) {
        const auto found = paid.find({payment.bettor, payment.ticket});
        if (found == paid.end() || found->isEmpty())
            before.append(std::nullopt);
        else
            before.append(found->takeFirst());
    }
    return before;
}

void recordMultibetSettlement(Session &session, const MultibetType &type,
                              const std::array<int, 3> &winners, const MultibetSettlement &settled)
{
    QStringList posts;
    for (int line = 0; line < type.lines; ++line)
        posts += QString::number(winners[std::size_t(line)]);
    if (posts.contains(u"0"_s) || settled.outcome == MultibetSettlement::Outcome::NoBets)
        return;
    const bool hasWinners = settled.outcome == MultibetSettlement::Outcome::Winners;
    CashEntry entry{CashKind::MultibetSettled, session.settings.currentRace};
    entry.detail = type.code + u' ' + (hasWinners ? posts.join(u',') : QString(multibetRefund));
    entry.owed = exactMoney(settled.payPerDollar);
    const CashEntry *before =
        lastMultibetSettlement(lookIntoCashJournal(session), entry.race, type.code);
    if (!before || before->detail != entry.detail || before->owed != entry.owed)
        recordCash(session, {entry});
}

void payTicket(Session &session, const MultibetPayment &payment)
{
    CashEntry entry{CashKind::MultibetPaid, session.settings.currentRace, payment.bettor,
                    payment.name};
    entry.detail = payment.ticket;
    entry.owed = exactMoney(payment.dollars);
    entry.dollars = wholeCents(entry.owed);
    recordCash(session, {entry});
}
