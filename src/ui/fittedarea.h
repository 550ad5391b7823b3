#pragma once

#include "ui/scaling.h"

#include <QScrollArea>

// Shows a screen whole, its letters as large as the operator wishes and the room allows. Only where
// even the smallest letters need more room does it scroll.
class FittedArea : public QScrollArea
{
    Q_OBJECT

public:
    // \a likely is the factor that the screen probably gets, 0 when nobody knows.
    FittedArea(QWidget *screen, double letters, double likely, QWidget *parent);

    // The operator's wish: 1 is what suits the size of the area.
    void setLetters(double letters);

    // What the screens are drawn for: the inside of a window on the smallest usual display.
    static constexpr QSize drawnSize{1000, 680};

    // The factor that suits an area of this size, if the screen leaves room for it.
    static double suiting(const QSize &size);

    // The factor in force, and whether the operator's wish would be more than fits.
    double factor() const { return m_scaling.factor(); }
    bool isLimited() const;

    // The same whatever it shows: the window can always be made smaller.
    QSize minimumSizeHint() const override { return {320, 200}; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    double wish() const { return m_letters * suiting(size()); }
    void fitScreen();

    Scaling m_scaling;
    double m_letters;
};
