#pragma once

#include "common/event/session.h"

#include <QStringList>
#include <functional>

// The four transfers between the main computer, a thumb drive and satellite computers. A drive is
// "F:"; its files lie in its root folder and are named as in the event directory. Everything is
// read before anything is written. All throw FileError and set the operation label.

// Told after each file, so that a screen can show how far a transfer is.
using TransferProgress = std::function<void(int done, int total)>;

// Main computer to drive: Bettors and the Horses of all races.
void saveHorsesAndBettors(Session &session, const QString &drive,
                          const TransferProgress &progress = {});

// Drive to satellite: the same files onto the event directory's files and their twins. What they
// replace is kept in Saved.
void loadHorsesAndBettors(Session &session, const QString &drive,
                          const TransferProgress &progress = {});

// Satellite to drive: the Bets of all races.
void saveSatelliteBets(Session &session, const QString &drive,
                       const TransferProgress &progress = {});

// Drive to main computer: adds the drive's bets to Bets and Betsbackup of each race, to all of them
// or to none; copies of both go to Saved first. Returns a row for each of the 12 races.
QList<AddedBets> addSatelliteBets(Session &session, const QString &drive,
                                  const TransferProgress &progress = {});
