#include "multibets/frmsummmulti.h"

#include "common/event/eventrecords.h"
#include "multibets/multislips.h"
#include "multibets/multisummary.h"
#include "multibets/parts/multibetscreen.h"
#include "ui/controls.h"
#include "ui/noteline.h"
#include "ui/prompts.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

frmsummmulti::frmsummmulti(const ScreenContext &context)
    : m_context(context)
{
    build();
    connect(cmdprint, &QPushButton::clicked, this, &frmsummmulti::printSummary);
    connect(cmdreturn, &QPushButton::clicked, this,
            [this] { m_context.navigator.open(u"frmmulti"_s); });
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

void frmsummmulti::entered()
{
    Session &session = m_context.session;
    MultibetTable bets;
    trapErrors(this, ErrorStyle::DescriptionOnly, [&] {
        bets = readMultibets(session, session.settings.currentRace, u"Multibets"_s);
    });
    lstsumm->addItems(multibetSummary(bets, session.settings.banner, session.settings.raceName()));
}

void frmsummmulti::printSummary()
{
    if (const auto printed = printAskedCopies(this, m_context, listCopiesQuestion(),
                                              multibetSummarySlip(listLines(lstsumm))))
        tellPrinted(lblnote, *printed);
}
