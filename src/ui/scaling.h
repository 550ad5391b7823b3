#pragma once

#include <QFont>
#include <QSize>

class QWidget;

// Letters and everything around them grow and shrink with the window. A screen is made as it is
// drawn, at factor 1, and does nothing for it: every size that it gave in points or took from its
// letters is found and scaled. What a screen changes later it gives in terms of its letters then.

// The program's font for text that is not enlarged, \a factor times as large as drawn.
QFont houseFont(double factor = 1);

// How many times as large as drawn the widget's surroundings are. The style asks it.
double letterFactor(const QWidget *widget);

// What is scaled as one: a window, or the area of a window that shows a screen.
class Scaling
{
public:
    // \a content is the widget inside \a root whose layout must fit; they may be the same.
    Scaling(QWidget *root, QWidget *content);

    double factor() const { return m_factor; }
    void apply(double factor);

    // Makes it as large as fits into the room, at most \a wish times as large as drawn, and at
    // least half of it. Begins with the factor in force: a good guess saves time.
    void fit(const QSize &room, double wish);

    // The factor, or the next smaller one of those that are used.
    static double stepped(double factor);

    // What the content needs to be shown whole, with every wrapping text as high as it is in the
    // room's width.
    QSize needed(const QSize &room) const;

    // Estimates the factor that would fill the room; less than the present one when the content
    // does not fit.
    double possible(const QSize &room) const;

private:
    QWidget *m_root;
    QWidget *m_content;
    double m_factor = 1;
};
