#include "board/parts/boardresult.h"

#include "board/parts/boardletters.h"
#include "ui/colors.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double placeWidth = 0.09; // shares of the width
constexpr double numberWidth = 0.09;
constexpr double nameWidth = 0.37;
constexpr double payWidth = 0.15;

constexpr double finishHead = 0.09; // shares of the height
constexpr double highestRow = 0.21;
constexpr double highestPayoff = 0.11;

class ResultPainter
{
public:
    ResultPainter(QPainter &painter, const QRectF &room, const BoardPicture &picture)
        : m_painter(painter)
        , m_room(room)
        , m_picture(picture)
    {
        // The payoffs of multibets stand in two columns below the finish.
        const qsizetype lines = (picture.payoffs.size() + 1) / 2;
        const auto below = double(lines);
        const double rows = double(picture.finish.size());
        const double free = room.height() * (1 - finishHead);
        m_payoffHeight = std::min(highestPayoff * room.height(), free / (2 * rows + below));
        m_rowHeight = std::min(highestRow * room.height(), (free - below * m_payoffHeight) / rows);
    }

    void paint()
    {
        double y = m_room.top();
        paintHead(y);
        y += m_room.height() * finishHead;
        for (qsizetype place = 0; place < m_picture.finish.size(); ++place, y += m_rowHeight)
            paintFinisher(place, y);
        y += m_payoffHeight * 0.2;
        for (qsizetype i = 0; i < m_picture.payoffs.size(); ++i) {
            const qsizetype line = i / 2;
            paintPayoff(m_picture.payoffs[i], i % 2, y + double(line) * m_payoffHeight);
        }
    }

private:
    QRectF column(double start, double width, double y, double height) const
    {
        const double gap = m_room.width() * 0.008;
        return QRectF(m_room.left() + start * m_room.width(), y, width * m_room.width(), height)
            .adjusted(gap, 0, -gap, 0);
    }

    static double payStart(int type) { return 1 - (3 - type) * payWidth; }

    void paintHead(double y)
    {
        const double height = m_room.height() * finishHead;
        const BoardLetters words{.pixels = height * 0.55, .color = m_colors.aside};
        drawLetters(m_painter, column(0, placeWidth + numberWidth + nameWidth, y, height),
                    u"The finish, and what $2 pays"_s, words);
        const QStringList heads{u"to win"_s, u"to place"_s, u"to show"_s};
        for (int type = 0; type < 3; ++type)
            drawLetters(
                m_painter, column(payStart(type), payWidth, y, height), heads[type],
                {.pixels = words.pixels, .color = m_colors.aside, .alignment = Qt::AlignRight});
    }

    void paintFinisher(qsizetype place, double y)
    {
        const BoardFinisher &finisher = m_picture.finish[place];
        if (place % 2 == 0)
            m_painter.fillRect(QRectF(m_room.left(), y, m_room.width(), m_rowHeight),
                               m_colors.otherGround);
        const QStringList places{u"1st"_s, u"2nd"_s, u"3rd"_s};
        const double letters = m_rowHeight * 0.5;
        const QRectF name = column(placeWidth + numberWidth, nameWidth, y, m_rowHeight);
        drawLetters(m_painter, column(0, placeWidth, y, m_rowHeight), places[place],
                    {.pixels = letters * 0.7, .color = m_colors.aside});
        drawLetters(m_painter, column(placeWidth, numberWidth, y, m_rowHeight), finisher.number,
                    {.pixels = letters, .color = m_colors.text, .isBold = true});
        drawLetters(m_painter, name, finisher.name,
                    {.pixels = namePixels(name.width(), letters), .color = m_colors.text});
        for (int type = 0; type < 3; ++type)
            drawLetters(m_painter, column(payStart(type), payWidth, y, m_rowHeight),
                        finisher.pays[std::size_t(type)],
                        {.pixels = letters,
                         .color = m_colors.odds,
                         .isBold = true,
                         .alignment = Qt::AlignRight});
    }

    // One size for all names.
    double namePixels(double width, double wish) const
    {
        QStringList names;
        for (const BoardFinisher &finisher : m_picture.finish)
            names += finisher.name;
        return std::max(fittingPixels(names, width, wish), 0.7 * wish);
    }

    void paintPayoff(const BoardPayoff &payoff, qsizetype side, double y)
    {
        const double start = double(side) * 0.51;
        const double letters = m_payoffHeight * 0.52;
        drawLetters(m_painter, column(start, 0.19, y, m_payoffHeight), payoff.name,
                    {.pixels = letters * 0.85, .color = m_colors.aside});
        drawLetters(m_painter, column(start + 0.19, 0.15, y, m_payoffHeight), payoff.horses,
                    {.pixels = letters, .color = m_colors.text, .isBold = true});
        drawLetters(m_painter, column(start + 0.34, 0.15, y, m_payoffHeight), payoff.pays,
                    {.pixels = letters,
                     .color = m_colors.odds,
                     .isBold = true,
                     .alignment = Qt::AlignRight});
    }

    QPainter &m_painter;
    const QRectF m_room;
    const BoardPicture &m_picture;
    const BoardColors &m_colors = boardColors();
    double m_payoffHeight;
    double m_rowHeight;
};

} // namespace

void paintBoardResult(QPainter &painter, const QRectF &room, const BoardPicture &picture)
{
    ResultPainter(painter, room, picture).paint();
}
