#pragma once

#include "common/event/odds.h"
#include "common/event/placement.h"

#include <QWidget>

#include <optional>

class ClickCell;
class QGridLayout;
class TextCell;

// The grid of a bet sheet: a row a horse, with cells to click for win, place and show, totals and
// win odds. Posts without a horse have no row. Arrow keys move between the cells. W, P or S and a
// horse's number call a bet as bettors do: "to win on number 3"; it is made as soon as no other
// horse can be meant, else by Enter or the next key that does not belong to the number.
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

    // Makes the bet that was called, if a horse has the number so far.
    void finishCall();

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
    void nameCell(int post, int column, const BetEntries &entries);
    void enter(int index, ClickCell *cell);
    void moveFocus(int rows, int columns);
    void focusCell(int post, int column);
    void beginCall(int column);
    bool extendCall(const QString &typed);
    int calledPost() const;
    QString horseNumber(int post) const;
    int focusedCell() const;
    void makeTabStop(ClickCell *cell);
    ClickCell *cellAt(int post, int column) const;
    int firstPost() const;

    std::array<TextCell *, 126> txtnumber{}; // 20 + h win, 41 + h place ... 104 + h odds
    std::array<TextCell *, postCount> txthorse{};
    std::array<TextCell *, postCount + 1> txthorsenumber{};
    TextCell *txtwintot;
    TextCell *txtplacetot;
    TextCell *txtshowtot;
    TextCell *txttotaltot;
    std::array<bool, postCount + 1> m_runs{};
    ClickCell *m_tabStop = nullptr;
    std::optional<int> m_calledColumn; // of a bet that is being called
    QString m_calledNumber;            // as far as it is typed
};
