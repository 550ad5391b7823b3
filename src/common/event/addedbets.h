#pragma once

// What the transfer of one race's bets from a satellite added to the main computer.
struct AddedBets
{
    int race = 0;
    int bets = 0;      // records added, damaged lines among them
    float dollars = 0; // of the bets added
    int betsNow = 0;   // on file after the transfer
    float dollarsNow = 0;
    int withoutHorse = 0;       // bets added on a post position that has no horse
    bool looksImported = false; // every record added was on file before, as often
};
