#pragma once

#include "ui/navigator.h"

#include <QWidget>

class QLabel;
class QListWidget;

// A window with a list of lines, filled by whoever opens it, that can be printed in several copies.
class frmlistb : public QWidget
{
    Q_OBJECT

public:
    explicit frmlistb(const ScreenContext &context);

private:
    void build();
    void print();

    ScreenContext m_context;
    QListWidget *List1;
    QLabel *lblnote;
};
