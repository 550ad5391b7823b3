#include "racecard/papersheets.h"

#include "common/print/format.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// Columns are as wide as an average letter, not as a W: a name of the widest letters ends in the
// same column as all others and still keeps apart from a number of the widest ones. The rule is 79
// columns long.
constexpr int sheetNameWidth = 14;
constexpr int nameColumn = 17;
constexpr std::array<int, 4> barColumns{32, 44, 56, 68};

SlipLine barsBehind(SlipLine line)
{
    for (const int column : barColumns)
        line.append({column, u"|"_s});
    return line;
}

SlipLine headingLine()
{
    const std::array<QString, 4> captions{u"    Win"_s, u"    Place"_s, u"    Show"_s, u"TOTAL"_s};
    SlipLine line{{1, u"Number"_s}, {nameColumn, u"  Horse Name"_s}};
    for (std::size_t i = 0; i < captions.size(); ++i) {
        line.append({barColumns[i], u"|"_s});
        line.append({barColumns[i] + 2, captions[i]});
    }
    return line;
}

} // namespace

Slip betSheetSlip(const HorseTable &horses, const QString &event, const QString &message)
{
    const QString rule(84, u'_');
    Slip slip{u"MS Sans Serif"_s, 8, false, {}, 0};
    slip.addLine(u"Bet Sheet for "_s + event);
    slip.addLine(u" "_s);
    slip.addLine(rule);
    slip.addLine(headingLine());
    slip.addLine(rule);
    for (const Horse &horse : horses) {
        if (isUnused(horse))
            continue;
        slip.addLine(barsBehind(
            {{1, rightColumn(horse.number, 4), true},
             {nameColumn, rightColumn(horse.name.left(sheetNameWidth), sheetNameWidth), true}}));
        slip.addLine(rule);
    }
    slip.addLine(barsBehind({{1, u" "_s}, {2, u"TOTAL BET"_s}}));
    slip.addLine(rule);
    slip.addLine(u" "_s);
    slip.addLine(u" "_s);
    slip.addLine(u"Name_______________________________________"_s);
    slip.addLine(u" "_s);
    for (const QString &line : message.split(u'\n'))
        slip.addLine(line);
    return slip;
}
