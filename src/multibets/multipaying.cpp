#include "multibets/multipaying.h"

#include <QHash>

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

void payTicket(Session &session, const MultibetPayment &payment)
{
    CashEntry entry{CashKind::MultibetPaid, session.settings.currentRace, payment.bettor,
                    payment.name};
    entry.detail = payment.ticket;
    entry.owed = exactMoney(payment.dollars);
    entry.dollars = wholeCents(entry.owed);
    recordCash(session, {entry});
}
