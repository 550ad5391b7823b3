#include "reports/frmreportb.h"

#include "common/event/init.h"
#include "common/event/session.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"
#include "reports/tillreport.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"
#include "ui/slippainter.h"
#include "ui/textlists.h"

#include <QBuffer>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPdfWriter>
#include <QPushButton>
#include <QRadioButton>
#include <QStringListModel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int fontSizes = 7;
constexpr qsizetype mostNotes = 8; // remarks that the status line can show

// Of the paper that most printers at home hold; PDF programs scale it to any other.
const QPageSize pdfPaper(QPageSize::A4);
constexpr double pdfMargin = 12.7; // millimetres

} // namespace

frmreportb::frmreportb(const ScreenContext &context)
    : m_context(context)
{
    build();
    connectControls();
    showFontSize();
    optreport->button(int(ReportKind::Horses))->setFocus();
}

void frmreportb::build()
{
    const Settings &settings = m_context.session.settings;
    txtbanner = makeBanner(this, u"txtbanner"_s, settings.bannerAndRace());
    QGroupBox *kinds = buildKinds();
    const RaceOptions races = makeRaceOptions(this, u"Race that the report is about"_s, 6);
    fraround = races.frame;
    optrace = races.group;
    optrace->button(settings.currentRace)->setChecked(true);
    chkall = makeCheck(this, u"chkall"_s, u"All Races"_s, u"Report on the whole event"_s);
    static_cast<QGridLayout *>(fraround->layout())->addWidget(chkall, 0, 6, 2, 1);
    frasort = buildSorting();
    fratill = buildTill();

    lstreport = new QListView(this);
    lstreport->setObjectName(u"lstreport"_s);
    lstreport->setAccessibleName(u"Preview of the report"_s);
    lstreport->setFont(fixedPitchFont());
    lstreport->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_model = new QStringListModel(this);
    lstreport->setModel(m_model);

    auto *choices = new QHBoxLayout;
    choices->addWidget(kinds, 3);
    choices->addWidget(fraround, 4);
    choices->addWidget(frasort, 2);
    choices->addWidget(fratill, 6);
    QLayout *buttons = buildButtons();
    lblnote = makeNoteLine(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addLayout(choices);
    layout->addWidget(lstreport, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

QGroupBox *frmreportb::buildKinds()
{
    auto *box = new QGroupBox(u"Report"_s, this);
    auto *grid = new QGridLayout(box);
    optreport = new QButtonGroup(box);
    const struct
    {
        ReportKind kind;
        QString caption;
        int row;
        int column;
    } kinds[] = {{ReportKind::Horses, u"Horses"_s, 0, 0},
                 {ReportKind::Bettors, u"Bettors"_s, 0, 1},
                 {ReportKind::Bets, u"Bets"_s, 0, 2},
                 {ReportKind::Multibets, u"Multibets"_s, 1, 0},
                 {ReportKind::Cash, u"Cash Report"_s, 1, 1}};
    for (const auto &entry : kinds) {
        auto *option = new QRadioButton(box);
        option->setObjectName(memberName(u"optreport"_s, int(entry.kind)));
        setCaption(option, entry.caption);
        optreport->addButton(option, int(entry.kind));
        grid->addWidget(option, entry.row, entry.column);
    }
    optreport->button(int(ReportKind::Horses))->setChecked(true);
    auto *percent = new QHBoxLayout;
    lblhousepct = makeLabel(box, u"lblhousepct"_s, u"House %"_s);
    txthousepct = makeField(
        box, u"txthousepct"_s,
        u"Percentage of the house in the till report; empty: what each race was settled with"_s);
    txthousepct->setAccessibleName(u"House percentage"_s);
    txthousepct->setPlaceholderText(u"as paid"_s);
    fitCharacters(txthousepct, 7);
    percent->addWidget(lblhousepct);
    percent->addWidget(txthousepct);
    percent->addStretch();
    grid->addLayout(percent, 1, 2);
    return box;
}

QGroupBox *frmreportb::buildSorting()
{
    auto *box = new QGroupBox(u"Sort"_s, this);
    auto *grid = new QGridLayout(box);
    chkalp =
        makeCheck(box, u"chkalp"_s, u"By Name"_s, u"Sort by the name of the horse or bettor"_s);
    chknum = makeCheck(box, u"chknum"_s, u"By Number"_s,
                       u"Sort by race and post, or by bettor number"_s);
    chkasc = makeCheck(box, u"chkasc"_s, u"Up"_s, u"Lowest or A first"_s);
    chkdes = makeCheck(box, u"chkdes"_s, u"Down"_s, u"Highest or Z first"_s);
    // Of each pair exactly one is checked.
    for (const auto &pair : {std::pair(chkalp, chknum), std::pair(chkasc, chkdes)}) {
        auto *group = new QButtonGroup(box);
        group->addButton(pair.first);
        group->addButton(pair.second);
    }
    chknum->setChecked(true);
    chkasc->setChecked(true);
    grid->addWidget(chkalp, 0, 0);
    grid->addWidget(chkasc, 0, 1);
    grid->addWidget(chknum, 1, 0);
    grid->addWidget(chkdes, 1, 1);
    return box;
}

QGroupBox *frmreportb::buildTill()
{
    auto *box = new QGroupBox(u"Till of "_s + computerName(m_context.session), this);
    auto *grid = new QGridLayout(box);
    const auto field = [&](QLineEdit *&edit, const QString &name, const QString &caption,
                           const QString &toolTip) {
        const int row = grid->rowCount();
        edit = makeField(box, name, toolTip);
        edit->setAccessibleName(caption);
        edit->setAlignment(Qt::AlignRight);
        fitCharacters(edit, 12);
        grid->addWidget(makeLabel(box, {}, caption), row, 0);
        grid->addWidget(edit, row, 1);
    };
    field(txtfloat, u"txtfloat"_s, u"Float at the start"_s,
          u"Dollars in this computer's till before the first bet"_s);
    field(txtcounted, u"txtcounted"_s, u"Counted"_s, u"Dollars counted in this computer's till"_s);
    cmdsofar = makeButton(box, u"cmdsofar"_s, u"So far"_s,
                          u"Take over what is typed and show how the tills stand"_s);
    cmdclosetill = makeButton(box, u"cmdclosetill"_s, u"Close Till"_s,
                              u"Take over what is typed and close this computer's till"_s);
    grid->addWidget(cmdsofar, 1, 2);
    grid->addWidget(cmdclosetill, 2, 2);
    lbldifference = makeLabel(box, u"lbldifference"_s, {}, {}, true);
    enlarge(lbldifference, 1.5);
    grid->addWidget(lbldifference, 1, 3, 2, 1);
    grid->setColumnStretch(3, 1);
    return box;
}

QLayout *frmreportb::buildButtons()
{
    cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s, u"Print this report"_s);
    cmdcsv = makeButton(this, u"cmdcsv"_s, u"Save as CSV"_s,
                        u"Save this report as a table for other programs"_s);
    cmdpdf = makeButton(this, u"cmdpdf"_s, u"Save as PDF"_s, u"Save this report as a document"_s);
    cmdfont = makeButton(this, u"cmdfont"_s, u"Change Print Font"_s,
                         u"Click for the next larger print font; after 20 points comes 8"_s);
    lblfont = makeLabel(this, u"lblfont"_s, {});
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"RETURN TO MENU"_s, u"Return to the main menu"_s);
    auto *buttons = new QHBoxLayout;
    for (QPushButton *button : {cmdprint, cmdcsv, cmdpdf, cmdfont})
        buttons->addWidget(button);
    buttons->addWidget(lblfont);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    return buttons;
}

void frmreportb::connectControls()
{
    connect(optreport, &QButtonGroup::idClicked, this, &frmreportb::showReport);
    connect(optrace, &QButtonGroup::idClicked, this, &frmreportb::chooseRace);
    for (QCheckBox *check : {chkall, chkalp, chknum, chkasc, chkdes})
        connect(check, &QCheckBox::clicked, this, &frmreportb::showReport);
    connect(txthousepct, &QLineEdit::textEdited, this, &frmreportb::showReport);
    connect(cmdsofar, &QPushButton::clicked, this, &frmreportb::enterSoFar);
    connect(cmdclosetill, &QPushButton::clicked, this, &frmreportb::closeTill);
    connect(cmdfont, &QPushButton::clicked, this, &frmreportb::changeFont);
    connect(cmdprint, &QPushButton::clicked, this, &frmreportb::print);
    connect(cmdcsv, &QPushButton::clicked, this, [this] {
        saveAs(u"Tables (*.csv)"_s, u"csv"_s, u"Save as CSV"_s,
               [this] { return reportCsv(m_report); });
    });
    connect(cmdpdf, &QPushButton::clicked, this, [this] {
        saveAs(u"Documents (*.pdf)"_s, u"pdf"_s, u"Save as PDF"_s, [this] { return pdf(); });
    });
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frmmenub"_s); });
}

ReportKind frmreportb::kind() const
{
    return ReportKind(optreport->checkedId());
}

void frmreportb::chooseRace(int race)
{
    Settings &settings = m_context.session.settings;
    settings.currentRace = race;
    txtbanner->setText(settings.bannerAndRace());
    chkall->setChecked(false);
    showReport();
}

// Reads the files again at each choice, so that the list is never older than the last click.
void frmreportb::showReport()
{
    Session &session = m_context.session;
    const bool cash = kind() == ReportKind::Cash;
    fraround->setVisible(!cash);
    frasort->setVisible(!cash);
    fratill->setVisible(cash);
    if (cash)
        showTill();
    lblhousepct->setEnabled(cash);
    txthousepct->setEnabled(cash);
    ReportRequest request;
    request.kind = kind();
    request.race = chkall->isChecked() ? 0 : session.settings.currentRace;
    request.byName = chkalp->isChecked();
    request.descending = chkdes->isChecked();
    if (const QString percent = txthousepct->text().trimmed(); !percent.isEmpty())
        request.housePercent = numericValue(percent);
    m_report = {};
    m_lines = {};
    const bool good = trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        m_report = makeReport(session, request);
        m_lines = reportLines(m_report);
    });
    setUniformLines(lstreport, m_lines.lines); // a whole evening's bets are shown at once
    m_model->setStringList(m_lines.lines);
    for (QPushButton *button : {cmdprint, cmdcsv, cmdpdf})
        button->setEnabled(good);
    lblnote->setText(m_report.remarks.size() <= mostNotes
                         ? m_report.remarks.join(u' ')
                         : u"There is more to know: see the remarks at the end of the report."_s);
}

// What is typed stays until it is taken over.
void frmreportb::showTill()
{
    Session &session = m_context.session;
    const CashJournal journal = readCashJournal(session);
    const TillEntries known = tillEntries(journal, computerName(session));
    for (const auto &[field, text] :
         {std::pair(txtfloat, known.floated), std::pair(txtcounted, known.counted)}) {
        if (!field->isModified())
            field->setText(text);
    }
    lbldifference->setText(tillText(journal, computerName(session)));
}

// Writes down what is typed; false when it cannot be.
bool frmreportb::enter(bool close)
{
    const QString refusal =
        enterTill(m_context.session, {txtfloat->text(), txtcounted->text()}, close);
    if (!refusal.isEmpty()) {
        lblnote->warn(refusal);
        return false;
    }
    for (QLineEdit *field : {txtfloat, txtcounted})
        field->setModified(false);
    showReport();
    return true;
}

void frmreportb::enterSoFar()
{
    enter(false);
}

void frmreportb::closeTill()
{
    const QString question = u"Close the till of "_s + computerName(m_context.session) + u'?';
    if (askYesNoCarefully(this, question, u"Close Till"_s) && enter(true))
        lblnote->setText(u"The till is closed. Print the report, or save it."_s);
}

void frmreportb::showFontSize()
{
    const int points = fontPoints(m_context.session.settings.fontIndex);
    lblfont->setText("Print Font size is "_L1 + QString::number(points));
}

void frmreportb::changeFont()
{
    Session &session = m_context.session;
    int &index = session.settings.fontIndex;
    index = index >= 1 && index < fontSizes ? index + 1 : 1;
    showFontSize();
    trapErrors(this, ErrorStyle::DescriptionOnly, [&] { saveInit(session); });
}

void frmreportb::print()
{
    const int points = fontPoints(m_context.session.settings.fontIndex);
    const Slip slip = reportSlip(m_lines, points);
    PrintTask task{u"Print Reports"_s, ErrorStyle::DescriptionOnly, u"Printed"_s};
    if (slip.pointSize < points) {
        task.done += " at "_L1 + QString::number(slip.pointSize)
                     + " points, so that the lines fit the paper"_L1;
    }
    tellPrinted(lblnote, printSlip(this, m_context, task, slip));
}

void frmreportb::saveAs(const QString &filter, const QString &suffix, const QString &label,
                        const std::function<QByteArray()> &content)
{
    const QString path = askSaveFile(this, label, m_report.name, suffix, filter);
    if (path.isEmpty())
        return;
    Session &session = m_context.session;
    trapErrors(this, session, ErrorStyle::DescriptionOnly, label, [&] {
        replaceRecordFile(path, content());
        lblnote->setText("Saved as "_L1 + path);
    });
}

QByteArray frmreportb::pdf()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(m_report.name);
    writer.setPageSize(pdfPaper);
    writer.setPageMargins({pdfMargin, pdfMargin, pdfMargin, pdfMargin}, QPageLayout::Millimeter);
    ProgressBox box(this, u"Saving ..."_s, ProgressBox::Ending::OnlyWhenDone);
    paintSlip(reportSlip(m_lines, fontPoints(m_context.session.settings.fontIndex)), writer,
              box.progress());
    return buffer.data();
}
