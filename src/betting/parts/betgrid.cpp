#include "betting/parts/betgrid.h"

#include "common/print/format.h"
#include "ui/controls.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// First index of each column of the control array, less one; a row's cell is this plus its post.
constexpr int columnBase[] = {20, 41, 62, 83, 104};
constexpr int betColumns = 3;
constexpr int rowTotalBase = columnBase[3];
constexpr int oddsBase = columnBase[4];

constexpr BetType betTypes[] = {BetType::Win, BetType::Place, BetType::Show};
constexpr const char *columnWords[] = {"win", "place", "show", "total", "odds"};

QString numberText(bool entered, float dollars)
{
    return entered ? plainNumber(dollars) : QString();
}

// What a cell looks like tells what will become of it.
ClickCell::Mark markOf(EntryFate fate)
{
    switch (fate) {
    case EntryFate::StopsPlacing:
        return {QColor(0xff, 0xb3, 0xa8), QColor(0xa1, 0x16, 0x0e), u"!"_s, true};
    case EntryFate::Dropped:
        return {QColor(0xff, 0xe8, 0x9c), QColor(0x7d, 0x52, 0x00), u"\u00d7"_s, false};
    case EntryFate::PlacedButNotPaid:
        return {QColor(0xff, 0xd0, 0x8a), QColor(0x7d, 0x3a, 0x00), u"?"_s, true};
    case EntryFate::Placed:
        break;
    }
    return {QColor(0xd3, 0xee, 0xd9), QColor(0x1f, 0x6b, 0x3f), {}, true};
}

void tint(QWidget *cell, const QColor &color)
{
    QPalette palette = cell->palette();
    if (palette.color(QPalette::Base) == color)
        return;
    palette.setColor(QPalette::Base, color);
    cell->setPalette(palette);
}

} // namespace

BetGrid::BetGrid(QWidget *parent)
    : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(2);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, fontMetrics().horizontalAdvance(u"MMMMMMMMMMMM"_s));
    addHeadings(grid);
    for (int post = 1; post <= postCount; ++post)
        addRow(grid, post);
    addTotals(grid);
    grid->addItem(new QSpacerItem(0, 0, QSizePolicy::Minimum, QSizePolicy::Expanding),
                  postCount + 2, 0);
    // Rows share the height there is, from their text's height to what can be hit in a hurry.
    for (auto *field : findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly)) {
        field->setSizePolicy(field->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
        field->setMaximumHeight(40);
    }
}

void BetGrid::addHeadings(QGridLayout *grid)
{
    struct Heading
    {
        QString name;
        QString caption;
        QString toolTip;
    };
    const Heading headings[] = {
        {u"lblnumber"_s, u"NO."_s, u"Number that the horse is wearing"_s},
        {u"lblhorse"_s, u"HORSE"_s, u"Name of the horse"_s},
        {u"lblwin"_s, u"$WIN"_s, {}},
        {u"lblplace"_s, u"$PLACE"_s, {}},
        {u"lblshow"_s, u"$SHOW"_s, {}},
        {u"lbltotal"_s, u"$TOTAL"_s, {}},
        {u"lblodds"_s, u"ODDS"_s,
         u"Odds of this horse coming in first based on total win bets vs all bets"_s},
    };
    int column = 0;
    for (const Heading &heading : headings) {
        QLabel *label = makeHeading(this, heading.name, heading.caption, heading.toolTip);
        if (column != 1)
            label->setAlignment(Qt::AlignCenter);
        grid->addWidget(label, 0, column++);
    }
}

void BetGrid::addRow(QGridLayout *grid, int post)
{
    const QString row = u"Post "_s + QString::number(post) + u' ';
    QLineEdit *number = makeDisplay(this, memberName(u"txthorsenumber"_s, post),
                                    u"Number that the horse is wearing"_s);
    number->setAlignment(Qt::AlignCenter);
    fitCharacters(number, 3);
    QLineEdit *horse =
        makeDisplay(this, memberName(u"txthorse"_s, post - 1), u"Name of the horse"_s);
    grid->addWidget(number, post, 0);
    grid->addWidget(horse, post, 1);
    txthorsenumber[std::size_t(post)] = number;
    txthorse[std::size_t(post - 1)] = horse;
    int column = 0;
    for (const int base : columnBase) {
        const int index = base + post;
        QLineEdit *field = nullptr;
        if (column < betColumns) {
            ClickCell *cell = makeCell(this, memberName(u"txtnumber"_s, index));
            cell->setFocusPolicy(Qt::ClickFocus);
            connect(cell, &ClickCell::clicked, this, [this, index, cell] { enter(index, cell); });
            field = cell;
        } else {
            field = makeDisplay(this, memberName(u"txtnumber"_s, index));
        }
        field->setAlignment(column < 4 ? Qt::AlignRight : Qt::AlignCenter);
        field->setAccessibleName(row + QLatin1StringView(columnWords[column]));
        fitCharacters(field, base == oddsBase ? 4 : 6);
        // Headings keep apart while a race has no horse.
        grid->setColumnMinimumWidth(2 + column, field->minimumWidth());
        grid->addWidget(field, post, 2 + column++);
        txtnumber[std::size_t(index)] = field;
    }
    for (QWidget *widget : {number, horse}) {
        widget->setAccessibleName(row + (widget == number ? u"number"_s : u"name"_s));
        tint(widget, QColor(0xf4, 0xf7, 0xf4));
    }
    for (const int base : {rowTotalBase, oddsBase})
        tint(txtnumber[std::size_t(base + post)], QColor(0xf4, 0xf7, 0xf4));
}

void BetGrid::addTotals(QGridLayout *grid)
{
    const int row = postCount + 1;
    grid->addWidget(makeHeading(this, u"lbltotals"_s, u"TOTALS"_s), row, 0, 1, 2);
    const auto makeTotal = [&](const QString &name, int column, int columns, double size,
                               const QString &meaning) {
        QLineEdit *field = makeDisplay(this, name);
        field->setAlignment(Qt::AlignRight);
        field->setAccessibleName(meaning);
        enlarge(field, size);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
        grid->addWidget(field, row, column, 1, columns);
        return field;
    };
    txtwintot = makeTotal(u"txtwintot"_s, 2, 1, 1.1, u"Total of win bets on this sheet"_s);
    txtplacetot = makeTotal(u"txtplacetot"_s, 3, 1, 1.1, u"Total of place bets on this sheet"_s);
    txtshowtot = makeTotal(u"txtshowtot"_s, 4, 1, 1.1, u"Total of show bets on this sheet"_s);
    // The grand total is larger and takes the room below the odds as well.
    txttotaltot = makeTotal(u"txttotaltot"_s, 5, 2, 1.5, u"Total of this sheet"_s);
}

void BetGrid::setHorses(const HorseTable &horses)
{
    const bool hadFocus = focusWidget() && focusWidget()->hasFocus();
    for (const Horse &horse : horses) {
        const auto post = std::size_t(horse.post);
        const bool runs = !isUnused(horse);
        m_runs[post] = runs;
        txthorsenumber[post]->setText(runs ? horse.number : QString());
        txthorse[post - 1]->setText(runs ? horse.name : QString());
        txthorse[post - 1]->setCursorPosition(0);
        txthorsenumber[post]->setVisible(runs);
        txthorse[post - 1]->setVisible(runs);
        for (const int base : columnBase)
            txtnumber[std::size_t(base) + post]->setVisible(runs);
    }
    if (const int first = firstPost(); first != 0) {
        makeTabStop(cellAt(first, 0));
        if (hadFocus)
            m_tabStop->setFocus();
    }
}

void BetGrid::setOdds(const std::array<std::string, postCount> &odds)
{
    for (int post = 1; post <= postCount; ++post) {
        const bool runs = m_runs[std::size_t(post)];
        txtnumber[std::size_t(oddsBase + post)]->setText(
            runs ? QString::fromStdString(odds[std::size_t(post - 1)]) : QString());
    }
}

void BetGrid::showEntries(const BetEntries &entries)
{
    std::array<bool, betColumns> columnEntered{};
    for (int post = 1; post <= postCount; ++post) {
        bool rowEntered = false;
        for (std::size_t column = 0; column < betColumns; ++column) {
            const BetType type = betTypes[column];
            const bool entered = entries.isEntered(post, type);
            const float dollars = entries.amount(post, type);
            ClickCell *cell = cellAt(post, int(column));
            cell->setText(numberText(entered, dollars));
            cell->setMark(entered && dollars != 0 ? markOf(fateOf(dollars)) : ClickCell::Mark());
            rowEntered = rowEntered || entered;
            columnEntered[column] = columnEntered[column] || entered;
        }
        txtnumber[std::size_t(rowTotalBase + post)]->setText(
            numberText(rowEntered, entries.rowTotal(post)));
    }
    QLineEdit *const totals[] = {txtwintot, txtplacetot, txtshowtot};
    for (std::size_t column = 0; column < betColumns; ++column)
        totals[column]->setText(
            numberText(columnEntered[column], entries.columnTotal(betTypes[column])));
    txttotaltot->setText(numberText(!entries.isEmpty(), entries.total()));
}

void BetGrid::enter(int index, ClickCell *cell)
{
    if (!m_runs[std::size_t((index - columnBase[0] - 1) % postCount + 1)])
        return;
    makeTabStop(cell);
    const int cellOffset = index - columnBase[0] - 1;
    emit cellClicked(cellOffset % postCount + 1, betTypes[cellOffset / postCount]);
}

ClickCell *BetGrid::cellAt(int post, int column) const
{
    return static_cast<ClickCell *>(txtnumber[std::size_t(columnBase[column] + post)]);
}

int BetGrid::firstPost() const
{
    const auto first = std::ranges::find(m_runs, true);
    return first == m_runs.end() ? 0 : int(first - m_runs.begin());
}

// The grid is one stop of the Tab key: the cell used last.
void BetGrid::makeTabStop(ClickCell *cell)
{
    if (m_tabStop)
        m_tabStop->setFocusPolicy(Qt::ClickFocus);
    m_tabStop = cell;
    m_tabStop->setFocusPolicy(Qt::StrongFocus);
}

void BetGrid::focusCell(int post, int column)
{
    makeTabStop(cellAt(post, column));
    m_tabStop->setFocus(Qt::OtherFocusReason);
    emit moved();
}

void BetGrid::focusFirstCell()
{
    if (const int first = firstPost(); first != 0)
        focusCell(first, 0);
}

void BetGrid::moveFocus(int rows, int columns)
{
    const int offset = focusedCell();
    if (offset < 0)
        return;
    int post = offset % postCount + 1;
    const int column = offset / postCount + columns;
    do
        post += rows;
    while (rows != 0 && post >= 1 && post <= postCount && !m_runs[std::size_t(post)]);
    if (post >= 1 && post <= postCount && column >= 0 && column < betColumns)
        focusCell(post, column);
}

// Counted down the win column first; -1 when none has the keyboard.
int BetGrid::focusedCell() const
{
    for (int offset = 0; offset < betColumns * postCount; ++offset) {
        if (txtnumber[std::size_t(columnBase[0] + 1 + offset)]->hasFocus())
            return offset;
    }
    return -1;
}

void BetGrid::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        return moveFocus(-1, 0);
    case Qt::Key_Down:
        return moveFocus(1, 0);
    case Qt::Key_Left:
        return moveFocus(0, -1);
    case Qt::Key_Right:
        return moveFocus(0, 1);
    case Qt::Key_Delete:
        if (const int offset = focusedCell(); offset >= 0)
            emit emptied(offset % postCount + 1, betTypes[offset / postCount]);
        return;
    default:
        event->ignore();
    }
}
