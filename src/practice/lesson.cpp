#include "practice/lesson.h"

#include "common/event/cashanswers.h"
#include "common/print/format.h"
#include "common/print/till.h"
#include "practice/madeevent.h"
#include "practice/practice.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int fewestHorses = 3;
constexpr std::size_t fewestBets = 20;

// What the files say about the race of the lesson.
class LessonRace
{
public:
    explicit LessonRace(Session &session)
        : m_race(readRace(session, lessonRace))
        , m_bettors(readBettors(session))
        , m_journal(readCashJournal(session))
        , m_till(raceTills({m_race}, m_bettors, m_journal).front())
    {
        const std::vector<Till> tills = tillsOf(m_journal);
        const auto own = std::ranges::find(tills, computerName(session), &Till::computer);
        if (own != tills.end())
            m_own = *own;
    }

    bool hasHorses() const
    {
        return std::ranges::count(m_race.horses, false, isUnused) >= fewestHorses;
    }

    bool hasPupil() const
    {
        for (int slot = 1; slot <= m_bettors.slotCount(); ++slot) {
            const Bettor &bettor = m_bettors.slot(slot);
            if (bettor.isBettor() && isPupil(bettor.name))
                return true;
        }
        return false;
    }

    bool pupilHasBet() const
    {
        return hasLine(CashKind::Bets, [](const CashEntry &line) { return isPupil(line.name); });
    }

    bool hasTakenBack() const
    {
        return hasLine(CashKind::Refund,
                       [](const CashEntry &line) { return line.detail == refundPriorBets; });
    }

    bool hasManyBets() const { return m_race.bets.rows.size() >= fewestBets; }
    bool isSettled() const { return !m_till.settledAt.isEmpty(); }
    bool isPaid() const { return isSettled() && m_till.unpaid.empty(); }

    bool tillAgrees() const
    {
        return isPaid() && m_till.disagreements.isEmpty() && m_own.difference() == ExactMoney(0);
    }

    QString expected() const { return formatMoney(dollarsOf(m_own.expected())); }

private:
    static bool isPupil(const QString &name)
    {
        return name != anyBettorName() && !guestNames().contains(name);
    }

    template<typename Wanted>
    bool hasLine(CashKind kind, const Wanted &wanted) const
    {
        return std::ranges::any_of(m_journal.lines, [&](const CashEntry &line) {
            return line.kind == kind && line.race == lessonRace && wanted(line);
        });
    }

    RaceRecords m_race;
    BettorTable m_bettors;
    CashJournal m_journal;
    RaceTill m_till;
    Till m_own;
};

} // namespace

QList<LessonStep> lessonSteps(Session &session)
{
    const LessonRace race(session);
    return {
        {u"Enter the horses"_s,
         u"Main menu, Update Horses: for race 1, type at least three horses, each with a number "
         "and a name. Then press UPDATE HORSES."_s,
         race.hasHorses()},
        {u"Add a bettor"_s,
         u"Main menu, Update Bettors: type your own name as LASTNAME-FIRSTNAME and press Enter. "
         "Then MAIN MENU."_s,
         race.hasPupil()},
        {u"Take a bet"_s,
         u"Main menu, Place a Bet: choose your name, press an amount, then a cell beside a horse. "
         "Then press Place these Bets."_s,
         race.pupilHasBet()},
        {u"Take a bet back"_s,
         u"On the bet sheet, choose your name, click a bet in the list PRIOR BETS and press "
         "Delete Selected Prior Bets. Its money is refunded."_s,
         race.hasTakenBack()},
        {u"Let the guests bet"_s,
         u"Press Play Guests, or take bets yourself, until race 1 has twenty bets."_s,
         race.hasManyBets()},
        {u"Calculate the payoffs"_s,
         u"Main menu, Pay Winners: choose race 1. Select a horse and press ENTER WINNER, another "
         "for ENTER PLACE, a third for ENTER SHOW; type a house percentage; press CALCULATE "
         "PAYOFF."_s,
         race.isSettled()},
        {u"Pay every winner"_s,
         u"On Pay Winners, choose a name in the list of winners and press PAY WINNER, until nobody "
         "is left. Each time it asks whether to print payoffs: No goes on."_s,
         race.isPaid()},
        {u"Count the till"_s,
         u"Main menu, Print Reports: choose Cash Report, type the money in the till as Counted and "
         "press So far. By the journal there are "_s
             + race.expected() + u" in it."_s,
         race.tillAgrees()},
    };
}

int nextStepOf(const QList<LessonStep> &steps)
{
    const auto next = std::ranges::find(steps, false, &LessonStep::isDone);
    return int(next - steps.begin());
}
