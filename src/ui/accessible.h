#pragma once

class QLabel;
class QString;

// What screen readers and other assistive technology find: cells that are clicked are buttons with
// a Press action, options and other buttons that stay down act when they are pressed so, and the
// status line is an alert whose name is what it tells.
void installAccessibility();

// Lets assistive technology say a new text of the label at once.
void announce(QLabel *label);

// An amount in words: "3 dollars", "minus 2.5 dollars".
QString spokenDollars(double dollars);
