#include "common/event/bettypes.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString betTypeWord(float type)
{
    if (type == float(BetType::Win))
        return u"Win"_s;
    if (type == float(BetType::Place))
        return u"Place"_s;
    return type == float(BetType::Show) ? u"Show"_s : QString();
}

const std::array<MultibetType, 5> &multibetTypes()
{
    static const std::array<MultibetType, 5> types{{
        {u"DD"_s, u"Daily Double"_s, u"cmddouble"_s, u"DAILY DOUBLE"_s,
         u"Select post numbers on lines 1 and 2 to come in first in 2 consecutive races"_s,
         u"Daily D  "_s, 2, true},
        {u"EX"_s, u"Exacta"_s, u"cmdexacta"_s, u"EXACTA"_s,
         u"Select post numbers on lines 1 and 2 to come in first and second in this race"_s,
         u"Exacta   "_s, 2, false},
        {u"Q"_s, u"Quinela"_s, u"cmdquinela"_s, u"QUINELA"_s,
         u"Select post numbers on lines 1 and 2 to come in first and second in any combination "
         "for this race"_s,
         u"Quinela  "_s, 2, false},
        {u"T"_s, u"Trifecta"_s, u"cmdtrifecta"_s, u"TRIFECTA"_s,
         u"Select post numbers on lines 1, 2, and 3 to come in first, second, and third in this "
         "race"_s,
         u"Trifecta "_s, 3, false},
        {u"P3"_s, u"Pick 3"_s, u"cmdpick3"_s, u"PICK\nTHREE"_s,
         u"Select post numbers on lines 1,2, and 3 to come in first in three consecutive races"_s,
         u"Pick 3   "_s, 3, true},
    }};
    return types;
}

const MultibetType *multibetType(const QString &code)
{
    const auto &types = multibetTypes();
    const auto found = std::ranges::find(types, code, &MultibetType::code);
    return found == types.end() ? nullptr : &*found;
}
