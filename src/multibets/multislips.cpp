#include "multibets/multislips.h"

#include "common/event/bettypes.h"
#include "common/print/format.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView sansSerif = u"MS Sans Serif";

// The rows of a blank sheet. The bars stand under each other when every character is as wide.
constexpr QStringView sheetRows[] = {
    u"|RACE|BET TYPE |                        HORSE POST NUMBER                   BOX      AMOUNT",
    u"|    |QUINELA  |(1) 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21  [___]    |      |",
    u"|    |TRIFECT  |                                                                    |      |",
    u"|    |DAILY D  |(2) 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21  [___]    |      |",
    u"|    |EXACTA   |                                                                    |      |",
    u"|    |PICK 3   |(3) 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21  [___]    |      |",
};
constexpr int blocksAPage = 8;

} // namespace

double receiptPoints(const Settings &settings)
{
    const double points = numericValue(settings.receiptFontSize);
    return points > 0 ? points : 8;
}

QString savedMultibetText(const Multibet &bet)
{
    QString text = leftColumn(bet.type, 2) + u' ' + formatMoney(bet.amount, "$#,#00.00") + u' '
                   + QString::number(bet.posts[0]) + u',' + QString::number(bet.posts[1]);
    if (bet.posts[2] != 0)
        text += u',' + QString::number(bet.posts[2]);
    return text;
}

Slip multibetReceipt(const QString &banner, const QString &bettor, const QList<Multibet> &bets,
                     double pointSize)
{
    Slip slip{sansSerif.toString(), pointSize, false, {}, 0};
    slip.addLine(banner + u"  "_s);
    slip.addLine(QString());
    slip.addLine(u"BET SUMMARY FOR "_s + bettor);
    slip.addLine(QString());
    slip.addLine(u"     AMT    NUMBERS"_s);
    for (const Multibet &bet : bets)
        slip.addLine(savedMultibetText(bet));
    slip.addLine(QString());
    slip.addLine(u"TOTAL BETS "_s + formatMoney(totalOf(bets), "$###0.00"));
    return slip;
}

Slip multibetRefundSlip(const QString &bettor, const QString &raceName,
                        const QList<Multibet> &refunded, double pointSize)
{
    Slip slip{sansSerif.toString(), pointSize, false, {}, 0};
    slip.addLine(u"Refund Bets for "_s + bettor + u" for"_s + raceName);
    for (const Multibet &bet : refunded)
        slip.addLine(savedMultibetText(bet));
    slip.addLine(QString());
    slip.addLine(u"Total Refund "_s + formatMoney(totalOf(refunded)));
    return slip;
}

Slip blankMultibetSheet()
{
    Slip slip{sansSerif.toString(), 8, false, {}, 0};
    slip.evenPitch = true;
    for (int block = 0; block < blocksAPage; ++block) {
        slip.startBlock();
        slip.addLine(u"NAME ______________________________    RACE ______    TOTAL $ __________"_s);
        slip.addLine(QString());
        for (const QStringView row : sheetRows)
            slip.addLine(row.toString());
        slip.addLine(QString());
        slip.addLine(QString());
    }
    return slip;
}

Slip multibetWinnersSlip(const QString &banner, const MultibetResult &result)
{
    const MultibetType *type = multibetType(result.type);
    Slip slip{sansSerif.toString(), 8, false, {}, 0};
    slip.addLine(banner + u' ' + (type ? type->name.toUpper() : QString()) + u' '
                 + u" List of Winners/Refunds"_s);
    slip.addLine(QString());
    for (const QString &line : result.lines) {
        if (line.isEmpty())
            break;
        slip.addLine(line);
    }
    const std::pair<QString, QString> figures[] = {{u"House Cut "_s, result.houseCut},
                                                   {u"Total Paid"_s, result.paid},
                                                   {u"Total Pool"_s, result.pool},
                                                   {u"$1 Ticket Pays "_s, result.ticketPays}};
    for (const auto &[label, value] : figures) {
        slip.addLine(QString());
        slip.addLine(zonedLine(label, value));
    }
    return slip;
}

Slip multibetSummarySlip(const QStringList &lines)
{
    Slip slip{sansSerif.toString(), 8, false, {}, 0};
    for (const QString &line : lines)
        slip.addLine(line);
    return slip;
}
