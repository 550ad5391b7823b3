#include "payoff/winnerslips.h"

#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

using enum Combination;

namespace {
constexpr int linesAWinner = 6;
}

QList<SlipLine> winnerSlipLines(const QString &bettor, const QString &bannerAndRace,
                                const std::array<QString, finishCount> &horseNumbers,
                                const Payment &payment)
{
    constexpr int columns[] = {25, 35, 45, 55, 65, 75};
    const QString heading = u"Bettor Name: "_s + bettor;
    const int raceColumn = std::max(columns[2], int(heading.size()) + 3);

    SlipLine titles;
    for (int i = 0; i < 6; ++i)
        titles.append({columns[i], i % 2 == 0 ? u"Bet"_s : u"Paid"_s});

    // A horse's line: each combination's bet and paid amount, in the pair of columns of its kind of
    // bet.
    const auto horseLine = [&](Finish finish, int firstPair,
                               std::initializer_list<Combination> combinations) {
        SlipLine line{{1, horseNumbers[std::size_t(finish)]}};
        int column = firstPair * 2;
        for (const Combination combination : combinations) {
            line.append({columns[column++], formatMoney(payment.stakes[combination], "Currency")});
            line.append({columns[column++], formatMoney(payment.amount(combination), "Currency")});
        }
        return line;
    };
    return {
        {{1, heading}, {raceColumn, bannerAndRace}},
        titles,
        horseLine(Finish::Win, 0, {WinWin, WinPlace, WinShow}),
        horseLine(Finish::Place, 1, {PlacePlace, PlaceShow}),
        horseLine(Finish::Show, 2, {ShowShow}),
        {{1, QString()}},
    };
}

Slip winnerSlips(const QList<SlipLine> &lines)
{
    Slip slip{u"Courier New"_s, 8, false, lines, 0};
    for (int start = 0; start < lines.size(); start += linesAWinner)
        slip.blockStarts.append(start);
    return slip;
}
