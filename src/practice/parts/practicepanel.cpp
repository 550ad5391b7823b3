#include "practice/parts/practicepanel.h"

#include "common/event/init.h"
#include "common/files/fileerror.h"
#include "practice/parts/practicesteps.h"
#include "ui/colors.h"
#include "ui/controls.h"
#include "ui/undisturbed.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int lookEvery = 1000; // milliseconds
constexpr int waitForTable = 250;
constexpr int waitForRace = 1000;

QString paceCaption(std::size_t pace)
{
    static const std::array captions{u"Every 5 seconds"_s, u"Every second"_s, u"Without a pause"_s};
    return captions[pace];
}

void setText(QLabel *label, const QString &text)
{
    if (label->text() != text)
        label->setText(text);
}

// A session on the same event for what is done beside the operator.
Session besideOperator(const Session &session)
{
    Session own = session;
    own.files.unsure.reset();
    own.files.journals.reset();
    own.files.working = {};
    own.files.tell = {};
    return own;
}

} // namespace

PracticePanel::PracticePanel(const ScreenContext &context)
    : m_context(context)
    , m_own(besideOperator(context.session))
    , m_guests(QRandomGenerator::global()->generate())
{
    build();
    m_turn.setSingleShot(true);
    connect(&m_look, &QTimer::timeout, this, &PracticePanel::follow);
    connect(&m_turn, &QTimer::timeout, this, &PracticePanel::letGuestBet);
    connect(cmdguests, &QPushButton::clicked, this, &PracticePanel::startOrStop);
    connect(cmdpace, &QPushButton::clicked, this, &PracticePanel::changePace);
    connect(cmdagain, &QPushButton::clicked, this, [this] { askBeginAgain(this, m_context); });
    connect(cmdleave, &QPushButton::clicked, this, [this] { askLeavePractice(this, m_context); });
    follow();
    m_look.start(lookEvery);
}

void PracticePanel::build()
{
    setObjectName(u"practicepanel"_s);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    lblpractice = makeLabel(this, u"lblpractice"_s, practiceWord);
    enlarge(lblpractice, 1.3);
    lblpractice->setAlignment(Qt::AlignCenter);
    setTone(lblpractice, Tone::Banner);
    lblpractice->setBackgroundRole(QPalette::Base); // the tone's ground
    lblpractice->setAutoFillBackground(true);
    lblpractice->setMargin(4);
    lblstep = makeLabel(this, u"lblstep"_s, {}, {}, true);
    lblguests = makeLabel(this, u"lblguests"_s, {}, {}, true);
    setTone(lblguests, Tone::Notice);
    lblguests->hide();
    m_steps = buildSteps();
    m_layout = new QBoxLayout(QBoxLayout::TopToBottom, this);
    m_layout->setContentsMargins(6, 4, 6, 4);
    m_layout->addWidget(lblpractice);
    m_layout->addWidget(m_steps);
    m_layout->addWidget(lblstep, 5);
    m_layout->addWidget(lblguests, 2);
    m_layout->addLayout(buildButtons());
}

QWidget *PracticePanel::buildSteps()
{
    auto *list = new QWidget(this);
    auto *grid = new QGridLayout(list);
    grid->setContentsMargins(0, 6, 0, 6);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < 8; ++row) {
        m_marks << makeLabel(list, memberName(u"lblmark"_s, row), {});
        m_titles << makeLabel(list, memberName(u"lbltitle"_s, row), {}, {}, true);
        fitCharacters(m_marks.last(), 2);
        grid->addWidget(m_marks.last(), row, 0, Qt::AlignTop);
        grid->addWidget(m_titles.last(), row, 1);
    }
    return list;
}

// A press takes no field of the screen its place in typing.
QLayout *PracticePanel::buildButtons()
{
    cmdguests = makeButton(this, u"cmdguests"_s, u"Play Guests"_s,
                           u"Made-up guests bet on the current race, at the pace beside"_s);
    cmdpace = makeButton(this, u"cmdpace"_s, paceCaption(m_pace),
                         u"How often a guest brings a bet sheet: click to change"_s);
    cmdagain = makeButton(this, u"cmdagain"_s, u"Begin Again"_s,
                          u"Make the practice event afresh: what was done in it is lost"_s);
    cmdleave = makeButton(this, u"cmdleave"_s, u"Leave Practice"_s, u"Back to the real event"_s);
    warnOf(cmdagain);
    auto *grid = new QGridLayout;
    grid->addWidget(cmdguests, 0, 0);
    grid->addWidget(cmdpace, 0, 1);
    grid->addWidget(cmdleave, 1, 0);
    grid->addWidget(cmdagain, 1, 1);
    for (QPushButton *button : {cmdguests, cmdpace, cmdleave, cmdagain})
        button->setFocusPolicy(Qt::TabFocus);
    return grid;
}

void PracticePanel::setUpright(bool upright)
{
    m_layout->setDirection(upright ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_steps->setVisible(upright);
    for (QLabel *label : {lblstep, lblguests})
        label->setAlignment(Qt::AlignLeft | (upright ? Qt::AlignTop : Qt::AlignVCenter));
}

// The files say what was done. What cannot be read now is read the next time.
void PracticePanel::follow()
{
    if (Undisturbed::isAny() || !m_context.session.isPractice())
        return;
    m_own.settings = m_context.session.settings;
    try {
        showLesson(lessonSteps(m_own));
    } catch (const FileError &) {
    }
}

void PracticePanel::showLesson(const QList<LessonStep> &steps)
{
    const int next = nextStepOf(steps);
    for (int row = 0; row < int(m_titles.size()); ++row) {
        const LessonStep &step = steps[row];
        setText(m_marks[row], step.isDone ? u"✓"_s : row == next ? u"▶"_s : QString());
        m_marks[row]->setAccessibleName(step.isDone ? u"Done"_s : u"To do"_s);
        setText(m_titles[row], QString::number(row + 1) + u". "_s + step.title);
        if (QFont font = m_titles[row]->font(); font.bold() != (row == next)) {
            font.setBold(row == next);
            m_titles[row]->setFont(font);
        }
    }
    setText(lblstep,
            next == int(steps.size())
                ? u"All eight steps are done, and the till agrees. You can run a race."_s
                : u"Step %1 of 8: %2. %3"_s.arg(next + 1).arg(steps[next].title, steps[next].how));
}

void PracticePanel::startOrStop()
{
    if (captionOf(cmdguests) != "Play Guests"_L1)
        return stopGuests();
    setCaption(cmdguests, u"Stop Guests"_s);
    letGuestBet();
}

void PracticePanel::stopGuests()
{
    m_turn.stop();
    setCaption(cmdguests, u"Play Guests"_s);
}

void PracticePanel::changePace()
{
    m_pace = (m_pace + 1) % paces.size();
    setCaption(cmdpace, paceCaption(m_pace));
    if (m_turn.isActive())
        wait(0);
}

void PracticePanel::wait(int atLeast)
{
    m_turn.start(std::max(atLeast, paces[m_pace]));
}

// Guests keep quiet while a box is open, and where the event has been left.
void PracticePanel::letGuestBet()
{
    if (!m_context.session.isPractice())
        return stopGuests();
    if (Undisturbed::isAny())
        return m_turn.start(waitForTable);
    try {
        playSheet();
    } catch (const FileError &error) {
        stopGuests();
        tellOfGuests("The guests have stopped: "_L1 + error.description());
    }
}

void PracticePanel::tellOfGuests(const QString &text)
{
    setText(lblguests, text);
    lblguests->show();
}

void PracticePanel::playSheet()
{
    m_own.settings = m_context.session.settings;
    const GuestSheet sheet = m_guests.playSheet(m_own);
    const bool hasBet = sheet.turn == GuestTurn::Bet;
    if (hasBet)
        ++m_sheets;
    tellOfGuests(hasBet ? u"Sheets of guests: "_s + QString::number(m_sheets)
                        : guestsNote(sheet.turn));
    wait(hasBet ? 0 : waitForRace);
}
