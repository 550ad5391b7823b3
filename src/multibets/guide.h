#pragma once

#include "multibets/expansion.h"

#include <QString>

struct Horse;

// What leads the operator through a multibet: which horse a post number is, what is missing next,
// and what the ticket costs.

// "Post 3: number 2 SECOND WIND"; "Post 7: no horse" where none runs. \a place, such as
// " Race4", is added to the post.
QString postText(const Horse &horse, const QString &place = {});

// How far an entry has come.
struct EntryProgress
{
    // The preview shows the entry as it is, and it was saved so.
    enum class Stage { Marking, Previewed, Saved };

    MultibetEntry entry;
    int race = 0;       // 0 while none is chosen
    QString bettorName; // of the entry's bettor
    Stage stage = Stage::Marking;
};

// What is chosen: "EXACTA for ANN in Race3"; empty while nothing is.
QString chosenText(const EntryProgress &progress);

// What is to be done next: "Choose a second horse on line 2".
QString nextStep(const EntryProgress &progress);

// What the preview will come to: "6 combinations at $2.00: $12.00"; empty while a line that the
// type needs is empty.
QString costText(const EntryProgress &progress);
