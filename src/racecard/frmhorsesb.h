#pragma once

#include "racecard/cardrows.h"
#include "ui/navigator.h"

#include <QWidget>

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The race card of one race: numbers, names and pools of the horses at its 21 posts, scratching a
// horse with refunds, and the message on bet sheets.
class frmhorsesb : public QWidget
{
    Q_OBJECT

public:
    explicit frmhorsesb(const ScreenContext &context);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void build();
    QLayout *buildCard();
    QLayout *buildTools();
    QGroupBox *buildBetSheet();
    QGroupBox *buildInstructions();
    QGroupBox *buildDownload();
    void connectControls();

    void load();
    void chooseRace(int race);
    void edited(const QLineEdit *box, int post);
    void updateHorses();
    void clearHorses();
    void scratchHorse();
    void updateMessage();
    void download();
    void printBetSheets();
    void returnToMenu();

    CardRows rows() const;
    void showRows(const CardRows &rows);
    void showUnsaved();
    bool poolsAreValid();
    void save();
    QString scratchPost(int post, const QString &name);
    QString unsavedNote() const;
    std::array<QLineEdit *, 3> boxesOf(std::size_t row) const;

    ScreenContext m_context;
    CardRows m_saved;            // the rows as the files hold them
    bool m_readWhole = false;    // the race's Horses file was read without a damaged line
    bool m_poolsEmptied = false; // CLEAR HORSES emptied the pool boxes; nothing was typed since

    QLineEdit *txtbanner;
    QButtonGroup *optrace;
    std::array<QLineEdit *, postCount> txtpost;
    std::array<QLineEdit *, postCount> txtnumber;
    std::array<QLineEdit *, postCount> txthorse;
    std::array<QLineEdit *, postCount> txtpool;
    QPushButton *cmdupdatehorses;
    QLabel *lblunsaved;
    QPushButton *cmdscratch;
    QPushButton *cmdclearhorses;
    QPlainTextEdit *txtmsg;
    QPushButton *cmdmsg;
    QPushButton *cmdprint;
    QPushButton *cmdGo;
    QPushButton *cmdmainmenu;
    QLabel *lblnote;
};
