#include "setup/menurules.h"

using namespace Qt::StringLiterals;

QString menuBanner(const Settings &settings)
{
    return settings.banner == "Vefioze"_L1 ? settings.banner : settings.bannerAndRace();
}

QString clearBetsCaption(const Settings &settings)
{
    return "Clear/Refund "_L1 + settings.raceName() + " Bets"_L1;
}

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
