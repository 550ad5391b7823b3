#include "multibets/parts/multibetscreen.h"

#include "common/event/bettypes.h"
#include "common/print/copies.h"
#include "multibets/guide.h"
#include "multibets/legs.h"
#include "multibets/parts/typebuttons.h"
#include "ui/controls.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

MultibetScreen::MultibetScreen(const ScreenContext &context)
    : m_context(context)
{
}

QVBoxLayout *MultibetScreen::buildHead()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, {});
    const RaceOptions races = makeRaceOptions(this, u"Click to select a race"_s, 12, u" Race"_s);
    m_races = races.group;
    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(4);
    layout->addWidget(txtbanner);
    layout->addWidget(races.frame);
    return layout;
}

void MultibetScreen::makeTypes(QWidget *parent)
{
    QList<TypeButtons::Type> types;
    for (const MultibetType &type : multibetTypes())
        types.append({type.code, type.button, type.caption, type.toolTip});
    m_types = new TypeButtons(types, parent);
}

void MultibetScreen::makeGrid(PostGrid::Selection selection, QWidget *parent,
                              const std::array<QString, 3> &lineTips)
{
    m_grid = new PostGrid(selection, parent);
    for (int line = 0; line < 3; ++line) {
        const QString &tip = lineTips[std::size_t(line)];
        m_grid->setLine(line, "Line "_L1 + QString::number(line + 1), tip, tip);
    }
    connect(m_grid, &PostGrid::duplicateRefused, this,
            [this] { showMessage(this, u"Duplicate horse post number"_s); });
}

void MultibetScreen::showRace(int race)
{
    m_context.session.settings.currentRace = race;
    txtbanner->setText(m_context.session.settings.bannerAndRace());
}

const MultibetType *MultibetScreen::takeType(const QString &code)
{
    const MultibetType *type = multibetType(code);
    if (type->lines == 3 && m_races->checkedId() < 0) {
        showMessage(this, u"Must select race first"_s);
        return nullptr;
    }
    m_types->setType(code);
    m_grid->setRepeatsAllowed(type->races);
    return type;
}

MultibetLegs MultibetScreen::showLegs()
{
    MultibetLegs legs;
    trapErrors(this, ErrorStyle::DescriptionOnly,
               [&] { legs = loadLegs(m_context.session, multibetType(m_types->type())); });
    m_grid->showPosts(legs.posts);
    for (int line = 0; line < 3; ++line) {
        const auto at = std::size_t(line);
        m_grid->setLabel(line, legs.labels[at]);
        const bool hasOwnRace = legs.races[at] != 0 && legs.races[at] != legs.races[0];
        for (const Horse &horse : legs.horses[at])
            m_grid->setHorse(line, horse.post,
                             postText(horse, hasOwnRace ? raceName(legs.races[at]) : QString()));
    }
    return legs;
}

QStringList listLines(const QListWidget *list)
{
    QStringList lines;
    for (int row = 0; row < list->count(); ++row)
        lines.append(list->item(row)->text());
    return lines;
}

std::optional<Printed> printAskedCopies(QWidget *screen, const ScreenContext &context,
                                        const CopiesQuestion &question, const Slip &slip)
{
    const int copies = copiesAsked(askText(screen, question.text, question.title, u"1"_s));
    if (copies == 0)
        return {};
    const PrintTask task{question.operation, ErrorStyle::DescriptionOnly, question.printed};
    return printCopies(screen, context, task, slip, copies);
}

CopiesQuestion listCopiesQuestion()
{
    return {u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s,
            u"Print Winners/Refunds"_s, u"Copies printed: "_s};
}
