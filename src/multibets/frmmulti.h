#pragma once

#include "multibets/expansion.h"
#include "multibets/multibetrecords.h"
#include "ui/navigator.h"

#include <QWidget>

#include <array>

class BettorSearch;
class ClickCell;
class PostGrid;
class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class TypeButtons;
struct MultibetLegs;

// The multibet screen: exotic bets of one bettor on the selected race, with wheels and boxes.
class frmmulti : public QWidget
{
    Q_OBJECT

public:
    explicit frmmulti(const ScreenContext &context);

private:
    void build();
    QWidget *buildTypeAndAmount();
    QWidget *buildGrid();
    QWidget *buildBettor();
    QWidget *buildHorses();
    QWidget *buildPreview();
    QWidget *buildPriorBets();
    QBoxLayout *buildButtons();
    void connectControls();
    void openScreen(const QString &name);
    void fill();

    void loadBettorList();
    void chooseRace(int race);
    void chooseType(const QString &code);
    void chooseBettor(int number, const QString &name);
    void showLegs();
    void listHorses(const MultibetLegs &legs);
    void loadPriorBets();
    void addToStake(double amount);
    void preview();
    void clearPreview();
    void makeBet();
    void printReceipt();
    void deletePriorBets();
    void switchReceipts();
    void printBlankSheets();
    void showTotals();
    void showNote(const QString &text = {});
    void showPriorBets();
    void showReceiptState();

    MultibetEntry entry() const;

    ScreenContext m_context;
    MultibetPreview m_preview;
    QList<Multibet> m_prior; // of the selected bettor, as lstpriorbets lists them
    int m_bettor = 0;        // 0 while none is selected
    QString m_bettorName;
    double m_stake = 0;      // dollars a single bet
    double m_grandTotal = 0; // dollars saved since the screen was opened
    QString m_legNote;

    QLineEdit *txtbanner;
    QButtonGroup *m_races;
    TypeButtons *m_types;
    PostGrid *m_grid;
    std::array<QCheckBox *, 3> chkbox{};
    ClickCell *txtbetamt;
    std::array<ClickCell *, 4> txtamt{};
    ClickCell *txtclearamt;
    BettorSearch *m_search;
    QLabel *lblbettor;
    QListWidget *lsthorses;
    QListWidget *lstbets;
    QLineEdit *txtcount;
    QLineEdit *txtthisbet;
    QLineEdit *txttotalbet;
    QListWidget *lstpriorbets;
    QLineEdit *txttotprior;
    QLineEdit *txtreceipts;
    QPushButton *cmdplacebet;
    QPushButton *cmdmake;
    QPushButton *cmdclearentries;
    QPushButton *cmdclearprior;
    QPushButton *cmdonoff;
    QPushButton *cmdprint;
    QPushButton *cmdaddbettor;
    QPushButton *cmdpay;
    QPushButton *cmdsummary;
    QPushButton *cmdretbets;
    QPushButton *cmdreturn;
    QLabel *lblnote;
};
