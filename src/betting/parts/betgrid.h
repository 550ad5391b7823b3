#pragma once

#include "betting/placement.h"
#include "common/event/odds.h"

#include <QWidget>

class ClickCell;
class QGridLayout;
class QLineEdit;

// The grid of a bet sheet: a row a horse, with cells to click for win, place and show, totals and
// win odds. Posts without a horse have no row. Arrow keys move between the cells.
class BetGrid : public QWidget
{
    Q_OBJECT

public:
    explicit BetGrid(QWidget *parent = nullptr);

    void setHorses(const HorseTable &horses);

    // The odds of post p are at [p - 1].
    void setOdds(const std::array<std::string, postCount> &odds);

    void showEntries(const BetEntries &entries);

    // Puts the keyboard on the first horse's win cell.
    void focusFirstCell();

signals:
    void cellClicked(int post, BetType type);
    void emptied(int post, BetType type); // by the Delete key
    void moved();                         // from cell to cell

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addHeadings(QGridLayout *grid);
    void addRow(QGridLayout *grid, int post);
    void addTotals(QGridLayout *grid);
    void enter(int index, ClickCell *cell);
    void moveFocus(int rows, int columns);
    void focusCell(int post, int column);
    int focusedCell() const;
    void makeTabStop(ClickCell *cell);
    ClickCell *cellAt(int post, int column) const;
    int firstPost() const;

    std::array<QLineEdit *, 126> txtnumber{}; // 20 + h win, 41 + h place ... 104 + h odds
    std::array<QLineEdit *, postCount> txthorse{};
    std::array<QLineEdit *, postCount + 1> txthorsenumber{};
    QLineEdit *txtwintot;
    QLineEdit *txtplacetot;
    QLineEdit *txtshowtot;
    QLineEdit *txttotaltot;
    std::array<bool, postCount + 1> m_runs{};
    ClickCell *m_tabStop = nullptr;
};
