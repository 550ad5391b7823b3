#include "board/boardpicture.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<const char *, 3> poolNames{"win", "place", "show"};

QString moneyInWords(const std::array<float, 3> &money)
{
    QStringList words;
    for (std::size_t type = 0; type < money.size(); ++type)
        words += QLatin1StringView(poolNames[type]) + u' ' + boardDollars(double(money[type]));
    return words.join(u", "_s);
}

QString rowInWords(const BoardRow &row)
{
    const QString horse = row.number + u' ' + row.name() + u": "_s;
    if (row.isScratched)
        return horse + u"SCRATCHED"_s;
    QString odds = row.odds.isEmpty() ? QString() : QString(u"odds "_s + row.odds + u", "_s);
    if (row.move != OddsMove::None)
        odds += moveText(row.move) + u", "_s;
    return horse + odds + moneyInWords(row.money);
}

QString finisherInWords(const BoardFinisher &finisher)
{
    QStringList words{finisher.number + u' ' + finisher.name};
    for (std::size_t type = 0; type < finisher.pays.size(); ++type) {
        if (!finisher.pays[type].isEmpty())
            words += QLatin1StringView(poolNames[type]) + " pays "_L1 + finisher.pays[type];
    }
    return words.join(u", "_s);
}

} // namespace

QString waitingForFiles()
{
    return u"Waiting for the files of this race"_s;
}

QStringList boardText(const BoardPicture &picture)
{
    QStringList lines{picture.banner, u"Race "_s + QString::number(picture.race)};
    for (const BoardFinisher &finisher : picture.finish)
        lines += finisherInWords(finisher);
    if (picture.finish.isEmpty()) {
        for (const BoardRow &row : picture.rows)
            lines += rowInWords(row);
    }
    lines += u"pools: "_s + moneyInWords({picture.pools[0], picture.pools[1], picture.pools[2]})
             + u", total "_s + boardDollars(double(picture.pools[3]));
    if (picture.mostBacked >= 0 && picture.finish.isEmpty()) {
        const BoardRow &row = picture.rows[picture.mostBacked];
        lines += u"most backed: "_s + row.number + u' ' + row.name();
    }
    for (const BoardPool &pool : picture.multibets)
        lines += pool.name + u": "_s + boardDollars(pool.dollars);
    for (const BoardPayoff &payoff : picture.payoffs)
        lines += payoff.name + u": "_s + payoff.horses + u" pays "_s + payoff.pays;
    if (!picture.note.isEmpty())
        lines += picture.note;
    return lines;
}
