#pragma once

#include "betting/priorbets.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

// The list of a bettor's saved bets in the race, their sum, and the buttons that delete the
// selected ones and print the receipt again.
class PriorBetsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PriorBetsPanel(const QString &deleteCaption, QWidget *parent = nullptr);

    void showBets(const PriorBets &prior);

    // The selected lines, 0-based, first to last.
    QList<int> selectedLines() const;

signals:
    void deleteRequested();
    void receiptRequested();

private:
    QLabel *lblpriorbettor;
    QListWidget *lstpriorbets;
    QLineEdit *txttotprior;
};
