#pragma once

#include <QWidget>

class QScrollArea;
class QStackedWidget;

// The one window that shows the screens, each in a scroll area that grows with the window.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);

    // Shows \a screen and deletes the one before, once its handlers have returned.
    void showScreen(QWidget *screen);
    QWidget *screen() const { return m_screen; }

    // Lets the next close through.
    void allowClose() { m_mayClose = true; }

signals:
    void closeRequested();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QStackedWidget *m_stack;
    QWidget *m_screen = nullptr;
    bool m_mayClose = false;
};
