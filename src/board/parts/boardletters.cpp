#include "board/parts/boardletters.h"

#include "ui/scaling.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace {

constexpr double smallestShare = 0.6; // of the letters' size, before the text is cut

QFont boardFont(double pixels, bool isBold)
{
    QFont font = houseFont();
    font.setPixelSize(std::max(1, int(pixels)));
    font.setBold(isBold);
    return font;
}

} // namespace

void drawLetters(QPainter &painter, const QRectF &room, const QString &text,
                 const BoardLetters &letters)
{
    if (text.isEmpty())
        return;
    const double pixels =
        std::max(fittingPixels({text}, room.width(), letters.pixels, letters.isBold),
                 letters.pixels * smallestShare);
    QFont font = boardFont(pixels, letters.isBold);
    font.setStrikeOut(letters.isStruckOut);
    painter.setFont(font);
    painter.setPen(letters.color);
    const QString shown =
        QFontMetricsF(font).elidedText(text, Qt::ElideRight, std::max(0.0, room.width()));
    painter.drawText(
        room, int(letters.alignment | Qt::AlignVCenter) | Qt::TextSingleLine | Qt::TextDontClip,
        shown);
}

double lettersWidth(const QStringList &texts, double pixels, bool isBold)
{
    const QFontMetricsF metrics(boardFont(pixels, isBold));
    double widest = 0;
    for (const QString &text : texts)
        widest = std::max(widest, metrics.horizontalAdvance(text));
    return widest;
}

double fittingPixels(const QStringList &texts, double width, double wish, bool isBold)
{
    constexpr double margin = 0.98; // letters are whole pixels high
    const double widest = lettersWidth(texts, wish, isBold);
    return widest <= width ? wish : wish * margin * width / widest;
}
