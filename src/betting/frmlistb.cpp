#include "betting/frmlistb.h"

#include "common/event/session.h"
#include "common/print/copies.h"
#include "ui/controls.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"

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
    QStringList lines;
    for (int row = 0; row < List1->count(); ++row)
        lines.append(List1->item(row)->text());
    Session &session = m_context.session;
    trapErrors(this, session, ErrorStyle::NumberAndDescription, u"Print Bets by Bettor"_s, [&] {
        for (const Slip &slip : listingSlips(lines, copies, session.settings.receiptsPrint()))
            m_context.printer.print(slip);
        if (copies > 0)
            lblnote->setText(u"Copies printed: "_s + QString::number(copies));
    });
}
