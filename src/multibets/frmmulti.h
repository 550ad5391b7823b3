#pragma once

#include "common/event/multibetrecords.h"
#include "multibets/guide.h"
#include "multibets/legs.h"
#include "multibets/parts/multibetform.h"

#include <optional>

// The multibet screen: exotic bets of one bettor on the selected race, with wheels and boxes.
class frmmulti : public MultibetForm
{
    Q_OBJECT

public:
    explicit frmmulti(const ScreenContext &context);

    void entered() { loadBettorList(); }

private:
    void connectControls();
    void fill();

    void loadBettorList();
    void chooseRace(int race);
    void chooseType(const QString &code);
    void chooseBettor(int number, const QString &name);
    void renewLegs();
    void listHorses(const MultibetLegs &legs);
    void loadPriorBets();
    void addToStake(double amount);
    void preview();
    void clearPreview();
    void makeBet();
    QString settledBefore() const;
    Printed printReceipt();
    void deletePriorBets();
    void switchReceipts();
    void printBlankSheets();
    void showTotals();
    void showGuide();
    void showNote(const QString &text = {}, NoteKind kind = NoteKind::Plain);
    void showPriorBets();
    void showReceiptState();

    MultibetEntry entry() const;
    EntryProgress progress() const;

    int m_race = 0;      // whose posts are shown, 0 before the first was chosen
    MultibetLegs m_legs; // of that race
    MultibetPreview m_preview;
    std::optional<MultibetEntry> m_previewed; // the entry that was previewed last
    bool m_isSaved = false;                   // since then
    QList<Multibet> m_prior;                  // of the selected bettor, as lstpriorbets lists them
    int m_bettor = 0;                         // 0 while none is selected
    QString m_bettorName;
    double m_stake = 0;      // dollars a single bet
    double m_grandTotal = 0; // dollars saved since the screen was opened
    QString m_legNote;
};
