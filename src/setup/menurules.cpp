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
    switch (settings.networkMode) {
    case NetworkMode::Master:
        return u"Using networked files as master computer"_s;
    case NetworkMode::Satellite:
        return u"Using networked files as satellite computer"_s;
    case NetworkMode::Off:
        break;
    }
    return {};
}
