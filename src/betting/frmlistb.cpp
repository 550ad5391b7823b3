#include "betting/frmlistb.h"

#include "common/event/session.h"
#include "common/print/copies.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/printing.h"
#include "ui/prompts.h"
#include "ui/textlists.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString notPrinted = u"This list is not printed yet."_s;

} // namespace

frmlistb::frmlistb(const ScreenContext &context)
    : m_context(context)
{
    build();
    // A payoff slip is 83 characters wide.
    const QFontMetrics text = List1->fontMetrics();
    resize(text.horizontalAdvance(QString(90, u'0')), 32 * text.lineSpacing());
    List1->setFocus();
}

void frmlistb::build()
{
    List1 = new QListWidget(this);
    List1->setObjectName(u"List1"_s);
    List1->setFont(fixedPitchFont());
    List1->setAccessibleName(u"Lines of the list"_s);
    cmdagain = makeButton(this, u"cmdagain"_s, u"Print Again"_s,
                          u"Print the list as it should have been printed"_s);
    standOut(cmdagain);
    cmdagain->hide();
    QPushButton *cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s);
    QPushButton *cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s);
    lblnote = makeNoteLine(this);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdagain);
    buttons->addWidget(cmdprint);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(List1, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);

    connect(cmdagain, &QPushButton::clicked, this, [this] { take(m_printAgain(this)); });
    connect(cmdprint, &QPushButton::clicked, this, &frmlistb::print);
    connect(cmdreturn, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
}

void frmlistb::showLines(const Slip &slip)
{
    setUniformLines(List1, slipText(slip));
    for (int i = 0; i < int(slip.lines.size()); ++i) {
        if (Slip::isPageBreak(slip.lines[i]))
            continue;
        List1->addItem(lineText(slip.lines[i]));
        if (slip.blockStarts.contains(i))
            List1->item(List1->count() - 1)->setData(Qt::UserRole, true);
    }
}

void frmlistb::keepUntilPrinted(const std::function<Printed(QWidget *)> &print)
{
    m_printAgain = print;
    cmdagain->show();
    cmdagain->setFocus();
    lblnote->warn(notPrinted);
}

// Tells what came of printing; a list that is on paper may be closed.
void frmlistb::take(const Printed &printed)
{
    if (!printed.isComplete) {
        lblnote->warn(printed.note);
        if (m_printAgain)
            lblnote->add(notPrinted, NoteKind::Warning);
        return;
    }
    lblnote->setText(printed.note);
    if (!std::exchange(m_printAgain, {}))
        return;
    List1->setFocus();
    cmdagain->hide();
}

void frmlistb::closeEvent(QCloseEvent *event)
{
    const bool mayClose =
        !m_printAgain
        || askYesNoCarefully(this, u"This list is not printed. Close it all the same?"_s,
                             windowTitle());
    event->setAccepted(mayClose);
}

void frmlistb::print()
{
    const int copies = listingCopies(
        askText(this, u"Enter number of forms to print"_s, u"Print Bets by Bettor"_s, u"1"_s));
    if (copies == 0)
        return;
    Slip listing{u"Courier New"_s, 8};
    for (int row = 0; row < List1->count(); ++row) {
        const QListWidgetItem *line = List1->item(row);
        if (line->data(Qt::UserRole).toBool())
            listing.startBlock();
        listing.addLine(line->text());
    }
    PrintTask task{u"Print Bets by Bettor"_s, ErrorStyle::NumberAndDescription,
                   u"Copies printed: "_s};
    const bool isSeparate = m_context.session.settings.receiptsPrint();
    // Without receipts the copies are not separated; what is printed is printed at once.
    if (!isSeparate)
        task.done += QString::number(copies);
    take(isSeparate ? printCopies(this, m_context, task, listing, copies)
                    : printSlip(this, m_context, task, copiesInOneJob(listing, copies)));
}
