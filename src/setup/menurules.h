#pragma once

#include "common/event/session.h"

#include <cstddef>

// What the main menu shows, by the settings of the run and the files of the race.

// Banner and race; the banner "Vefioze" stands alone.
QString menuBanner(const Settings &settings);

// "Clear/Refund  Race3 Bets": the race's name brings a blank of its own.
QString clearBetsCaption(const Settings &settings);

// Beside the button that starts networked betting: this computer's part in it, or an empty text.
QString networkStatus(const Settings &settings);

// How far a race has come.
struct RaceProgress
{
    int horses = 0;
    int bettors = 0; // AnyBettor not among them
    std::size_t bets = 0;
    double dollars = 0; // of the bets
    std::size_t multibets = 0;
    double multibetDollars = 0;
    QString settledAt = {}; // "20:39"; empty: not settled
    int unpaid = 0;         // winners of win, place and show
};

// The current race's progress, from its files and the cash journal. Throws FileError.
RaceProgress raceProgress(Session &session);

// "no horses yet", "12 horses, 40 bettors, 63 bets, $512.00" or "settled 20:39, 2 unpaid".
QString progressText(const RaceProgress &progress);

// What the operator probably does next.
enum class MenuStep { Horses, Transfer, Bettors, Bet, Pay, NextRace };

// By the race's progress; on a satellite computer horses and bettors come by transfer.
MenuStep nextStep(const RaceProgress &progress, bool isSatellite);
