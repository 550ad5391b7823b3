#include "racecard/parts/horsesform.h"

#include "ui/controls.h"
#include "ui/noteline.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

HorsesForm::HorsesForm()
{
    build();
}

void HorsesForm::build()
{
    txtbanner =
        makeBanner(this, u"txtbanner"_s, {}, u"Race name - can be changed on setup screen"_s);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(12);
    // Made first, so that the race comes before the card in tab order.
    const RaceOptions races =
        makeRaceOptions(this, u"Establishes which race is betting. Uses  bet file "
                              "and horses file for the selected race number"_s);
    optrace = races.group;
    columns->addLayout(buildCard(), 7);
    auto *side = new QVBoxLayout;
    side->addWidget(races.frame);
    side->addLayout(buildTools());
    columns->addLayout(side, 11);
    lblnote = makeNoteLine(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 4);
    layout->setSpacing(6);
    layout->addWidget(txtbanner);
    layout->addLayout(columns, 1);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QLayout *HorsesForm::buildCard()
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(1);
    grid->setHorizontalSpacing(4);
    grid->setColumnStretch(2, 1);
    grid->addWidget(makeHeading(this, u"lblpost"_s, u"POST"_s, u"Post position in this race"_s), 0,
                    0);
    grid->addWidget(
        makeHeading(this, u"lblnumber"_s, u"NUMBER"_s, u"Number that the horse is wearing"_s), 0,
        1);
    grid->addWidget(makeHeading(this, u"lblhorse"_s, u"HORSE"_s, u"Name of the horse"_s), 0, 2);
    grid->addWidget(
        makeHeading(this, u"lblpool"_s, u"POOL"_s, u"See instruction intext box on the right"_s), 0,
        3);
    for (std::size_t row = 0; row < postCount; ++row) {
        const int index = int(row);
        const QString post = QString::number(index + 1);
        txtpost[row] = makeDisplay(this, memberName(u"txtpost"_s, index));
        txtpost[row]->setText(post);
        txtpost[row]->setAlignment(Qt::AlignCenter);
        txtnumber[row] = makeField(this, memberName(u"txtnumber"_s, index));
        txthorse[row] = makeField(this, memberName(u"txthorse"_s, index));
        txtpool[row] = makeField(this, memberName(u"txtpool"_s, index));
        txtpool[row]->setAlignment(Qt::AlignCenter);
        txtpost[row]->setAccessibleName(u"Post"_s);
        txtnumber[row]->setAccessibleName("Number at post "_L1 + post);
        txthorse[row]->setAccessibleName("Horse at post "_L1 + post);
        txtpool[row]->setAccessibleName("Pool at post "_L1 + post);
        // The card fills the height of a larger window.
        for (QLineEdit *box : {txtpost[row], txtnumber[row], txthorse[row], txtpool[row]})
            box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
        fitCharacters(txtpost[row], 4);
        fitCharacters(txtnumber[row], 7);
        fitCharacters(txtpool[row], 4);
        grid->addWidget(txtpost[row], index + 1, 0);
        grid->addWidget(txtnumber[row], index + 1, 1);
        grid->addWidget(txthorse[row], index + 1, 2);
        grid->addWidget(txtpool[row], index + 1, 3);
    }
    return grid;
}

QLayout *HorsesForm::buildTools()
{
    cmdupdatehorses =
        makeButton(this, u"cmdupdatehorses"_s, u"UPDATE HORSES"_s,
                   u"Read the horses from this screen and update the horse file for this race."_s);
    lblunsaved = makeHeading(this, u"lblunsaved"_s, {});
    cmdscratch = makeButton(
        this, u"cmdscratch"_s, u"SCRATCH A HORSE"_s,
        u"Delete this horse and update any bettor's accounts who may have already bet this horse."_s);
    cmdclearhorses = makeButton(this, u"cmdclearhorses"_s, u"CLEAR HORSES"_s,
                                u"Clear all horses for this race - must clear all bets first"_s);
    warnOf(cmdscratch);
    warnOf(cmdclearhorses);

    auto *buttons = new QGridLayout;
    buttons->addWidget(cmdupdatehorses, 0, 0);
    buttons->addWidget(lblunsaved, 0, 1);
    buttons->setRowMinimumHeight(1, dangerGap / 2);
    buttons->addWidget(cmdscratch, 2, 0);
    buttons->addWidget(cmdclearhorses, 2, 1);
    buttons->setColumnStretch(0, 1);
    buttons->setColumnStretch(1, 1);

    QGroupBox *instructions = buildInstructions();
    QGroupBox *download = buildDownload();
    QGroupBox *betSheet = buildBetSheet();
    cmdmainmenu = makeButton(this, u"cmdmainmenu"_s, u"MAIN MENU"_s, u"Return to the main menu."_s);
    auto *foot = new QHBoxLayout;
    foot->addStretch(1);
    foot->addWidget(cmdmainmenu, 1);

    auto *layout = new QVBoxLayout;
    layout->addLayout(buttons);
    layout->addWidget(instructions);
    layout->addWidget(download);
    layout->addWidget(betSheet, 2);
    layout->addStretch(1);
    layout->addLayout(foot);
    return layout;
}

QGroupBox *HorsesForm::buildBetSheet()
{
    auto *group = new QGroupBox(u"Bet sheet"_s, this);
    txtmsg = new QPlainTextEdit(group);
    txtmsg->setObjectName(u"txtmsg"_s);
    const QString tip = u"Message to be printed on the bet sheet - make changes as needed - click "
                        "UPDATE MESSAGE"_s;
    setTip(txtmsg, tip);
    txtmsg->setAccessibleName(u"Bet sheet message"_s);
    txtmsg->setAccessibleDescription(tip);
    txtmsg->setTabChangesFocus(true);
    txtmsg->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    txtmsg->setMinimumHeight(txtmsg->fontMetrics().lineSpacing() * 6);
    cmdmsg = makeButton(group, u"cmdmsg"_s, u"UPDATE  MESSAGE"_s,
                        u"Updates the message printed on the bet sheet."_s);
    cmdprint = makeButton(group, u"cmdprint"_s, u"PRINT BET SHEET"_s,
                          u"Print a list of all horses for betting"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdmsg, 1);
    buttons->addWidget(cmdprint, 1);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(txtmsg, 1);
    layout->addLayout(buttons);
    return group;
}

QGroupBox *HorsesForm::buildInstructions()
{
    static const QStringList texts{
        u"Start by clicking a race number and entering horse number and horse name for each post "
        "position. Use TAB key to move to next entry."_s,
        u"Limit horse names to 20 characters to avoid display problems"_s,
        u"Enter pool number as follows:"_s,
        u"Individual horses are pool 0."_s,
        u"Horses from the same stable usually race as one horse and should be assigned a pool "
        "number."_s,
        u"All horses in a particular pool have the same pool number."_s,
        u"The first pool number MUST BE 1, the second pool number MUST BE 2, etc  - pool number "
        "must be 0 to 9"_s,
        u"DON'T FORGET TO ASSIGN A POOL NUMBER TO THE FIELD HORSES"_s,
    };
    auto *group = new QGroupBox(u"Instructions"_s, this);
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(3);
    for (int i = 0; i < texts.size(); ++i)
        layout->addWidget(makeLabel(group, memberName(u"lblinstruction"_s, i), texts[i], {}, true));
    return group;
}

QGroupBox *HorsesForm::buildDownload()
{
    auto *group = new QGroupBox(u"Download"_s, this);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(makeLabel(
        group, u"lbldownload"_s,
        u"The horses of the season's big races can be downloaded the evening before the race."_s,
        {}, true));
    cmdGo =
        makeButton(group, u"cmdGo"_s, u"DOWNLOAD HORSES FROM WEB SITE"_s,
                   u"Loads horse names for all 12 races from the publisher's web site. Internet "
                   "connection must be active."_s);
    layout->addWidget(cmdGo);
    return group;
}

// Enter and the arrows move within a column; Enter at its foot goes on at the top of the next.
void HorsesForm::keyPressEvent(QKeyEvent *event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const int step = enter || event->key() == Qt::Key_Down ? 1
                     : event->key() == Qt::Key_Up          ? -1
                                                           : 0;
    for (int row = 0; step != 0 && row < postCount; ++row) {
        const auto boxes = boxesOf(std::size_t(row));
        const auto box = std::find(boxes.begin(), boxes.end(), focusWidget());
        if (box == boxes.end())
            continue;
        const auto column = std::size_t(box - boxes.begin());
        const int next = row + step;
        QWidget *target = nullptr;
        if (next >= 0 && next < postCount)
            target = boxesOf(std::size_t(next))[column];
        else if (enter)
            target = column + 1 < boxes.size() ? static_cast<QWidget *>(boxesOf(0)[column + 1])
                                               : cmdupdatehorses;
        if (target)
            target->setFocus(Qt::TabFocusReason); // selects the text, as Tab does
        return;
    }
    QWidget::keyPressEvent(event);
}

CardRows HorsesForm::rows() const
{
    CardRows rows;
    for (std::size_t row = 0; row < postCount; ++row)
        rows[row] = {txtnumber[row]->text(), txthorse[row]->text(), txtpool[row]->text()};
    return rows;
}

void HorsesForm::fillRows(const CardRows &rows)
{
    for (std::size_t row = 0; row < postCount; ++row) {
        txtnumber[row]->setText(rows[row].number);
        txthorse[row]->setText(rows[row].name);
        txtpool[row]->setText(rows[row].pool);
        txthorse[row]->setCursorPosition(0);
    }
}

std::array<QLineEdit *, 3> HorsesForm::boxesOf(std::size_t row) const
{
    return {txtnumber[row], txthorse[row], txtpool[row]};
}
