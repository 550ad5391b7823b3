#pragma once

#include <QWidget>

// What stands beside every screen, inside the main window, and stays while screens come and go.
class Strip : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // Stands as a column at the right of the screens, or lies as a row below them.
    virtual void setUpright(bool upright) = 0;
};
