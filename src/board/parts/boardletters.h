#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

// Letters of the odds board, as large as they are wished and as there is room for.
struct BoardLetters
{
    double pixels = 0;
    QColor color = {};
    bool isBold = false;
    bool isStruckOut = false;
    Qt::Alignment alignment = Qt::AlignLeft;
};

// Draws one line of text in the middle of the height. A text that is too wide gets smaller letters
// first; what does not fit even then ends in dots.
void drawLetters(QPainter &painter, const QRectF &room, const QString &text,
                 const BoardLetters &letters);

// How wide the widest of the texts is.
double lettersWidth(const QStringList &texts, double pixels, bool isBold = false);

// The size in pixels, at most \a wish, in which each of the texts fits into the width: letters that
// stand in a column have one size.
double fittingPixels(const QStringList &texts, double width, double wish, bool isBold = false);
