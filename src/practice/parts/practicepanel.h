#pragma once

#include "common/event/session.h"
#include "practice/guests.h"
#include "practice/lesson.h"
#include "ui/navigator.h"
#include "ui/strip.h"

#include <QTimer>

#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;

// Stands beside every screen as long as the practice event is open: what the lesson says is next,
// the guests, and the ways out. It reads and bets as another computer would; what the operator has
// on the screen stays as it is.
class PracticePanel : public Strip
{
    Q_OBJECT

public:
    explicit PracticePanel(const ScreenContext &context);

    void setUpright(bool upright) override;

    // How often a guest comes, at each pace, in milliseconds.
    static constexpr std::array paces{5000, 1000, 0};

private:
    void build();
    QWidget *buildSteps();
    QLayout *buildButtons();
    void follow();
    void showLesson(const QList<LessonStep> &steps);
    void startOrStop();
    void stopGuests();
    void changePace();
    void letGuestBet();
    void playSheet();
    void tellOfGuests(const QString &text);
    void wait(int atLeast);

    ScreenContext m_context;
    Session m_own; // of the panel, so that the operator's is left alone
    Guests m_guests;
    QTimer m_look;
    QTimer m_turn;
    std::size_t m_pace = 0;
    int m_sheets = 0;
    QBoxLayout *m_layout;
    QWidget *m_steps;
    QList<QLabel *> m_marks;
    QList<QLabel *> m_titles;
    QLabel *lblpractice;
    QLabel *lblstep;
    QLabel *lblguests;
    QPushButton *cmdguests;
    QPushButton *cmdpace;
    QPushButton *cmdagain;
    QPushButton *cmdleave;
};
