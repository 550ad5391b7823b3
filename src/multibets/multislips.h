#pragma once

#include "common/event/multibetrecords.h"
#include "common/event/settings.h"
#include "common/print/slip.h"
#include "multibets/multisettle.h"

#include <QList>
#include <QString>
#include <QStringList>

// The receipt font size in points, 8 while none is set.
double receiptPoints(const Settings &settings);

// The bet as lists of saved bets show it: "EX $02.00 4,7".
QString savedMultibetText(const Multibet &bet);

// The receipt after saving: all of the bettor's multibets of the race.
Slip multibetReceipt(const QString &banner, const QString &bettor, const QList<Multibet> &bets,
                     double pointSize);

// The refund slip for deleted multibets. \a raceName has its leading blank.
Slip multibetRefundSlip(const QString &bettor, const QString &raceName,
                        const QList<Multibet> &refunded, double pointSize);

// A page of blank multibet sheets, to be filled in by hand.
Slip blankMultibetSheet();

// What the payoff screen shows, as its printed list needs it.
struct MultibetResult
{
    QString type; // code of the bet type
    QStringList lines;
    QString houseCut;
    QString paid;
    QString pool;
    QString ticketPays;
};
Slip multibetWinnersSlip(const QString &banner, const MultibetResult &result);

// The summary, one printed line a line.
Slip multibetSummarySlip(const QStringList &lines);
