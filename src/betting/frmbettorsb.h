#pragma once

#include "common/event/bettors.h"
#include "ui/navigator.h"

#include <QStringList>
#include <QWidget>

class NoteLine;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// The bettor list: adds bettors, deletes one with a refund of the current race's bets, clears all.
// The list reaches its files when the screen is left.
class frmbettorsb : public QWidget
{
    Q_OBJECT

public:
    explicit frmbettorsb(const ScreenContext &context);

    void entered() { load(); }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void build();
    void connectControls();
    void load();
    void fillList();
    void showCount();
    void showSelected();
    QString standingNote() const;

    void showPlaceOf(const QString &typed);
    void add();
    void deleteSelected();
    void takeOut(const QString &name, int number);
    void clearAll();
    void rejectTyping();
    bool isNameTyped() const;
    bool settleTypedName();
    QString lostChanges() const;
    void leaveTo(const QString &screen);

    ScreenContext m_context;
    BettorTable m_asRead;
    bool m_loaded = false;     // what was not read is not written
    QStringList m_addedNames;  // since the list was read
    int m_deletedNames = 0;    // of the names read
    bool m_saveFailed = false; // as the list stands, when it was to be left

    QLineEdit *txtbanner;
    QLineEdit *txtbettorname;
    QListWidget *cbobettornames;
    QLabel *lblselected;
    QLabel *lblcount;
    NoteLine *lblnote;
    QPushButton *cmddelete;
    QPushButton *cmdclearbettors;
    QPushButton *cmdbetsheet;
    QPushButton *cmdreturn;
};
