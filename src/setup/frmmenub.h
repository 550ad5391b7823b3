#pragma once

#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
enum class RecordFile;
struct RaceStakes;
struct Settings;

// The main menu: every working screen is opened from here for the current race. It is made afresh
// each time it is shown, so what it shows is always the current race's.
class frmmenub : public QWidget
{
    Q_OBJECT

public:
    explicit frmmenub(const ScreenContext &context);

    void entered();

private:
    void build();
    QLayout *buildHead();
    QGroupBox *buildRace();
    QGroupBox *buildFiles();
    QGroupBox *buildComputers();
    QGroupBox *buildProgram();
    void connectScreens();
    void connectTasks();
    void fill();
    void showProgress();
    void chooseRace(int race);

    void clearBets();
    void clearStraightBets(bool &printWanted);
    void clearMultibets(bool printWanted);
    bool refundAndDelete(RecordFile file, const RaceStakes &stakes, bool printWanted);
    void useBackups();
    void startNetwork();
    void becomeMaster();
    void joinMaster();
    void endNetwork();

    ScreenContext m_context;
    QLineEdit *txtbanner;
    QLabel *lblrace; // in large letters, and how far it has come
    QLabel *lblprogress;
    QLabel *lblmenu;
    QPushButton *cmdenterhorses;
    QPushButton *cmdenterbettors;
    QPushButton *cmdbet;
    QPushButton *cmdpay;
    QPushButton *cmdclearbets;
    QPushButton *cmdmulti;
    QPushButton *cmdfix;
    QPushButton *cmdbackup;
    QPushButton *cmdmc;
    QPushButton *cmdstartnw;
    QPushButton *cmdendnw;
    QPushButton *cmdsetup;
    QPushButton *cmdreports;
    QPushButton *cmdboard;
    QPushButton *cmdhelp;
    QPushButton *cmdexit;
    QLabel *lblhorses;
    QLabel *lblbettors;
    QLabel *lblbet;
    QLabel *lblwinners;
    QLabel *lblclear;
    QLabel *lblmulti;
    QLabel *lblfix;
    QLabel *lblbackup;
    QLabel *lblmc;
    QLabel *lblnetwork;
    QLabel *lblsetup;
    QLabel *lblboard;
    QLabel *lblexit;
    NoteLine *lblnote;
};
