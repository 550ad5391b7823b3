#pragma once

#include <QListWidget>

// A list of people to be paid: a name or line, what it is worth on the right, and a tick before
// those who were paid already. Long names are cut with dots, never the amounts.
class PaidList : public QListWidget
{
    Q_OBJECT

public:
    explicit PaidList(QWidget *parent = nullptr);

    // A line that is in no list yet. The item's text is \a text alone.
    static QListWidgetItem *makeLine(const QString &text, const QString &amount = {});

    // Ticks the line, with \a paid, such as "paid $16.00 at 20:41", in its tip and for screen
    // readers; an empty text takes the tick away.
    static void mark(QListWidgetItem *item, const QString &paid);
    static bool isMarked(const QListWidgetItem *item);
};
