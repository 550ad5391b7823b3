#include "practice/parts/practicesteps.h"

#include "common/event/session.h"
#include "practice/parts/practicepanel.h"
#include "practice/practice.h"
#include "ui/mainwindow.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"

using namespace Qt::StringLiterals;

namespace {

using Turn = void (*)(Session &, const Progress &);

// Windows beside show the event that is left, so they are closed first; one that refuses stays, and
// everything with it.
void turnTo(QWidget *asker, const ScreenContext &context, Turn turn, const QString &note)
{
    if (!context.navigator.closeBeside())
        return;
    const bool isThere = trapErrors(asker, ErrorStyle::DescriptionAndLabel, [&] {
        ProgressBox box(asker, u"Preparing the practice event ..."_s,
                        ProgressBox::Ending::OnlyWhenDone);
        turn(context.session, box.progress());
    });
    if (!isThere)
        return;
    context.navigator.window()->setStrip(new PracticePanel(context));
    context.navigator.open(u"frmmenub"_s, note);
}

} // namespace

void goToPractice(QWidget *asker, const ScreenContext &context)
{
    if (context.session.isPractice())
        return context.navigator.open(u"frmmenub"_s);
    turnTo(asker, context, &enterPractice,
           u"This is practice: nothing here reaches the real event."_s);
}

void askBeginAgain(QWidget *asker, const ScreenContext &context)
{
    if (askYesNoCarefully(
            asker, u"Begin practice again? All that was done in the practice event is lost."_s,
            u"Practice"_s))
        turnTo(asker, context, &beginPracticeAgain, u"The practice event is new."_s);
}

void askLeavePractice(QWidget *asker, const ScreenContext &context)
{
    if (!askYesNoCarefully(asker,
                           u"Leave practice and go back to the real event? What is not yet saved "
                           "on this screen is lost."_s,
                           u"Practice"_s)
        || !context.navigator.closeBeside())
        return;
    leavePractice(context.session);
    context.navigator.window()->setStrip(nullptr);
    context.navigator.open(u"frminitb"_s, u"Practice has ended: this is the real event."_s);
}
