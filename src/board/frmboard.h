#pragma once

#include "board/boardwatch.h"
#include "board/oddshistory.h"
#include "ui/navigator.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>

class BoardView;
class KeepAwake;
class NoteLine;
class QButtonGroup;
class QCheckBox;
class QPushButton;
class QScreen;

// The odds board for the guests: a window beside the operator's, on another display where there is
// one. It only reads, goes on while boxes are open, and takes neither focus nor front from the
// operator's window by itself.
class frmboard : public QWidget
{
    Q_OBJECT

public:
    explicit frmboard(const ScreenContext &context);
    ~frmboard() override;

    void entered();

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    QWidget *buildBar();
    void connectControls();
    void follow();
    void refresh();
    void showRaces(BoardWish::Shows shows, int race = 0);
    void stepRace(int by);
    QScreen *otherDisplay() const;
    void switchFullScreen();
    void enterFullScreen();
    void showBar(bool yes);
    void hideStillBar();
    void leave();

    ScreenContext m_context;
    BoardWatch m_watch;
    OddsHistory m_history;
    QElapsedTimer m_clock;
    QTimer m_tick;  // sees what the operator chose, and that minutes have passed
    QTimer m_turns; // of the settled races
    QTimer m_still; // the mouse lies still
    std::unique_ptr<KeepAwake> m_awake;
    BoardPicture m_picture; // as it was read
    bool m_answers = true;  // the files do
    BoardWish::Shows m_shows = BoardWish::Shows::Followed;
    int m_race = 0; // to stay on
    int m_turn = 0;

    BoardView *m_view;
    QWidget *m_bar;
    QButtonGroup *m_races;
    QCheckBox *chkfollow;
    QCheckBox *chkturns;
    QPushButton *cmdfull;
    QPushButton *cmdreturn;
    NoteLine *lblnote;
};
