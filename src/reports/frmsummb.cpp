#include "reports/frmsummb.h"

#include "common/event/session.h"
#include "reports/betlistings.h"
#include "reports/summaryslip.h"
#include "ui/colors.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// Quiet tints, one for each coupled entry, so that its horses are seen to belong together.
QColor entryTint(int entry)
{
    return tintOf(QColor::fromHsv(entry * 80 % 360, 110, 220));
}

// Number and name on the left, figures on the right.
Qt::Alignment alignmentOf(int column)
{
    return (column < 2 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}

} // namespace

frmsummb::frmsummb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    cmdrefresh->setFocus();
}

void frmsummb::build()
{
    const Settings &settings = m_context.session.settings;
    txtbanner = makeBanner(this, u"txtbanner"_s, settings.bannerAndRace());
    const RaceOptions races = makeRaceOptions(this, u"Race whose bets are summed"_s);
    optrace = races.group;
    optrace->button(settings.currentRace)->setChecked(true);
    grdsumm = new QTableWidget(this);
    grdsumm->setObjectName(u"grdsumm"_s);
    grdsumm->setAccessibleName(u"Bets on each horse"_s);
    grdsumm->setColumnCount(int(summaryHeadings().size()));
    grdsumm->setHorizontalHeaderLabels(summaryHeadings());
    grdsumm->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdsumm->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdsumm->setSelectionMode(QAbstractItemView::SingleSelection);
    grdsumm->setTabKeyNavigation(false);
    scaleText(grdsumm, 1.2);
    grdsumm->verticalHeader()->hide();
    // 22 rows are to be seen at once, and fill a larger window.
    grdsumm->verticalHeader()->setMinimumSectionSize(grdsumm->fontMetrics().height() + 2);
    grdsumm->verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    grdsumm->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    for (const int column : {0, 1})
        grdsumm->horizontalHeader()->setSectionResizeMode(column, QHeaderView::ResizeToContents);
    for (int column = 0; column < grdsumm->columnCount(); ++column)
        grdsumm->horizontalHeaderItem(column)->setTextAlignment(alignmentOf(column));
    cmdrefresh =
        makeButton(this, u"cmdrefresh"_s, u"Refresh"_s, u"Read the bets of this race again"_s);
    cmdbets = makeButton(this, u"cmdbets"_s, u"All Bets by Bettor"_s,
                         u"Display a list of all bets of every bettor for this race"_s);
    cmdtotals = makeButton(this, u"cmdtotals"_s, u"Bettor Totals"_s,
                           u"Display what every bettor bet on this race"_s);
    cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s, u"Print this summary"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s,
                           u"Return to the screen that this summary was opened from"_s);
    lblnote = makeNoteLine(this);

    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {cmdrefresh, cmdbets, cmdtotals, cmdprint})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addWidget(races.frame);
    layout->addWidget(grdsumm, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

void frmsummb::connectControls()
{
    connect(optrace, &QButtonGroup::idClicked, this, &frmsummb::chooseRace);
    connect(cmdrefresh, &QPushButton::clicked, this, &frmsummb::refresh);
    connect(cmdbets, &QPushButton::clicked, this, [this] {
        if (read()) {
            const Session &session = m_context.session;
            showListing(m_context, betsByBettor(m_race.bets, m_race.horses, session.bettors,
                                                session.settings.bannerAndRace()));
        }
    });
    connect(cmdtotals, &QPushButton::clicked, this, [this] {
        if (read()) {
            const Session &session = m_context.session;
            showListing(m_context, bettorTotals(m_race.bets, session.bettors,
                                                session.settings.bannerAndRace()));
        }
    });
    connect(cmdprint, &QPushButton::clicked, this, &frmsummb::printSummary);
    connect(cmdreturn, &QPushButton::clicked, this, &frmsummb::leave);
}

void frmsummb::chooseRace(int race)
{
    Settings &settings = m_context.session.settings;
    settings.currentRace = race;
    txtbanner->setText(settings.bannerAndRace());
    refresh();
}

// Reads the race afresh, so that grid, listings and paper show the same bets. On failure the grid
// is emptied: what it held may be another race's.
bool frmsummb::read()
{
    Session &session = m_context.session;
    m_race = {};
    m_summary = {};
    const bool good = trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        session.bettors = readBettors(session);
        m_race = readRace(session, session.settings.currentRace);
        m_summary = summarizeRace(m_race, session.bettors);
    });
    showSummary();
    lblnote->warn(QString(m_race.horseDamage + u' ' + m_summary.note()).trimmed());
    return good;
}

void frmsummb::refresh()
{
    read();
}

void frmsummb::showSummary()
{
    const int rows = int(m_summary.rows.size());
    grdsumm->setRowCount(rows + 1);
    for (int row = 0; row < rows; ++row)
        showRow(row, m_summary.rows[row], false);
    showRow(rows, m_summary.totals, true);
}

void frmsummb::showRow(int row, const SummaryRow &shown, bool isTotal)
{
    const QStringList cells = summaryCells(shown);
    for (int column = 0; column < int(cells.size()); ++column) {
        auto *item = new QTableWidgetItem(cells[column]);
        item->setTextAlignment(alignmentOf(column));
        if (isTotal) {
            QFont font;
            font.setBold(true);
            item->setFont(font);
            item->setBackground(palette().button());
        } else if (shown.entry != 0) {
            item->setBackground(entryTint(shown.entry));
        }
        grdsumm->setItem(row, column, item);
    }
}

void frmsummb::printSummary()
{
    if (!read())
        return;
    const Slip slip = summarySlip(m_summary, m_context.session.settings.bannerAndRace());
    const PrintTask task{u"Print Summary"_s, ErrorStyle::DescriptionOnly, u"Printed"_s};
    tellPrinted(lblnote, printSlip(this, m_context, task, slip));
}

void frmsummb::leave()
{
    const QString opener = m_context.navigator.previousName();
    m_context.navigator.open(opener.isEmpty() ? u"frmmenub"_s : opener);
}
