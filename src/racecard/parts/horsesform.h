#pragma once

#include "racecard/cardrows.h"

#include <QWidget>

#include <array>

class NoteLine;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// The form of the race card screen: its controls, their places and the keys that walk the card.
class HorsesForm : public QWidget
{
    Q_OBJECT

protected:
    HorsesForm();

    void keyPressEvent(QKeyEvent *event) override;

    // The rows of the card as its boxes show them.
    CardRows rows() const;
    void fillRows(const CardRows &rows);

    // The number, name and pool box of a row.
    std::array<QLineEdit *, 3> boxesOf(std::size_t row) const;

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
    NoteLine *lblnote;

private:
    void build();
    QLayout *buildCard();
    QLayout *buildTools();
    QGroupBox *buildBetSheet();
    QGroupBox *buildInstructions();
    QGroupBox *buildDownload();
};
