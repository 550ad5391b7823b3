#include "payoff/paying.h"

#include "common/print/cashtexts.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

void handOver(Session &session, WinnerLedger &ledger, std::size_t index)
{
    const int number = ledger.winners()[index].number;
    const Payment &payment = ledger.payment(index);
    CashEntry entry{CashKind::Paid, session.payoffs.race, number, session.bettors.nameOf(number),
                    payment.cash()};
    entry.owed = exactMoney(payment.total);
    recordCash(session, {entry});
    ledger.pay(index);
}

QMap<std::size_t, PaidBefore> paidBefore(const CashJournal &journal, const WinnerLedger &ledger,
                                         int race)
{
    const QMap<int, PaidBefore> paid = paidInRace(journal, race);
    QMap<std::size_t, PaidBefore> found;
    for (std::size_t i = 0; i < ledger.winners().size(); ++i) {
        if (const auto before = paid.find(ledger.winners()[i].number); before != paid.end())
            found.insert(i, *before);
    }
    return found;
}

QString settledOtherwise(const Session &session, const CashJournal &journal,
                         const RaceResult &result)
{
    const int race = session.settings.currentRace;
    const CashEntry *before = lastSettlement(journal, race);
    const auto payments = paymentsOf(journal, race, CashKind::Paid).size()
                          + paymentsOf(journal, race, CashKind::Slip).size();
    RaceSettled now;
    now.payoffs.finishers = result.finishers;
    now.payoffs.is532 = result.is532;
    now.payoffs.usesTrack = result.trackPayoffs.has_value();
    now.housePercent = result.housePercent;
    if (!before || payments == 0 || now.isSameAs(*before->settled))
        return {};
    return settledText(*before, session.horses) + u". Payments since then: "_s
           + QString::number(payments) + u". Settle it anew?"_s;
}

QString takeBackQuestion(const CashEntry &payment)
{
    return u"Take back "_s + formatMoney(dollarsOf(payment.dollars)) + u" paid to "_s + payment.name
           + u" at "_s + payment.clock() + u',' + raceName(payment.race) + u'?';
}

void takeBack(Session &session, const CashEntry &payment)
{
    CashEntry back{CashKind::TakenBack, payment.race,    payment.bettor,
                   payment.name,        payment.dollars, cashKindWord(payment.kind)};
    back.takesBack = payment.turn;
    recordCash(session, {back});
}
