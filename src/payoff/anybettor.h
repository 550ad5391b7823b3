#pragma once

#include "common/event/session.h"

// The running amounts of paying people who hold slips of AnyBettor, in dollars. Sums are exact to
// four decimals.
struct AnyBettorTotals
{
    double slip = 0;          // the slip last calculated and not yet added
    double bettor = 0;        // the slips added for the person being paid
    double bettorRounded = 0; // the same, rounded
    double grand = 0;         // everybody paid so far
    double grandRounded = 0;

    // Adds the slip to the person's total; the same slip does not count twice.
    void addSlip(int roundingIndex);

    // Adds the person to the grand totals and begins the next one.
    void payBettor();
};

// Pays the person: the payment goes into the cash journal, unless it is 0, and then into the grand
// totals.
void paySlips(Session &session, AnyBettorTotals &totals);
