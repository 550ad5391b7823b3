#include "board/parts/boardview.h"

#include "board/parts/boardletters.h"
#include "board/parts/boardresult.h"
#include "board/parts/boardtable.h"
#include "ui/colors.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr double headerShare = 0.105; // of the height
constexpr double footerShare = 0.105; // two lines
constexpr double marginShare = 0.012; // of the width

// "Exacta $24   Trifecta $12".
QString poolsInWords(const QList<BoardPool> &pools)
{
    QStringList words;
    for (const BoardPool &pool : pools)
        words += pool.name + u' ' + boardDollars(pool.dollars);
    return words.isEmpty() ? u"no multibets yet"_s : words.join(u"    "_s);
}

QString backedInWords(const BoardPicture &picture)
{
    if (!picture.finish.isEmpty())
        return u"All pools "_s + boardDollars(double(picture.pools[3]));
    if (picture.mostBacked < 0)
        return u"No bets yet"_s;
    const BoardRow &row = picture.rows[picture.mostBacked];
    return u"Most backed: "_s + row.number + u' ' + row.name() + u", "_s
           + boardDollars(double(row.total()));
}

} // namespace

BoardView::BoardView(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"board"_s);
    setAccessibleName(u"Odds board"_s);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void BoardView::setPicture(const BoardPicture &picture)
{
    if (picture == m_picture)
        return;
    m_picture = picture;
    setAccessibleDescription(boardText(picture).join(u'\n'));
    update();
}

void BoardView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), boardColors().ground);
    const double margin = width() * marginShare;
    const double header = height() * headerShare;
    const double footer = height() * footerShare;
    paintHeader(painter, QRectF(0, 0, width(), header));
    const QRectF middle(margin, header + margin * 0.5, width() - 2 * margin,
                        height() - header - footer - margin);
    if (!m_picture.finish.isEmpty())
        paintBoardResult(painter, middle, m_picture);
    else if (!m_picture.rows.isEmpty())
        paintBoardTable(painter, middle, m_picture);
    else if (m_picture.note.isEmpty())
        drawLetters(painter, middle, u"No horses yet"_s,
                    {.pixels = height() * 0.1,
                     .color = boardColors().aside,
                     .alignment = Qt::AlignHCenter});
    paintFooter(painter, QRectF(margin, height() - footer, width() - 2 * margin, footer));
}

void BoardView::paintHeader(QPainter &painter, const QRectF &room) const
{
    const BoardColors &colors = boardColors();
    painter.fillRect(room, colors.head);
    const double margin = room.width() * marginShare;
    const double letters = room.height() * 0.66;
    const double race = room.width() * 0.3;
    drawLetters(painter, room.adjusted(margin, 0, -race - margin, 0), m_picture.banner,
                {.pixels = letters * 0.85, .color = colors.text});
    QString right = u"Race "_s + QString::number(m_picture.race);
    if (!m_picture.finish.isEmpty())
        right += u" result"_s;
    drawLetters(
        painter, room.adjusted(room.width() - race, 0, -margin, 0), right,
        {.pixels = letters, .color = colors.text, .isBold = true, .alignment = Qt::AlignRight});
}

void BoardView::paintFooter(QPainter &painter, const QRectF &room) const
{
    const BoardColors &colors = boardColors();
    const double line = room.height() / 2;
    const BoardLetters words{.pixels = line * 0.62, .color = colors.text};
    const QRectF first(room.left(), room.top(), room.width(), line);
    drawLetters(painter, first, u"Multibets: "_s + poolsInWords(m_picture.multibets), words);
    const bool hasNote = !m_picture.note.isEmpty();
    const QRectF second = first.translated(0, line);
    drawLetters(painter, second.adjusted(0, 0, hasNote ? -room.width() * 0.42 : 0, 0),
                backedInWords(m_picture), words);
    if (hasNote)
        drawLetters(painter, second.adjusted(room.width() * 0.6, 0, 0, 0), m_picture.note,
                    {.pixels = words.pixels, .color = colors.notice, .alignment = Qt::AlignRight});
}
