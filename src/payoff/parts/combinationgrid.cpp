#include "payoff/parts/combinationgrid.h"

#include "ui/controls.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

CombinationGrid::CombinationGrid(double size, QWidget *parent)
    : QWidget(parent)
{
    const struct
    {
        Combination combination;
        QString name;
        QString toolTip;
        Finish horse;
        Finish kind;
    } fields[] = {
        {Combination::WinWin, u"txtwinwin"_s, u"Win horse to win"_s, Finish::Win, Finish::Win},
        {Combination::WinPlace, u"txtwinplace"_s, u"Win horse to place"_s, Finish::Win,
         Finish::Place},
        {Combination::WinShow, u"txtwinshow"_s, u"Win horse to show"_s, Finish::Win, Finish::Show},
        {Combination::PlacePlace, u"txtplaceplace"_s, u"Place horse to place"_s, Finish::Place,
         Finish::Place},
        {Combination::PlaceShow, u"txtplaceshow"_s, u"Place horse to show"_s, Finish::Place,
         Finish::Show},
        {Combination::ShowShow, u"txtshowshow"_s, u"Show horse to show"_s, Finish::Show,
         Finish::Show},
    };
    const QString kinds[] = {u"WIN"_s, u"PLACE"_s, u"SHOW"_s};
    const QString horses[] = {u"Win horse"_s, u"Place horse"_s, u"Show horse"_s};
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < finishCount; ++i) {
        QLabel *kind = makeHeading(this, memberName(u"lblkind"_s, i + 1), kinds[i]);
        kind->setAlignment(Qt::AlignCenter);
        grid->addWidget(kind, 0, i + 1);
        grid->addWidget(makeLabel(this, memberName(u"lblhorse"_s, i + 1), horses[i]), i + 1, 0);
        grid->setColumnStretch(i + 1, 1);
    }
    for (const auto &row : fields) {
        QLineEdit *field = makeField(this, row.name, row.toolTip);
        field->setAccessibleName(row.toolTip);
        field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        enlarge(field, size);
        grid->addWidget(field, int(row.horse) + 1, int(row.kind) + 1);
        m_fields[std::size_t(row.combination)] = field;
    }
}

QString CombinationGrid::text(Combination combination) const
{
    return field(combination)->text();
}

void CombinationGrid::setText(Combination combination, const QString &text)
{
    m_texts[std::size_t(combination)] = text;
    field(combination)->setText(text);
}

bool CombinationGrid::isUntouched(Combination combination) const
{
    return !field(combination)->isModified() && !text(combination).isEmpty()
           && text(combination) == m_texts[std::size_t(combination)];
}
