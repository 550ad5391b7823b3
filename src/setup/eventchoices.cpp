#include "setup/eventchoices.h"

#include "common/event/init.h"
#include "common/files/fileerror.h"

#include <QStringList>

#include <utility>

using namespace Qt::StringLiterals;

QString receiptsCaption(const Settings &settings)
{
    return settings.receiptsPrint() ? u"Bet receipts will print"_s
                                    : u"Bet receipts will not print"_s;
}

QString roundingCaption(const Settings &settings)
{
    return "Round payoff to nearest "_L1 + roundingText(settings.roundingIndex);
}

QString fontCaption(const Settings &settings)
{
    return "Print Font size is "_L1 + QString::number(fontPoints(settings.fontIndex));
}

void stepRounding(Settings &settings)
{
    settings.roundingIndex = settings.roundingIndex % 5 + 1;
}

bool setReceiptFontSize(Settings &settings, const QString &answer)
{
    static const QStringList sizes{u"8"_s, u"10"_s, u"12"_s, u"14"_s};
    const QString size = answer.trimmed();
    if (!sizes.contains(size))
        return false;
    settings.receiptFontSize = size;
    return true;
}

void changeBanner(Session &session, const QString &text)
{
    const QString before = std::exchange(session.settings.banner, bannerOf(session, text));
    try {
        saveInit(session, InitWriter::Setup);
    } catch (const FileError &) {
        session.settings.banner = before;
        throw;
    }
}

void changeRace(Session &session, int race)
{
    session.settings.currentRace = race;
    saveInit(session);
}
