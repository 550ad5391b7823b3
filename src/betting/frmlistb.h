#pragma once

#include "ui/listwindow.h"
#include "ui/navigator.h"

class NoteLine;
class QListWidget;
class QPushButton;

// A window with a list of lines, filled by whoever opens it, that can be printed in several copies.
class frmlistb : public ListWindow
{
    Q_OBJECT

public:
    explicit frmlistb(const ScreenContext &context);

    void showLines(const Slip &slip) override;
    void keepUntilPrinted(const std::function<Printed(QWidget *)> &print) override;

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    void print();
    void take(const Printed &printed);

    ScreenContext m_context;
    std::function<Printed(QWidget *)> m_printAgain; // empty when the list may be closed
    QListWidget *List1;
    QPushButton *cmdagain;
    NoteLine *lblnote;
};
