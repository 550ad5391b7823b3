#pragma once

#include <QGridLayout>
#include <QList>
#include <QWidget>

#include <array>
#include <set>

class ClickCell;
class QLabel;
class QLineEdit;

// The 63 post number cells txtnum_0 to txtnum_62 of multibets: three lines of 21, each with its
// label txtgroup_0 to txtgroup_2. Lines count from 0, posts from 1. A click selects a cell or takes
// the selection back; arrows move between the cells. A line below, lblpost, names the horse of the
// cell under the mouse or in focus, else the horses that are selected.
class PostGrid : public QWidget
{
    Q_OBJECT

public:
    // How many cells of a line can be selected.
    enum class Selection { ManyPerLine, OnePerLine };

    explicit PostGrid(Selection selection, QWidget *parent = nullptr);

    void setLine(int line, const QString &label, const QString &labelTip, const QString &cellTip);
    void setLabel(int line, const QString &label);
    void setCellTip(int line, int post, const QString &tip);

    // What lblpost says of a cell: "Post 3: number 2 SECOND WIND".
    void setHorse(int line, int post, const QString &text);

    // Puts a control at the end of a line.
    void addAtEnd(int line, QWidget *control);

    // Shows only these posts on each line; a cell that is not shown is not selected. A line without
    // posts cannot be used.
    void showPosts(const std::array<std::set<int>, 3> &posts);

    // Whether a post number may be selected on several lines.
    void setRepeatsAllowed(bool allowed) { m_repeatsAllowed = allowed; }

    // Takes the selection back from posts that are selected on a line above too; says
    // duplicateRefused when there was one.
    void dropRepeats();

    void clearSelection();
    QList<int> selectedPosts(int line) const;

signals:
    // A cell was clicked whose post number is selected on another line; it stays unselected.
    void duplicateRefused();
    void selectionChanged();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    ClickCell *cell(int line, int post) const;
    void toggle(int line, int post);
    void setSelected(int index, bool selected);
    bool isSelectedElsewhere(int line, int post) const;
    bool moveFocus(int index, int key);
    void nameCell(int index);
    void showHorse();

    Selection m_selection;
    bool m_repeatsAllowed = true;
    QGridLayout *m_layout;
    std::array<QLineEdit *, 3> txtgroup{};
    std::array<ClickCell *, 63> txtnum{};
    std::array<bool, 63> m_selected{};
    std::array<QString, 63> m_horses;
    QLabel *lblpost;
};
