#include "screens.h"

#include "betting/frmbettorsb.h"
#include "betting/frmlistb.h"
#include "betting/frmsheetb.h"
#include "betting/frmsheetbnw.h"
#include "board/frmboard.h"
#include "common/event/roles.h"
#include "help/frmhelpb.h"
#include "multibets/frmmulti.h"
#include "multibets/frmpaymulti.h"
#include "multibets/frmsummmulti.h"
#include "payoff/frmanyb.h"
#include "payoff/frmpaywinnersb.h"
#include "practice/frmpractice.h"
#include "racecard/frmhorsesb.h"
#include "repair/frmfixb.h"
#include "reports/frmreportb.h"
#include "reports/frmsummb.h"
#include "setup/frmdirb.h"
#include "setup/frminitb.h"
#include "setup/frmmenub.h"
#include "transfer/frmdrives.h"
#include "transfer/frmimportb.h"
#include "transfer/frmmc.h"

using namespace Qt::StringLiterals;

namespace {

template<typename Screen>
ScreenEntry screen(const QString &name, const QString &title, const QString &closeButton)
{
    ScreenEntry entry{name, title, closeButton, [](const ScreenContext &context) -> QWidget * {
                          return new Screen(context);
                      }};
    if constexpr (requires(Screen & made) { made.entered(); })
        entry.entered = [](QWidget *made) { static_cast<Screen *>(made)->entered(); };
    return entry;
}

ScreenEntry refusedBy(QString (*refusal)(const Settings &), ScreenEntry entry)
{
    entry.refusal = refusal;
    return entry;
}

ScreenEntry notedBy(QString (*refusal)(const Settings &), ScreenEntry entry)
{
    entry.refusalIsNote = true;
    return refusedBy(refusal, std::move(entry));
}

} // namespace

std::vector<ScreenEntry> allScreens()
{
    return {
        screen<frmanyb>(u"frmanyb"_s, u"AnyBettor"_s, u"cmdreturn"_s),
        refusedBy(&bettorsRefusal,
                  screen<frmbettorsb>(u"frmbettorsb"_s, u"Bettor List"_s, u"cmdreturn"_s)),
        screen<frmboard>(u"frmboard"_s, u"Odds Board"_s, u"cmdreturn"_s),
        notedBy(&directoryRefusal, screen<frmdirb>(u"frmdirb"_s, u"Directory"_s, u"cmdreturn"_s)),
        screen<frmdrive>(u"frmdrive"_s, u"Main Computer to Thumb Drive"_s, u"cmdreturn"_s),
        screen<frmfixb>(u"frmfixb"_s, u"File Viewer"_s, u"cmdreturn"_s),
        screen<frmhelpb>(u"frmhelpb"_s, u"Help"_s, u"cmdreturn"_s),
        refusedBy(&horsesRefusal,
                  screen<frmhorsesb>(u"frmhorsesb"_s, u"Update Horses"_s, u"cmdmainmenu"_s)),
        screen<frmimportb>(u"frmimportb"_s, u"Import External Files"_s, u"cmdreturn"_s),
        screen<frminitb>(u"frminitb"_s, u"TRELAWN - Setup"_s, u"cmdexit"_s),
        screen<frmlistb>(u"frmlistb"_s, u"Bettor/Bets List"_s, u"cmdreturn"_s),
        screen<frmmainld>(u"frmmainld"_s, u"Thumb Drive to Main Computer"_s, u"cmdreturn"_s),
        screen<frmmc>(u"frmmc"_s, u"Multiple Computers"_s, u"cmdreturn"_s),
        screen<frmmenub>(u"frmmenub"_s, u"TRELAWN - Main Menu"_s, u"cmdexit"_s),
        screen<frmmulti>(u"frmmulti"_s, u"Multi-bet"_s, u"cmdreturn"_s),
        screen<frmpaymulti>(u"frmpaymulti"_s, u"Paymulti"_s, u"cmdreturn"_s),
        screen<frmpaywinnersb>(u"frmpaywinnersb"_s, u"Pay Winners"_s, u"cmdreturn"_s),
        screen<frmpractice>(u"frmpractice"_s, u"Practice"_s, u"cmdreturn"_s),
        screen<frmreportb>(u"frmreportb"_s, u"Print Reports"_s, u"cmdreturn"_s),
        screen<frmsatdrv>(u"frmsatdrv"_s, u"Thumb Drive to Satellite Computer"_s, u"cmdreturn"_s),
        screen<frmsatun>(u"frmsatun"_s, u"Satellite Computer to Thumb Drive"_s, u"cmdreturn"_s),
        screen<frmsheetbnw>(u"frmsheetbnw"_s, u"Using network files as master computer"_s,
                            u"cmdmainmenu"_s),
        screen<frmsheetb>(u"frmsheetb"_s, u"Bet Sheet using local files"_s, u"cmdmainmenu"_s),
        screen<frmsummb>(u"frmsummb"_s, u"Race Summary"_s, u"cmdreturn"_s),
        screen<frmsummmulti>(u"frmsummmulti"_s, u"Multi Bet Summary"_s, u"cmdreturn"_s),
    };
}
