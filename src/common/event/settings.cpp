#include "common/event/settings.h"

#include <QStringList>

using namespace Qt::StringLiterals;

QString Settings::receiptsState() const
{
    return receiptsPrint() ? u"Receipts will print"_s : u"Receipts will not print"_s;
}

void Settings::setReceiptPrinting(bool on)
{
    receiptPrinting = on;
    if (on)
        printerAttached = true;
}

void Settings::setRole(bool main, bool satellite)
{
    mainComputer = main;
    satelliteComputer = satellite;
}

QString Settings::raceName() const
{
    return ::raceName(currentRace);
}

QString raceName(int race)
{
    return " Race"_L1 + QString::number(race);
}

QString roundingText(int roundingIndex)
{
    static const QStringList texts{u"0.01"_s, u"0.10"_s, u"0.25"_s, u"0.50"_s, u"1.00"_s};
    return texts.value(roundingIndex - 1);
}

QString defaultBetSheetMessage()
{
    return u"Enter your bet amount for each horse to Win, Place, or Show.\n"
           "Calculate and print the Total Bet for this sheet. \n"
           "Bring your sheet to the cashier. It will be returned to you after your bets are "
           "entered. Save the \n"
           "sheet as a receipt. \n"
           "Use a new sheet to enter more bets. "_s;
}

int fontPoints(int fontIndex)
{
    return fontIndex >= 1 && fontIndex <= 7 ? 6 + 2 * fontIndex : 8;
}
