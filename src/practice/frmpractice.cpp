#include "practice/frmpractice.h"

#include "common/event/session.h"
#include "practice/parts/practicesteps.h"
#include "practice/practice.h"
#include "ui/controls.h"
#include "ui/noteline.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QString whatPracticeIs()
{
    return u"Practice is a whole event of its own: forty bettors, three races with horses and a "
           "hundred bets, and race 1, which is yours.\n\n"
           "A lesson of eight steps stands beside the screens. It says what to press next, from "
           "the horses of a race to the last winner paid, and ends with the till.\n\n"
           "Play Guests lets made-up guests bet on the current race while you work.\n\n"
           "The real event cannot be reached from practice: its files, its settings, thumb drives "
           "and other computers stay as they are. The banner says PRACTICE on every screen and "
           "slip. When the program is started again, it opens the real event."_s;
}

} // namespace

frmpractice::frmpractice(const ScreenContext &context)
    : m_context(context)
{
    build();
    connect(cmdpractice, &QPushButton::clicked, this, [this] { goToPractice(this, m_context); });
    connect(cmdagain, &QPushButton::clicked, this, [this] { askBeginAgain(this, m_context); });
    connect(cmdleave, &QPushButton::clicked, this, [this] { askLeavePractice(this, m_context); });
    for (const auto &[button, screen] :
         {std::pair(cmdhelp, u"frmhelpb"_s), std::pair(cmdreturn, u"frminitb"_s)}) {
        connect(button, &QPushButton::clicked, this,
                [this, name = screen] { m_context.navigator.open(name); });
    }
    fill();
    assignAltLetters(this);
    cmdpractice->setFocus();
}

void frmpractice::build()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, {}, u"The event that is open"_s);
    auto *group = new QGroupBox(u"A night to practise with"_s, this);
    auto *lblwhat = makeLabel(group, u"lblwhat"_s, whatPracticeIs(), {}, true);
    scaleText(lblwhat, 1.25);
    lblwhat->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblstate = makeHeading(this, u"lblstate"_s, {});
    cmdpractice = makeButton(this, u"cmdpractice"_s, {}, u"Open the practice event"_s);
    standOut(cmdpractice);
    cmdpractice->setAutoDefault(true);
    cmdagain = makeButton(this, u"cmdagain"_s, u"Begin Again"_s,
                          u"Make the practice event afresh: what was done in it is lost"_s);
    warnOf(cmdagain);
    cmdleave = makeButton(this, u"cmdleave"_s, u"Leave Practice"_s, u"Back to the real event"_s);
    cmdhelp = makeButton(this, u"cmdhelp"_s, u"Help"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return to Setup"_s, u"Return to setup screen"_s);
    lblnote = makeNoteLine(this);

    auto *inside = new QVBoxLayout(group);
    inside->addWidget(lblwhat);
    auto *buttons = new QGridLayout;
    buttons->addWidget(cmdpractice, 0, 0);
    buttons->addWidget(cmdleave, 0, 1);
    buttons->setColumnMinimumWidth(2, dangerGap);
    buttons->addWidget(cmdagain, 0, 3);
    for (const int column : {0, 1, 3})
        buttons->setColumnStretch(column, 1);
    auto *foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(cmdhelp);
    foot->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addWidget(group, 1);
    layout->addWidget(lblstate);
    layout->addLayout(buttons);
    layout->addLayout(foot);
    layout->addWidget(lblnote);
}

void frmpractice::fill()
{
    const Session &session = m_context.session;
    const bool isMade = isPracticeMade(session);
    txtbanner->setText(session.settings.bannerAndRace());
    lblstate->setText(session.isPractice() ? u"The practice event is open."_s
                      : isMade             ? u"The real event is open. There is a practice event."_s
                                           : u"The real event is open."_s);
    setCaption(cmdpractice, isMade ? u"GO ON WITH PRACTICE"_s : u"BEGIN PRACTICE"_s);
    cmdagain->setEnabled(isMade);
    cmdleave->setEnabled(session.isPractice());
}
