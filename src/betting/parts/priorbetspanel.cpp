#include "betting/parts/priorbetspanel.h"

#include "common/print/format.h"
#include "ui/controls.h"
#include "ui/textlists.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

PriorBetsPanel::PriorBetsPanel(const QString &deleteCaption, QWidget *parent)
    : QWidget(parent)
{
    QLabel *lblprior = makeHeading(this, u"lblprior"_s, u"PRIOR BETS"_s,
                                   u"List of all saved bets for this bettor"_s);
    lblpriorbettor = makeShortLabel(this, u"lblpriorbettor"_s);
    lblpriorbettor->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    lstpriorbets = new QListWidget(this);
    lstpriorbets->setObjectName(u"lstpriorbets"_s);
    setTip(lstpriorbets, u"List of all saved bets for this bettor"_s);
    lstpriorbets->setAccessibleName(u"Prior bets"_s);
    lstpriorbets->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstpriorbets->setUniformItemSizes(true);
    lstpriorbets->setFont(fixedPitchFont(9));
    txttotprior = makeDisplay(this, u"txttotprior"_s, u"Total of all saved bets for this bettor"_s);
    txttotprior->setAccessibleName(u"Total of prior bets"_s);
    txttotprior->setAlignment(Qt::AlignRight);
    fitCharacters(txttotprior, 11);
    QPushButton *cmdclearprior =
        makeButton(this, u"cmdclearprior"_s, deleteCaption,
                   u"Delete all selected bets from the saved bet file - hold down ctrl or shift "
                   "key to select multiple bets"_s);
    warnOf(cmdclearprior);
    connect(cmdclearprior, &QPushButton::clicked, this, &PriorBetsPanel::deleteRequested);
    QPushButton *cmdreceipt =
        makeButton(this, u"cmdreceipt"_s, u"Print Receipt"_s,
                   u"Print the receipt of this bettor once more, as after a paper jam"_s);
    connect(cmdreceipt, &QPushButton::clicked, this, &PriorBetsPanel::receiptRequested);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);
    grid->addWidget(lblprior, 0, 0);
    grid->addWidget(lblpriorbettor, 0, 1);
    grid->addWidget(lstpriorbets, 1, 0, 1, 2);
    auto *foot = new QHBoxLayout;
    foot->addWidget(cmdreceipt, 1);
    foot->addWidget(txttotprior);
    grid->addWidget(cmdclearprior, 2, 0, 1, 2);
    grid->setRowMinimumHeight(3, dangerGap / 2);
    grid->addLayout(foot, 4, 0, 1, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
}

void PriorBetsPanel::showBets(const PriorBets &prior)
{
    lblpriorbettor->setText(prior.name);
    lstpriorbets->clear();
    lstpriorbets->addItems(prior.lines());
    lstpriorbets->scrollToBottom();
    txttotprior->setText(prior.bettor == 0 ? QString() : formatMoney(prior.sum));
}

QList<int> PriorBetsPanel::selectedLines() const
{
    QList<int> lines;
    for (const QModelIndex &index : lstpriorbets->selectionModel()->selectedRows())
        lines.append(index.row());
    std::ranges::sort(lines);
    return lines;
}
