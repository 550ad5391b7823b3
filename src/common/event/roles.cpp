#include "common/event/roles.h"

using namespace Qt::StringLiterals;

void startWithoutRole(Session &session)
{
    session.settings.clearRole();
    session.addedBets.clear();
}

QString bettorsRefusal(const Settings &settings)
{
    if (settings.isSatelliteComputer())
        return u"Bettor update not permitted in satellite computer mode"_s;
    return {};
}

QString horsesRefusal(const Settings &settings)
{
    if (settings.isSatelliteComputer())
        return u"Horses update not permitted in satellite computer mode"_s;
    if (settings.isMainComputer())
        return u"Horses update not permitted in multiple computer mode"_s;
    return {};
}

QString directoryRefusal(const Settings &settings)
{
    return !settings.isNetworked() ? QString() : u"End networked betting on the main menu first."_s;
}

bool sharesBettors(const Settings &settings)
{
    return settings.isMainComputer() || settings.isNetworked();
}

QString betSheetScreen(const Settings &settings)
{
    return settings.isNetworked() ? u"frmsheetbnw"_s : u"frmsheetb"_s;
}
