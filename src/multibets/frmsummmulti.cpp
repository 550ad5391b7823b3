#include "multibets/frmsummmulti.h"

#include "betting/listingcopies.h"
#include "multibets/multibetrecords.h"
#include "multibets/multislips.h"
#include "multibets/multisummary.h"
#include "ui/controls.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmsummmulti::frmsummmulti(const ScreenContext &context)
    : m_context(context)
{
    build();
    connect(cmdprint, &QPushButton::clicked, this, &frmsummmulti::printSummary);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frmmulti"_s); });
    // A failure's box comes when the screen can be seen.
    QTimer::singleShot(0, this, &frmsummmulti::fill);
    cmdreturn->setFocus();
}

void frmsummmulti::build()
{
    const Settings &settings = m_context.session.settings;
    QLineEdit *txtbanner = makeBanner(this, u"txtbanner"_s, settings.bannerAndRace());
    lstsumm = new QListWidget(this);
    lstsumm->setObjectName(u"lstsumm"_s);
    lstsumm->setAccessibleName(u"Summary of all multibets"_s);
    QFont font(u"Times New Roman"_s);
    font.setPointSizeF(lstsumm->font().pointSizeF() * 2);
    lstsumm->setFont(font);
    cmdprint = makeButton(this, u"cmdprint"_s, u"PRINT"_s);
    cmdreturn = makeButton(this, u"cmdreturn"_s, u"RETURN"_s, u"Return to the multibets screen"_s);
    lblnote = makeNoteLine(this);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdprint);
    buttons->addStretch();
    buttons->addWidget(cmdreturn);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(txtbanner);
    layout->addWidget(lstsumm, 1);
    layout->addLayout(buttons);
    layout->addWidget(lblnote);
    assignAltLetters(this);
}

void frmsummmulti::fill()
{
    Session &session = m_context.session;
    MultibetTable bets;
    trapErrors(this, session, ErrorStyle::DescriptionOnly,
               [&] { bets = loadMultibets(session, u"Multibets"_s); });
    lstsumm->addItems(multibetSummary(bets, session.settings.banner, session.settings.raceName()));
}

void frmsummmulti::printSummary()
{
    Session &session = m_context.session;
    const int copies = listingCopies(
        askText(this, u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s, u"1"_s));
    if (copies == 0)
        return;
    if (!session.settings.mayPrint())
        return lblnote->setText(u"Nothing was printed: no printer is attached"_s);
    QStringList lines;
    for (int row = 0; row < lstsumm->count(); ++row)
        lines.append(lstsumm->item(row)->text());
    session.settings.operationLabel = u"Print Winners/Refunds"_s;
    trapErrors(this, session, ErrorStyle::DescriptionOnly, [&] {
        for (int copy = 0; copy < copies; ++copy)
            m_context.printer.print(multibetSummarySlip(lines));
        lblnote->setText("Copies printed: "_L1 + QString::number(copies));
    });
}
