#pragma once

#include <QColor>
#include <QGuiApplication>
#include <QPalette>

#include <array>

class QApplication;
class QWidget;

// The program's colours, all of them. Whatever is not the palette's own is derived from it, so that
// it can be read on a light and on a dark ground alike.

// How well two colours can be told apart: 1 not at all, 21 black on white. Text needs 7; frames and
// signs that mean something, and what cannot be used now, need 3.
double contrast(const QColor &one, const QColor &other);

// The program's palette, light or dark as the system's is. A system that asks for high contrast
// keeps its own.
QPalette housePalette(const QPalette &system);

// The lines around fields, buttons, lists and groups.
QColor frameColor(const QPalette &palette);

// The ground of lists and fields with a hint of the hue.
QColor tintOf(const QColor &hue, const QPalette &palette = QGuiApplication::palette());

// What a colour tells.
enum class Tone {
    None,
    Banner,
    NextStep, // the button that is usually pressed next
    Danger,   // a button that clears, deletes, refunds or restores
    Notice,   // words to be noticed
    Wrong,    // words that say that something is not as it should be
    Aside,    // a field beside those that can be used
    Key,      // a cell that is pressed like a button
    Placed,   // a bet that will be placed,
    Dropped,  // that will not,
    Unpaid,   // that will be placed but never paid,
    Stopping, // that stops the placement
    Post,     // a post number, and
    ChosenPost,
};

struct ToneColors
{
    QColor fill;
    QColor text;
    QColor edge; // of a frame or sign on the fill or beside it
};
ToneColors toneColors(Tone tone, const QPalette &palette = QGuiApplication::palette());

// The odds board for the guests: light on dark whatever the system's scheme, because it hangs in a
// dim room.
struct BoardColors
{
    QColor ground;
    QColor otherGround; // of every second row
    QColor head;        // the ground of the banner
    QColor text;
    QColor aside;  // words that explain
    QColor odds;   // odds and payoffs, the largest letters
    QColor rising; // words about odds
    QColor falling;
    QColor notice;
    std::array<QColor, 3> bars; // win, place and show
};
const BoardColors &boardColors();

// Gives the widget the colours of a tone, while it is enabled; they follow the system's scheme.
void setTone(QWidget *widget, Tone tone);

// Lets the tones of all widgets follow the palette from now on.
void followPalette(QApplication &application);
