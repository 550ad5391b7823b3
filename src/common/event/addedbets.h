#pragma once

// What the transfer of one race's bets from a satellite added to the main computer.
struct AddedBets
{
    int race = 0;
    int bets = 0;       // records added, damaged lines among them
    double dollars = 0; // of the bets added
    int betsNow = 0;    // on file after the transfer
    double dollarsNow = 0;
    int withoutHorse = 0;       // bets added on a post position that has no horse
    int unknownBettors = 0;     // bets added of numbers that this computer's Bettors does not hold
    bool overLimit = false;     // more bets are on file now than the bet limit allows
    bool looksImported = false; // every record added was on file before, as often
};
