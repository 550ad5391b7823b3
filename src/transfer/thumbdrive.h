#pragma once

#include "common/event/session.h"
#include "common/files/progress.h"

#include <QStringList>

// The four transfers between the main computer, a thumb drive and satellite computers. A drive is
// "F:"; its files lie in its root folder and are named as in the event directory. Everything is
// read before anything is written. All throw FileError and set the operation label.

// Main computer to drive: Bettors and the Horses of all races.
void saveHorsesAndBettors(Session &session, const QString &drive, const Progress &progress = {});

// The bets and multibets that a satellite holds before new horses and bettors come to it.
struct HeldBets
{
    int bets = 0;
    double dollars = 0; // of bets
    int multibets = 0;

    bool areThere() const { return bets + multibets > 0; }
};
HeldBets heldBets(Session &session);

// Drive to satellite: the same files onto the event directory's files and their twins. What they
// replace is kept in Saved; so are the bets and multibets of all races and the cash journals when
// they are to go.
enum class BetsHeld { Stay, GoToSaved };
void loadHorsesAndBettors(Session &session, const QString &drive, BetsHeld betsHeld,
                          const Progress &progress = {});

// Satellite to drive: the Bets of all races.
void saveSatelliteBets(Session &session, const QString &drive, const Progress &progress = {});

// Drive to main computer: adds the drive's bets to Bets and Betsbackup of each race, to all of them
// or to none; copies of both go to Saved first. Returns a row for each of the 12 races.
QList<AddedBets> addSatelliteBets(Session &session, const QString &drive,
                                  const Progress &progress = {});
