#pragma once

#include "common/files/progress.h"
#include "ui/controls.h"
#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;

// The setup screen: the program's first. It asks the questions of the start once a run, shows and
// changes the event's settings, clears the record files for a new event and leads to the menu.
class frminitb : public QWidget
{
    Q_OBJECT

public:
    explicit frminitb(const ScreenContext &context);

    void entered();

private:
    void build();
    QWidget *buildEvent();
    QWidget *buildPrinting();
    QWidget *buildNewEvent();
    QWidget *buildInstructions();
    QLayout *buildFoot();
    void connectControls();

    void showSettings();
    void startRun();
    bool askInitDrive();
    bool isTooNarrow() const;

    void changeRaceTo(int race);
    bool takeBanner();
    bool isBannerTyped() const;
    bool settleTypedBanner();
    void showNote();
    void switchReceipts();
    void askReceiptFont();
    void clearBetFiles();
    void clearBettorsFile();
    void clearHorseFiles();
    bool refusesToClear();
    bool refusesBeforeBets(const QString &title);
    void clearFiles(int (*clear)(Session &, const Progress &), const QString &done,
                    const QString &title);
    void goToMenu();

    template<typename Work>
    bool trap(Work work);

    ScreenContext m_context;
    QString m_note; // shown while the banner's text is the banner
    RaceOptions m_races;
    QLabel *lbltitle;
    QLineEdit *txtbanner;
    QLineEdit *txtbanner1;
    QLabel *lblfiles;
    QLineEdit *txtfiles;
    QPushButton *Command1;
    QPushButton *cmdprint;
    QPushButton *cmdround;
    QPushButton *cmdrecptfont;
    QLabel *lblfont;
    QPushButton *cmdbets;
    QPushButton *cmdhorses;
    QPushButton *cmdbettors;
    QPushButton *cmdimpext;
    QLabel *lblinst;
    QLineEdit *txtsetup;
    NoteLine *lblnote;
    QPushButton *cmdpractice;
    QPushButton *cmdhelp;
    QPushButton *cmdok;
    QPushButton *cmdexit;
};
