#pragma once

#include "ui/navigator.h"

#include <QPointer>
#include <QWidget>

class NoteLine;
class QPushButton;
class QTableWidget;

// The multiple-computer screen: the steps of taking bets on several computers with a thumb drive,
// and this computer's role.
class frmmc : public QWidget
{
    Q_OBJECT

public:
    explicit frmmc(const ScreenContext &context);
    ~frmmc() override;

private:
    void build();
    QLayout *buildRoles();
    QWidget *makeStep(const QString &name, const QString &text, const QString &screen);
    void openDrive(const QString &screen);
    void showAddedBets();
    void returnMultiple();
    void returnSingle();

    ScreenContext m_context;
    QPointer<QWidget> m_driveChoice;
    QPushButton *cmdreturn;
    QPushButton *cmdsing;
    QTableWidget *grdadded;
    NoteLine *lblnote;
};
