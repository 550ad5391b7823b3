#pragma once

#include "ui/navigator.h"

#include <QWidget>

class NoteLine;
class QLabel;
class QLineEdit;
class QPushButton;

// The way into practice and out of it, and what practice is.
class frmpractice : public QWidget
{
    Q_OBJECT

public:
    explicit frmpractice(const ScreenContext &context);

private:
    void build();
    void fill();

    ScreenContext m_context;
    QLineEdit *txtbanner;
    QLabel *lblstate;
    QPushButton *cmdpractice;
    QPushButton *cmdagain;
    QPushButton *cmdleave;
    QPushButton *cmdhelp;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
