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

QString networkStatus(const Settings &settings)
{
    if (settings.networkMode == 0)
        return {};
    return settings.isNetworkMaster ? u"Using networked files as master computer"_s
                                    : u"Using networked files as satellite computer"_s;
}
