#pragma once

#include "racecard/parts/horsesform.h"
#include "ui/navigator.h"

class QLineEdit;

// The race card of one race: numbers, names and pools of the horses at its 21 posts, scratching a
// horse with refunds, and the message on bet sheets.
class frmhorsesb : public HorsesForm
{
    Q_OBJECT

public:
    explicit frmhorsesb(const ScreenContext &context);

    void entered() { load(); }

private:
    void connectControls();

    void load();
    void readBets();
    void chooseRace(int race);
    void edited(const QLineEdit *box, int post);
    void updateHorses();
    void clearHorses();
    void scratchHorse();
    void updateMessage();
    void download();
    void printBetSheets();
    void returnToMenu();

    void showRows(const CardRows &rows);
    void showUnsaved();
    bool poolsAreValid();
    bool mayReplaceCard();
    void save();
    QString scratchPost(const Horse &horse);
    QString unsavedNote() const;

    ScreenContext m_context;
    PoolTable m_pools;           // of the race as last read
    HorseTable m_loaded;         // the card as it was last read or written here
    CardRows m_saved;            // the rows as the files hold them
    bool m_poolsEmptied = false; // CLEAR HORSES emptied the pool boxes; nothing was typed since
};
