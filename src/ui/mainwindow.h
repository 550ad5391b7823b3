#pragma once

#include <QHash>
#include <QWidget>

class FittedArea;
class QBoxLayout;
class QStackedWidget;
class Strip;

// The one window that shows the screens. It fills the display it is on and is never larger.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    // Shows \a screen and deletes the one before, once its handlers have returned.
    void showScreen(QWidget *screen);
    QWidget *screen() const { return m_screen; }

    // What the screen is shown in; none before the first.
    FittedArea *area() const { return m_area; }

    // Takes \a strip in beside the screens, in place of the one before, which is deleted; null
    // leaves the window to the screens. It gets what room they leave free, at their right or below.
    void setStrip(Strip *strip);
    Strip *strip() const { return m_strip; }

    // How many times as large as what suits the window the operator wants the letters.
    void setLetters(double letters);
    double letters() const { return m_letters; }

    // How many times as large as drawn that makes them, where there is room.
    double wish() const;

    // Lets the next close through.
    void allowClose() { m_mayClose = true; }

signals:
    void closeRequested();
    void wishChanged(double wish);

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void followDisplay();
    void placeStrip();

    QBoxLayout *m_layout;
    QStackedWidget *m_stack;
    FittedArea *m_area = nullptr;
    QWidget *m_screen = nullptr;
    FittedArea *m_stripArea = nullptr;
    Strip *m_strip = nullptr;
    double m_letters = 1;
    QHash<const QMetaObject *, double> m_factors; // that screens had when they were left
    bool m_mayClose = false;
};

// The room that a window's inside can have on its display. While its frame is not known, one of the
// usual size is left for.
QSize roomFor(const QWidget *window);
