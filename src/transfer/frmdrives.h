#pragma once

#include "common/files/progress.h"
#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QListWidget;
class QPushButton;

// One of the four transfers by thumb drive, as its drive-choice screen runs it.
struct DriveTransfer
{
    QString heading;
    bool onMainComputer; // else on a satellite
    bool tellsMultibets; // says first that multibets do not travel
    QString operation;   // label until the transfer sets its own
    QString done;        // told at the end
    std::function<void(Session &, const QString &drive, const Progress &)> run;

    // Where bets may lie that the transfer can move to Saved: the question about them, empty when
    // there are none, and the transfer after Yes.
    std::function<QString(Session &)> betsQuestion = {};
    decltype(run) runWithoutBets = {};
};

// A small window beside the multiple-computer screen: choosing a drive in its list starts the
// transfer.
class DriveChoice : public QWidget
{
    Q_OBJECT

public:
    DriveChoice(const ScreenContext &context, DriveTransfer transfer);

private:
    void build();
    void listDrives();
    void choose(const QString &drive);
    bool takeRole();
    bool runTransfer(const QString &drive);
    bool askAboutBets();

    ScreenContext m_context;
    DriveTransfer m_transfer;
    QListWidget *lstdrive;
    QPushButton *cmdrefresh;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};

// Main computer to drive: horses and bettors.
class frmdrive : public DriveChoice
{
    Q_OBJECT

public:
    explicit frmdrive(const ScreenContext &context);
};

// Drive to satellite: horses and bettors.
class frmsatdrv : public DriveChoice
{
    Q_OBJECT

public:
    explicit frmsatdrv(const ScreenContext &context);
};

// Satellite to drive: bets.
class frmsatun : public DriveChoice
{
    Q_OBJECT

public:
    explicit frmsatun(const ScreenContext &context);
};

// Drive to main computer: bets.
class frmmainld : public DriveChoice
{
    Q_OBJECT

public:
    explicit frmmainld(const ScreenContext &context);
};
