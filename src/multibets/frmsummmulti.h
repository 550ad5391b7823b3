#pragma once

#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QListWidget;
class QPushButton;

// What was bet on each multibet type of the current race.
class frmsummmulti : public QWidget
{
    Q_OBJECT

public:
    explicit frmsummmulti(const ScreenContext &context);

    void entered();

private:
    void build();
    void printSummary();

    ScreenContext m_context;
    QListWidget *lstsumm;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
