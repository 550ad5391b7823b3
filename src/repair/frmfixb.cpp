#include "repair/frmfixb.h"

#include "common/event/session.h"
#include "common/print/format.h"
#include "repair/parts/recordgrid.h"
#include "repair/savedcopies.h"
#include "ui/controls.h"
#include "ui/emptyhint.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

struct DisplayButton
{
    QString name;
    QString caption;
    QString toolTip;
    Listing listing;
};

const QList<DisplayButton> &displayButtons()
{
    static const QList<DisplayButton> buttons{
        {u"cmdbets"_s, u"Display Bet File"_s,
         u"Display the bet file for the selected round and flight"_s, Listing::Bets},
        {u"cmdbackup"_s, u"Display Backup Bet File"_s,
         u"Displays backup file for selected race-replace primary bet file with backup file to "
         "make changes to backup"_s,
         Listing::BackupBets},
        {u"cmdmulti"_s, u"Display Multi Bets File"_s,
         u"Displays Multibets file for selected race"_s, Listing::Multibets},
        {u"cmdbettor"_s, u"Display Bettor File"_s, u"Displays Bettor file"_s, Listing::Bettors},
        {u"cmdbettorb"_s, u"Display Backup Bettor file"_s,
         u"Displays Backup Bettor File - can only update the primary Bettor file"_s,
         Listing::BackupBettors},
        {u"cmdhorses"_s, u"Display Horses File"_s, u"Displays Horse file"_s, Listing::Horses},
        {u"cmdplayerb"_s, u"Display Backup Horse File"_s, u"Displays backup horse file"_s,
         Listing::BackupHorses},
        {u"cmdsaved"_s, u"Show Saved Copies"_s,
         u"Lists the copies that were kept before files were changed"_s, Listing::SavedCopies},
    };
    return buttons;
}

const QString howToRepair =
    u"Look here when a screen says that a file is damaged, or when bets or bettors seem to be "
    "wrong.\n\n"
    "1. Select the race above. Bettors need none.\n"
    "2. Press a Display button on the left: every record of that file is listed here as it is on "
    "the disk, and bad ones are marked.\n"
    "3. Select a bad record and remove it, so that the good ones count again. A copy of the file "
    "is kept first; Show Saved Copies lists the copies, and a selected one can be put back.\n\n"
    "A list without lines is a file without records."_s;

// What the list says about the file as a whole.
QString noteOf(const RecordList &list)
{
    if (!list.missingFile.isEmpty())
        return list.missingFile + " is missing"_L1;
    QStringList notes;
    if (!list.missingHorses.isEmpty())
        notes << list.missingHorses.join(" and "_L1) + " missing: posts instead of horses"_L1;
    if (const int damaged = list.damagedRows(); damaged > 0)
        notes << counted(std::size_t(damaged), u"bad row"_s);
    else if (!list.damage.isEmpty())
        notes << list.damage;
    if (notes.isEmpty() && list.listing != Listing::None)
        return u"No bad rows"_s;
    return notes.join("; "_L1);
}

// The widths of the bet grid's columns in twips, 1440 to the inch.
constexpr int betColumnTwips[] = {800, 800, 2000, 800, 3000, 1200, 1200};

} // namespace

frmfixb::frmfixb(const ScreenContext &context)
    : m_context(context)
    , m_model(new RecordListModel(this))
{
    build();
    connectControls();
    emptyGrid();
    optflight->button(1)->setFocus();
}

void frmfixb::build()
{
    txtbanner = makeBanner(this, u"txtbanner"_s, m_context.session.settings.bannerAndRace(),
                           u"Race name - can be changed on setup screen"_s);
    auto *fraflight = new QGroupBox(u"Select Flight"_s, this);
    fraflight->setObjectName(u"fraflight"_s);
    optflight = new QButtonGroup(this);
    auto *flights = new QGridLayout(fraflight);
    flights->setContentsMargins(6, 2, 6, 2);
    for (int race = 1; race <= raceCount; ++race) {
        auto *option = new QRadioButton("Race "_L1 + QString::number(race), fraflight);
        option->setObjectName(memberName(u"optflight"_s, race));
        optflight->addButton(option, race);
        flights->addWidget(option, 0, race);
    }
    lblheading = makeShortLabel(this, u"lblheading"_s);
    enlarge(lblheading, 1);
    grdfix = new QTableView(this);
    grdfix->setObjectName(u"grdfix"_s);
    grdfix->setAccessibleName(u"Records of the file"_s);
    grdfix->setModel(m_model);
    grdfix->setSelectionMode(QAbstractItemView::SingleSelection);
    grdfix->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdfix->setTabKeyNavigation(false);
    grdfix->setWordWrap(false);
    grdfix->verticalHeader()->hide();
    grdfix->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grdfix->verticalHeader()->setDefaultSectionSize(grdfix->fontMetrics().height() + 6);
    grdfix->horizontalHeader()->setStretchLastSection(true);
    new EmptyHint(howToRepair, grdfix);

    QWidget *buttons = buildButtons();
    QWidget *sorting = buildSorting();
    lblnote = makeNoteLine(this);
    auto *left = new QVBoxLayout;
    left->addWidget(buttons);
    left->addWidget(sorting);
    left->addWidget(cmdprint);
    left->addStretch();
    left->addWidget(cmdreturn);
    auto *layout = new QGridLayout(this);
    layout->addWidget(txtbanner, 0, 0, 1, 2);
    layout->addWidget(fraflight, 1, 0, 1, 2);
    layout->addLayout(left, 2, 0, 2, 1);
    layout->addWidget(lblheading, 2, 1);
    layout->addWidget(grdfix, 3, 1);
    layout->addWidget(lblnote, 4, 0, 1, 2);
    layout->setRowStretch(3, 1);
    layout->setColumnStretch(1, 1);
    assignAltLetters(this);
}

QWidget *frmfixb::buildButtons()
{
    auto *frame = new QWidget(this);
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    const auto add = [&](const QString &name, const QString &caption, const QString &toolTip) {
        QPushButton *button = makeButton(frame, name, caption, toolTip);
        layout->addWidget(button);
        return button;
    };
    for (const DisplayButton &button : displayButtons()) {
        QPushButton *made = add(button.name, button.caption, button.toolTip);
        connect(made, &QPushButton::clicked, this,
                [this, listing = button.listing] { display(listing); });
        if (button.listing == Listing::BackupBets) {
            cmdupdate = add(u"cmdupdate"_s, u"Remove Selected Bet"_s,
                            u"Rewrite Bets and Betsbackup files without this bet"_s);
        } else if (button.listing == Listing::Multibets) {
            cmdremmulti = add(u"cmdremmulti"_s, u"Remove Selected MultiBet"_s,
                              u"Rewrite Multibets and Multibetsbackup files without this bet"_s);
        } else if (button.listing == Listing::BackupBettors) {
            cmdrbettor = add(u"cmdrbettor"_s, u"Remove Selected Bettor"_s,
                             u"Remove the selected bettor record and rewrite the primary and "
                             "backup Bettor files"_s);
        } else if (button.listing == Listing::SavedCopies) {
            cmdputback = add(u"cmdputback"_s, u"Put Back Selected Copy"_s,
                             u"Replace a file and its backup with the selected copy"_s);
        }
    }
    for (QPushButton *button : {cmdupdate, cmdremmulti, cmdrbettor, cmdputback})
        warnOf(button);
    cmdprint =
        makeButton(this, u"cmdprint"_s, u"Print Current List"_s, u"Print the current list"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s, u"Return to main menu"_s);
    return frame;
}

QWidget *frmfixb::buildSorting()
{
    auto *frame = new QGroupBox(u"Sort by the selected column"_s, this);
    auto *layout = new QGridLayout(frame);
    layout->setContentsMargins(6, 2, 6, 2);
    const auto add = [&](const QString &name, const QString &caption, int row, int column) {
        auto *box = new QCheckBox(frame);
        box->setObjectName(name);
        setCaption(box, caption);
        layout->addWidget(box, row, column);
        return box;
    };
    chkasc = add(u"chkasc"_s, u"Ascending"_s, 0, 0);
    chkdes = add(u"chkdes"_s, u"Descending"_s, 0, 1);
    chkalp = add(u"chkalp"_s, u"As text"_s, 1, 0);
    chknum = add(u"chknum"_s, u"As numbers"_s, 1, 1);
    auto *direction = new QButtonGroup(this);
    direction->addButton(chkasc);
    direction->addButton(chkdes);
    chkasc->setChecked(true);
    return frame;
}

void frmfixb::connectControls()
{
    connect(optflight, &QButtonGroup::idClicked, this, &frmfixb::emptyGrid);
    connect(cmdupdate, &QPushButton::clicked, this, &frmfixb::removeSelected);
    connect(cmdremmulti, &QPushButton::clicked, this, &frmfixb::removeSelected);
    connect(cmdrbettor, &QPushButton::clicked, this, &frmfixb::removeBettor);
    connect(cmdputback, &QPushButton::clicked, this, &frmfixb::putBack);
    connect(cmdprint, &QPushButton::clicked, this, &frmfixb::print);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frmmenub"_s); });
    for (QCheckBox *kind : {chkalp, chknum}) {
        QCheckBox *other = kind == chkalp ? chknum : chkalp;
        connect(kind, &QCheckBox::clicked, this, [this, kind, other] {
            kind->setChecked(true);
            other->setChecked(false);
            sortGrid();
        });
    }
    for (QCheckBox *direction : {chkasc, chkdes})
        connect(direction, &QCheckBox::clicked, this, &frmfixb::sortGrid);
    connect(grdfix->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &frmfixb::updateButtons);
}

void frmfixb::display(Listing listing)
{
    const int race = optflight->checkedId();
    if (isRaceListing(listing) && race < 1)
        return showMessage(this, u"Must select a race to display a bet file"_s);
    trapErrors(this, ErrorStyle::NumberAndDescription,
               [&] { show(listRecords(m_context.session, listing, race)); });
}

void frmfixb::show(const RecordList &list)
{
    chkalp->setChecked(false);
    chknum->setChecked(false);
    m_model->setList(list);
    lblheading->setText(list.heading);
    QHeaderView *header = grdfix->horizontalHeader();
    for (int column = 0; column < int(list.columns.size()); ++column) {
        int width = grdfix->fontMetrics().averageCharWidth() * 20;
        if (list.columns.size() == std::ssize(betColumnTwips))
            width = betColumnTwips[column] * logicalDpiX() / 1440;
        const int heading =
            header->sectionSizeHint(column) + grdfix->fontMetrics().averageCharWidth();
        header->resizeSection(column, std::max(width, heading));
    }
    const bool isWhole = list.missingFile.isEmpty() && list.missingHorses.isEmpty()
                         && list.damagedRows() == 0 && list.damage.isEmpty();
    lblnote->setText(noteOf(list), isWhole ? NoteKind::Plain : NoteKind::Warning);
    updateButtons();
}

void frmfixb::emptyGrid()
{
    show({});
}

void frmfixb::sortGrid()
{
    if (!chkalp->isChecked() && !chknum->isChecked())
        return;
    const int column = std::max(0, grdfix->currentIndex().column());
    m_model->sortBy(column, chknum->isChecked(),
                    chkdes->isChecked() ? Qt::DescendingOrder : Qt::AscendingOrder);
    grdfix->scrollTo(grdfix->currentIndex());
}

// Each remove button works on its own list, and on a record of it.
void frmfixb::updateButtons()
{
    const RecordRow *row = selectedRecord();
    const Listing listing = row ? m_model->list().listing : Listing::None;
    cmdupdate->setEnabled(listing == Listing::Bets);
    cmdremmulti->setEnabled(listing == Listing::Multibets);
    cmdrbettor->setEnabled(listing == Listing::Bettors);
    cmdputback->setEnabled(listing == Listing::SavedCopies);
    cmdprint->setEnabled(m_model->rowCount() > 0);
}

const RecordRow *frmfixb::selectedRecord() const
{
    const QModelIndexList selected = grdfix->selectionModel()->selectedRows();
    if (selected.isEmpty())
        return nullptr;
    const RecordRow &row = m_model->record(selected.first().row());
    return row.isRecord ? &row : nullptr;
}

void frmfixb::removeSelected()
{
    const RecordList list = m_model->list();
    const RecordRow row = *selectedRecord();
    trapErrors(this, ErrorStyle::NumberAndDescription, [&] {
        const bool removed = removeRecord(m_context.session, list, row);
        show(listRecords(m_context.session, list.listing, list.race));
        if (removed)
            lblnote->addBefore("Record "_L1 + QString::number(row.number) + " removed."_L1);
        else
            lblnote->addBefore(u"The file was changed meanwhile: nothing was removed."_s,
                               NoteKind::Warning);
    });
}

void frmfixb::removeBettor()
{
    if (selectedRecord()->cells.value(1) == QString::number(anyBettorNumber))
        return showMessage(this, u"Can't delete AnyBettor"_s);
    removeSelected();
}

void frmfixb::putBack()
{
    const QString copy = QString::fromUtf8(selectedRecord()->line);
    const auto origin = originOf(copy);
    if (!origin)
        return;
    const QString question = "Replace "_L1 + origin->name + " and its backup with the copy?"_L1;
    if (!askOkCancel(this, question, u"Saved"_s))
        return;
    trapErrors(this, ErrorStyle::NumberAndDescription, [&] {
        putBackCopy(m_context.session, copy);
        show(listRecords(m_context.session, Listing::SavedCopies, 0));
        lblnote->setText(origin->name + " and its backup now hold the copy "_L1 + copy);
    });
}

void frmfixb::print()
{
    QList<QStringList> rows;
    for (int row = 0; row < m_model->rowCount(); ++row)
        rows << m_model->record(row).cells;
    const PrintTask task{u"Print"_s, ErrorStyle::NumberAndDescription, u"Printed"_s};
    tellPrinted(lblnote, printSlip(this, m_context, task, recordListSlip(m_model->list(), rows)));
}
