#pragma once

#include "common/event/bettors.h"

#include <QStringList>
#include <QWidget>

class QKeyEvent;
class QLineEdit;
class QListWidget;
class QPushButton;

// Finding a bettor: the search field txtname, the alphabetical list lstentries and the button
// cmdreset. Typing leads to the first name that begins with the text; Enter or a click chooses.
// Where no name holds a digit, a digit after the beginning of a single name chooses it too, and is
// typed where the owner then puts the keyboard.
class BettorSearch : public QWidget
{
    Q_OBJECT

public:
    // What typing does to the list.
    enum class Typing {
        MovesToName, // the list stays whole and moves to the name
        NarrowsList, // the list shows only the names that begin with the text
    };

    BettorSearch(Typing typing, const QString &resetCaption, const QString &resetToolTip,
                 QWidget *parent = nullptr);

    // Fills the list and empties the search text.
    void setBettors(const BettorTable &bettors);

    // Empties the search text and goes back to the top of the whole list.
    void reset();

    // Puts the cursor into the search field and selects what was typed there.
    void focusSearch();

signals:
    // A name was chosen. When Enter took the next one because no name begins with what was typed,
    // \a missed is what was typed.
    void selected(int number, const QString &name, const QString &missed);

    // cmdreset: the owner reads the bettors again and calls setBettors.
    void resetRequested();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void search(const QString &typed);
    void moveTo(int row);
    void step(int direction);
    void choose(int row, const QString &missed = {});
    void chooseFound();
    bool chooseOnly(const QKeyEvent &key);
    int rowFor(const QString &key) const;

    Typing m_typing;
    QLineEdit *txtname;
    QListWidget *lstentries;
    QPushButton *cmdreset;
    QStringList m_keys;        // of the list's rows
    QList<int> m_numbers;      // of the bettors in these
    bool m_wasStepped = false; // to the name that is marked, by arrow keys
};
