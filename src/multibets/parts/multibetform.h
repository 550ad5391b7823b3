#pragma once

#include "multibets/parts/multibetscreen.h"

#include <array>

class BettorSearch;
class ClickCell;
class QBoxLayout;
class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

// The form of the multibet screen: its controls and their places.
class MultibetForm : public MultibetScreen
{
    Q_OBJECT

protected:
    explicit MultibetForm(const ScreenContext &context);

    // Dollars, of the cells that add to the stake.
    static constexpr std::array<double, 4> quickAmounts{0.25, 1, 5, 10};

    std::array<QCheckBox *, 3> chkbox{};
    ClickCell *txtbetamt;
    std::array<ClickCell *, 4> txtamt{};
    ClickCell *txtclearamt;
    BettorSearch *m_search;
    QLabel *lblbettor;
    QLabel *lblguide;
    QLabel *lblcost;
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

private:
    void build();
    QWidget *buildTypeAndAmount();
    QWidget *buildGrid();
    QBoxLayout *buildGuide();
    QWidget *buildBettor();
    QWidget *buildHorses();
    QWidget *buildPreview();
    QWidget *buildPriorBets();
    QBoxLayout *buildButtons();
};
