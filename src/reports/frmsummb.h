#pragma once

#include "common/event/racesummary.h"
#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QButtonGroup;
class QLineEdit;
class QPushButton;
class QTableWidget;

// The summary of a race: what was bet on each horse, and the odds. Its listings show who bet it.
class frmsummb : public QWidget
{
    Q_OBJECT

public:
    explicit frmsummb(const ScreenContext &context);

    void entered() { refresh(); }

private:
    void build();
    void connectControls();

    void chooseRace(int race);
    void refresh();
    void showSummary();
    void showRow(int row, const SummaryRow &shown, bool isTotal);
    void printSummary();
    void leave();
    bool read();

    ScreenContext m_context;
    RaceRecords m_race;
    RaceSummary m_summary;

    QLineEdit *txtbanner;
    QButtonGroup *optrace;
    QTableWidget *grdsumm;
    QPushButton *cmdrefresh;
    QPushButton *cmdbets;
    QPushButton *cmdtotals;
    QPushButton *cmdprint;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
