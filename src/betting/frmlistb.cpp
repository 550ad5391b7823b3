#include "betting/frmlistb.h"

#include "common/event/session.h"
#include "common/print/copies.h"
#include "ui/controls.h"
#include "ui/printing.h"
#include "ui/prompts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

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
    QPushButton *cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s);
    QPushButton *cmdreturn = makeButton(this, u"cmdreturn"_s, u"Return"_s);
    lblnote = makeNoteLine(this);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdprint);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(List1, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);

    connect(cmdprint, &QPushButton::clicked, this, &frmlistb::print);
    connect(cmdreturn, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
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
    if (m_context.session.settings.receiptsPrint())
        return lblnote->setText(printCopies(this, m_context, task, listing, copies).note);
    // Without receipts the copies are not separated; what is printed is printed at once.
    task.done += QString::number(copies);
    lblnote->setText(printSlip(this, m_context, task, copiesInOneJob(listing, copies)).note);
}
