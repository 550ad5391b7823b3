#include "betting/parts/betgrid.h"

#include "common/print/format.h"
#include "ui/accessible.h"
#include "ui/clickcell.h"
#include "ui/controls.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>
#include <utility>

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
        return {Tone::Stopping, u"!"_s, true};
    case EntryFate::Dropped:
        return {Tone::Dropped, u"\u00d7"_s, false};
    case EntryFate::PlacedButNotPaid:
        return {Tone::Unpaid, u"?"_s, true};
    case EntryFate::Placed:
        break;
    }
    return {Tone::Placed, {}, true};
}

// Keys that only change what others mean.
bool goesWithKeys(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_CapsLock || key == Qt::Key_NumLock
           || key == Qt::Key_AltGr;
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
    for (auto *field : findChildren<TextCell *>(QString(), Qt::FindDirectChildrenOnly)) {
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
    TextCell *number = makeTextCell(this, memberName(u"txthorsenumber"_s, post),
                                    u"Number that the horse is wearing"_s);
    number->setAlignment(Qt::AlignCenter);
    fitCharacters(number, 3);
    TextCell *horse =
        makeTextCell(this, memberName(u"txthorse"_s, post - 1), u"Name of the horse"_s);
    grid->addWidget(number, post, 0);
    grid->addWidget(horse, post, 1);
    txthorsenumber[std::size_t(post)] = number;
    txthorse[std::size_t(post - 1)] = horse;
    int column = 0;
    for (const int base : columnBase) {
        const int index = base + post;
        TextCell *field = nullptr;
        if (column < betColumns) {
            ClickCell *cell = makeCell(this, memberName(u"txtnumber"_s, index));
            cell->setFocusPolicy(Qt::ClickFocus);
            connect(cell, &ClickCell::clicked, this, [this, index, cell] { enter(index, cell); });
            field = cell;
        } else {
            field = makeTextCell(this, memberName(u"txtnumber"_s, index));
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
        setTone(widget, Tone::Aside);
    }
    for (const int base : {rowTotalBase, oddsBase})
        setTone(txtnumber[std::size_t(base + post)], Tone::Aside);
}

void BetGrid::addTotals(QGridLayout *grid)
{
    const int row = postCount + 1;
    grid->addWidget(makeHeading(this, u"lbltotals"_s, u"TOTALS"_s), row, 0, 1, 2);
    const auto makeTotal = [&](const QString &name, int column, int columns, double size,
                               const QString &meaning) {
        TextCell *field = makeTextCell(this, name);
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
    m_calledColumn.reset();
    const bool hadFocus = focusWidget() && focusWidget()->hasFocus();
    for (const Horse &horse : horses) {
        const auto post = std::size_t(horse.post);
        const bool runs = !isUnused(horse);
        m_runs[post] = runs;
        txthorsenumber[post]->setText(runs ? horse.number : QString());
        txthorse[post - 1]->setText(runs ? horse.name : QString());
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
            nameCell(post, int(column), entries);
            rowEntered = rowEntered || entered;
            columnEntered[column] = columnEntered[column] || entered;
        }
        txtnumber[std::size_t(rowTotalBase + post)]->setText(
            numberText(rowEntered, entries.rowTotal(post)));
    }
    TextCell *const totals[] = {txtwintot, txtplacetot, txtshowtot};
    for (std::size_t column = 0; column < betColumns; ++column)
        totals[column]->setText(
            numberText(columnEntered[column], entries.columnTotal(betTypes[column])));
    txttotaltot->setText(numberText(!entries.isEmpty(), entries.total()));
}

// "SECOND WIND, number 1A, win, 3 dollars".
void BetGrid::nameCell(int post, int column, const BetEntries &entries)
{
    const auto at = std::size_t(post);
    if (!m_runs[at])
        return;
    const BetType type = betTypes[column];
    const QString bet = entries.isEntered(post, type)
                            ? spokenDollars(double(entries.amount(post, type)))
                            : u"no bet"_s;
    const QString name = txthorse[at - 1]->text() + u", number "_s + txthorsenumber[at]->text()
                         + u", "_s + QLatin1StringView(columnWords[column]) + u", "_s + bet;
    if (ClickCell *cell = cellAt(post, column); cell->accessibleName() != name)
        cell->setAccessibleName(name);
}

void BetGrid::enter(int index, ClickCell *cell)
{
    if (!m_runs[std::size_t((index - columnBase[0] - 1) % postCount + 1)])
        return;
    m_calledColumn.reset();
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
    m_calledColumn.reset();
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

void BetGrid::beginCall(int column)
{
    const int offset = focusedCell();
    if (offset < 0)
        return;
    focusCell(offset % postCount + 1, column);
    m_calledColumn = column;
    m_calledNumber.clear();
}

// Whether what was typed goes on with the number of a horse; goes to that horse.
bool BetGrid::extendCall(const QString &typed)
{
    if (!m_calledColumn || typed.isEmpty() || typed.front().isSpace())
        return false;
    const QString number = m_calledNumber + typed.toUpper();
    QList<int> meant;
    for (int post = 1; post <= postCount; ++post) {
        if (!m_runs[std::size_t(post)] || !horseNumber(post).startsWith(number))
            continue;
        if (horseNumber(post) == number)
            meant.prepend(post);
        else
            meant.append(post);
    }
    if (meant.isEmpty())
        return false;
    const int column = *m_calledColumn;
    focusCell(meant.first(), column);
    m_calledColumn = column;
    m_calledNumber = number;
    if (meant.size() == 1 && calledPost() != 0)
        finishCall();
    return true;
}

void BetGrid::finishCall()
{
    const int post = calledPost();
    const std::optional<int> column = std::exchange(m_calledColumn, {});
    if (column && post != 0)
        emit cellClicked(post, betTypes[*column]);
}

// The horse in focus, if it has the number that is being called; else 0.
int BetGrid::calledPost() const
{
    const int offset = focusedCell();
    if (offset < 0)
        return 0;
    const int post = offset % postCount + 1;
    return horseNumber(post) == m_calledNumber ? post : 0;
}

QString BetGrid::horseNumber(int post) const
{
    return txthorsenumber[std::size_t(post)]->text().trimmed().toUpper();
}

void BetGrid::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    const QString typed = isPlain ? event->text().toUpper() : QString();
    if (goesWithKeys(event->key()))
        return event->ignore();
    if (extendCall(typed))
        return;
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter || (!typed.isEmpty() && typed.front().isLetterOrNumber()))
        finishCall();
    m_calledColumn.reset();
    if (const auto column = QString(u"WPS"_s).indexOf(typed); column >= 0 && typed.size() == 1)
        return beginCall(int(column));
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
