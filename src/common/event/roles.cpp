#include "common/event/roles.h"

using namespace Qt::StringLiterals;

QString bettorsRefusal(const Settings &settings)
{
    if (settings.satelliteComputer == "yes"_L1)
        return u"Bettor update not permitted in satellite computer mode"_s;
    return {};
}

QString horsesRefusal(const Settings &settings)
{
    if (settings.satelliteComputer == "yes"_L1)
        return u"Horses update not permitted in satellite computer mode"_s;
    if (settings.mainComputer == "yes"_L1)
        return u"Horses update not permitted in multiple computer mode"_s;
    return {};
}

QString directoryRefusal(const Settings &settings)
{
    return settings.networkMode == 0 ? QString()
                                     : u"End networked betting on the main menu first."_s;
}

bool sharesBettors(const Settings &settings)
{
    return settings.mainComputer == "yes"_L1 || settings.networkMode == 1;
}

QString betSheetScreen(const Settings &settings)
{
    return settings.networkMode == 1 ? u"frmsheetbnw"_s : u"frmsheetb"_s;
}
