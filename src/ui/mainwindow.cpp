#include "ui/mainwindow.h"

#include <QCloseEvent>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

MainWindow::MainWindow(QWidget *parent)
    : QWidget(parent)
    , m_stack(new QStackedWidget(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_stack);
    resize(1016, 690);
}

void MainWindow::showScreen(QWidget *screen)
{
    // The screen chose its first control while it stood alone; being taken in forgets it.
    QWidget *first = screen->focusWidget();
    auto *area = new QScrollArea(m_stack);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(screen);
    m_stack->addWidget(area);
    m_stack->setCurrentWidget(area);
    if (first)
        first->setFocus();
    m_screen = screen;
    while (m_stack->count() > 1) {
        QWidget *left = m_stack->widget(0);
        m_stack->removeWidget(left);
        left->hide();
        left->deleteLater();
    }
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    if (m_mayClose) {
        event->accept();
        return;
    }
    event->ignore();
    emit closeRequested();
}
