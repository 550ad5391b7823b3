#include "board/parts/boardtable.h"

#include "board/parts/boardletters.h"
#include "ui/colors.h"

#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double fewestRows = 6;      // a row is never higher than the room for so many
constexpr double headShare = 0.62;    // of a row's height
constexpr double lettersShare = 0.62; // of a row's height
constexpr double barShare = 0.13;     // of a row's height
constexpr double gapShare = 0.012;    // of the width, between columns
constexpr double nameShare = 0.36;    // of the width, at least
constexpr double moneyShare = 0.115;  // of the width, at least where there is room

// The columns of the table; that of the name takes what the others leave.
enum Column { Number, Name, Odds, Move, Win, Place, Show, ColumnCount };

QString moveSign(OddsMove move)
{
    return (move == OddsMove::Rising ? u"▲ "_s : u"▼ "_s) + moveText(move);
}

class TablePainter
{
public:
    TablePainter(QPainter &painter, const QRectF &room, const BoardPicture &picture)
        : m_painter(painter)
        , m_room(room)
        , m_picture(picture)
    {
        const double rows = double(picture.rows.size()) + 1 + headShare; // and the totals
        m_rowHeight = room.height() / std::max(rows, fewestRows);
        m_letters = m_rowHeight * lettersShare;
        fitColumns();
    }

    void paint()
    {
        double y = m_room.top();
        paintHead(y);
        y += m_rowHeight * headShare;
        for (const BoardRow &row : m_picture.rows) {
            const bool isOther = (&row - m_picture.rows.constData()) % 2 == 0;
            if (isOther)
                m_painter.fillRect(QRectF(m_room.left(), y, m_room.width(), m_rowHeight),
                                   m_colors.otherGround);
            paintRow(row, y);
            y += m_rowHeight;
        }
        paintTotals(y);
    }

private:
    QRectF cell(int column, double y, double height) const
    {
        const std::size_t at = std::size_t(column);
        return {m_starts[at], y, m_widths[at], height};
    }

    // One size of letters for each column. They are measured with what usually comes, so that
    // nothing moves with every bet.
    void fitColumns()
    {
        QStringList numbers{u"10"_s};
        QStringList odds{u"99/1"_s};
        QStringList money{u"$1,000"_s};
        for (const float dollars : m_picture.pools)
            money += boardDollars(double(dollars));
        for (const BoardRow &row : m_picture.rows) {
            numbers += row.number;
            odds += row.odds;
            for (const float dollars : row.money) {
                money += boardDollars(double(dollars));
                m_mostMoney = std::max(m_mostMoney, dollars);
            }
        }
        const double gap = m_room.width() * gapShare;
        m_pixels = {m_letters, m_letters, 1.15 * m_letters, 0.75 * m_letters};
        m_pixels[Win] = m_pixels[Place] = m_pixels[Show] = 0.9 * m_letters;
        m_widths[Number] = lettersWidth(numbers, m_pixels[Number], true);
        m_widths[Odds] = lettersWidth(odds, m_pixels[Odds], true);
        m_widths[Move] =
            lettersWidth({moveSign(OddsMove::Rising), moveSign(OddsMove::Falling)}, m_pixels[Move]);
        m_widths[Win] = m_widths[Place] = m_widths[Show] = lettersWidth(money, m_pixels[Win], true);
        shareWidth(m_room.width() - (ColumnCount - 1) * gap);
        double start = m_room.left();
        for (std::size_t column = 0; column < ColumnCount; start += m_widths[column++] + gap)
            m_starts[column] = start;
    }

    // Smaller letters where they would leave too little for the names, longer bars where there is
    // room for them.
    void shareWidth(double width)
    {
        constexpr double slack = 1.04; // letters of another size are not as wide as that would be
        double fixed = 0;
        for (double &each : m_widths)
            fixed += each *= slack;
        const double most = width * (1 - nameShare);
        const double scale = std::min(1.0, most / fixed);
        for (const int column : {Number, Odds, Move, Win, Place, Show}) {
            m_pixels[std::size_t(column)] *= scale;
            m_widths[std::size_t(column)] *= scale;
        }
        const double money = m_widths[Win];
        const double wider = std::min(width * moneyShare, money + (most - fixed * scale) / 3);
        m_widths[Win] = m_widths[Place] = m_widths[Show] = std::max(money, wider);
        m_widths[Name] = width - std::min(fixed * scale, most) - 3 * (m_widths[Win] - money);
    }

    void paintHead(double y)
    {
        const double height = m_rowHeight * headShare;
        const double wish = std::min(height * 0.75, m_room.height() * 0.036);
        const QStringList heads{u"No."_s, u"Horse"_s, u"Odds"_s, QString(),
                                u"Win"_s, u"Place"_s, u"Show"_s};
        for (int column = 0; column < heads.size(); ++column) {
            const auto alignment = column >= Win || column == Odds ? Qt::AlignRight : Qt::AlignLeft;
            drawLetters(m_painter, cell(column, y, height), heads[column],
                        {.pixels = wish, .color = m_colors.aside, .alignment = alignment});
        }
    }

    void paintRow(const BoardRow &row, double y)
    {
        const QColor words = row.isScratched ? m_colors.aside : m_colors.text;
        drawLetters(m_painter, cell(Number, y, m_rowHeight), row.number,
                    {.pixels = m_pixels[Number], .color = words, .isBold = true});
        paintNames(row, y, words);
        if (row.isScratched) {
            const QRectF rest = cell(Odds, y, m_rowHeight).united(cell(Win, y, m_rowHeight));
            drawLetters(m_painter, rest, u"SCRATCHED"_s,
                        {.pixels = m_letters, .color = m_colors.notice, .isBold = true});
            return;
        }
        drawLetters(m_painter, cell(Odds, y, m_rowHeight), row.odds.isEmpty() ? u"–"_s : row.odds,
                    {.pixels = m_pixels[Odds],
                     .color = m_colors.odds,
                     .isBold = true,
                     .alignment = Qt::AlignRight});
        if (row.move != OddsMove::None)
            drawLetters(
                m_painter, cell(Move, y, m_rowHeight), moveSign(row.move),
                {.pixels = m_pixels[Move],
                 .color = row.move == OddsMove::Rising ? m_colors.rising : m_colors.falling});
        for (int type = 0; type < 3; ++type)
            paintMoney(type, row.money[std::size_t(type)], y);
    }

    // The two horses of an entry stand one below the other where one line is too short for them.
    void paintNames(const BoardRow &row, double y, const QColor &color)
    {
        const QRectF room = cell(Name, y, m_rowHeight);
        BoardLetters letters{.pixels = m_letters, .color = color, .isStruckOut = row.isScratched};
        if (row.names.size() != 2 || lettersWidth({row.name()}, m_letters) <= room.width())
            return drawLetters(m_painter, room, row.name(), letters);
        letters.pixels *= 0.7;
        const double line = m_rowHeight * 0.45;
        for (int i = 0; i < 2; ++i)
            drawLetters(m_painter,
                        QRectF(room.left(), y + 0.05 * m_rowHeight + i * line, room.width(), line),
                        row.names[i], letters);
    }

    // The dollars, and below them a bar that is as long as they are many.
    void paintMoney(int type, float dollars, double y)
    {
        const QRectF room = cell(Win + type, y, m_rowHeight);
        const double bar = m_rowHeight * barShare;
        drawLetters(m_painter, room.adjusted(0, 0, 0, -bar), boardDollars(double(dollars)),
                    {.pixels = m_pixels[Win],
                     .color = dollars == 0 ? m_colors.aside : m_colors.text,
                     .alignment = Qt::AlignRight});
        if (dollars <= 0)
            return;
        const double length = std::max(1.0, room.width() * double(dollars / m_mostMoney));
        m_painter.fillRect(QRectF(room.right() - length, room.bottom() - 1.3 * bar, length, bar),
                           m_colors.bars[std::size_t(type)]);
    }

    void paintTotals(double y)
    {
        m_painter.fillRect(QRectF(m_room.left(), y, m_room.width(), m_room.height() * 0.003),
                           m_colors.aside);
        drawLetters(m_painter, cell(Name, y, m_rowHeight),
                    u"All pools "_s + boardDollars(double(m_picture.pools[3])),
                    {.pixels = m_pixels[Win], .color = m_colors.text, .isBold = true});
        for (int type = 0; type < 3; ++type)
            drawLetters(m_painter, cell(Win + type, y, m_rowHeight),
                        boardDollars(double(m_picture.pools[std::size_t(type)])),
                        {.pixels = m_pixels[Win],
                         .color = m_colors.text,
                         .isBold = true,
                         .alignment = Qt::AlignRight});
    }

    QPainter &m_painter;
    const QRectF m_room;
    const BoardPicture &m_picture;
    const BoardColors &m_colors = boardColors();
    double m_rowHeight;
    double m_letters;
    std::array<double, ColumnCount> m_pixels{}; // of the letters
    std::array<double, ColumnCount> m_widths{};
    std::array<double, ColumnCount> m_starts{};
    float m_mostMoney = 0;
};

} // namespace

void paintBoardTable(QPainter &painter, const QRectF &room, const BoardPicture &picture)
{
    TablePainter(painter, room, picture).paint();
}
