#pragma once

#include "betting/priorbets.h"
#include "common/event/placement.h"
#include "ui/navigator.h"
#include "ui/printing.h"

#include <QList>
#include <QWidget>

#include <functional>
#include <optional>
#include <utility>

class NoteLine;
class BetAmountPanel;
class BetGrid;
class BettorSearch;
class PriorBetsPanel;
class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

// What tells the bet sheets for local and for network files apart.
struct BetSheetKind
{
    // A button that leaves the sheet for another screen.
    struct Exit
    {
        QString button;
        QString caption;
        QString toolTip;
        QString screen;
    };

    QList<Exit> exits; // beside cmdbettors and cmdmainmenu, which both have
    QString deleteCaption;
    QString signToolTip;
    bool readsBettorsToPlace; // other computers may have added bettors since the sheet was opened
};
const BetSheetKind &localBetSheet();
const BetSheetKind &networkBetSheet();

// Taking win, place and show bets: everything of frmsheetb and frmsheetbnw.
class BetSheet : public QWidget
{
    Q_OBJECT

public:
    void entered();

protected:
    BetSheet(const ScreenContext &context, const BetSheetKind &kind);

    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    QWidget *buildHead();
    QWidget *buildBettorColumn();
    QWidget *buildGridColumn();
    QWidget *buildActionColumn();
    QPushButton *makeExit(QWidget *parent, const BetSheetKind::Exit &exit);
    void connectControls();

    bool trapped(const std::function<void()> &work);
    void note(const QString &text);
    void warn(const QString &text);

    void chooseRace(int race);
    void loadRace();
    void showOdds();
    void loadBettorList();
    void chooseBettor(int number, const QString &name, const QString &missed);
    bool mayThrowAway();
    void listPriorBets(int bettor, const QString &name);
    void showPrior(const PriorBets &prior);
    void addEntry(int post, BetType type);
    void emptyEntry(int post, BetType type);
    void clearEntries();
    void clearSheet();
    void undo();
    void bringBack();
    bool cardIsAsShown();
    void showUndo();
    void showEntries();
    void showBettor(bool isDoubtful = false);
    PlacementPlan plan() const;
    void place();
    bool bettorHolds(int number, const QString &name);
    bool cardHolds(PlacementPlan &asked);
    QString settledBefore() const;
    void listPlaced(const Placement &placement);
    void finishPlacement(const Placement &placement);
    void stopAtNegative(const PlacementPlan &plan);
    void deletePrior();
    Printed printRefund(const DeletedBets &deleted);
    void printReceipt();
    void switchReceipts();
    void showReceiptSetting();

    ScreenContext m_context;
    const BetSheetKind &m_kind;
    HorseTable m_horses; // of the current race
    PoolTable m_pools;   // of the current race as last read
    BetEntries m_entries;
    int m_bettor = 0; // number of the selected bettor, 0 for none
    QString m_bettorName;
    std::optional<BetEntries> m_cleared; // what Undo brings back: first this
    std::vector<Bet> m_deleted;          // then these, the selected bettor's
    PriorBets m_prior;                   // the listed ones; they stay listed after a placement

    BettorSearch *m_search;
    BetGrid *m_grid;
    BetAmountPanel *m_amount;
    PriorBetsPanel *m_priorPanel;
    QButtonGroup *m_races;
    QLineEdit *txtbanner;
    QLineEdit *txtbanner1;
    QLabel *lblselected;
    QLabel *lbltobeplaced;
    QPushButton *cmdplacebets;
    QPushButton *cmdclrentries;
    QPushButton *cmdundo;
    QPushButton *cmdprint;
    QHBoxLayout *m_gridFoot;
    NoteLine *lblnote;
};
