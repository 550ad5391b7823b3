#include "betting/parts/betamountpanel.h"

#include "common/print/format.h"
#include "ui/accessible.h"
#include "ui/clickcell.h"
#include "ui/controls.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int presets[BetAmountPanel::presetCount] = {1, 2, 3, 5, 10, 20};
constexpr float amountSteps[] = {0.25F, 1, 5, 10};

ClickCell *makeKey(QWidget *parent, const QString &name, const QString &text,
                   const QString &toolTip)
{
    ClickCell *key = makeCell(parent, name, toolTip);
    key->setText(text);
    key->setAlignment(Qt::AlignCenter);
    key->setAccessibleName(toolTip);
    key->setCursor(Qt::PointingHandCursor);
    setTone(key, Tone::Key);
    enlarge(key, 1.1);
    makeHurried(key);
    return key;
}

} // namespace

BetAmountPanel::BetAmountPanel(const QString &signToolTip, QWidget *parent)
    : QWidget(parent)
{
    build(signToolTip);
    showAmount();
}

void BetAmountPanel::build(const QString &signToolTip)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(4);
    txtplus = makeKey(this, u"txtplus"_s, m_amount.sign(), signToolTip);
    txtbetamt = makeKey(this, u"txtbetamt"_s, {}, u"Click to increase this amount by $1"_s);
    enlarge(txtplus, 1.4);
    enlarge(txtbetamt, 1.4);
    fitCharacters(txtplus, 2);
    // Widths are shared by the cells, not asked for by them.
    txtbetamt->setMinimumWidth(0);
    grid->addWidget(txtplus, 0, 0, 1, 2);
    grid->addWidget(txtbetamt, 0, 2, 1, 10);
    for (int i = 0; i < presetCount; ++i) {
        const QString dollars = QString::number(presets[i]);
        ClickCell *preset =
            makeKey(this, memberName(u"txtone"_s, i), dollars, u"Make bet amount $"_s + dollars);
        preset->setHint(QKeySequence(presetKey(i)).toString(QKeySequence::NativeText));
        connect(preset, &ClickCell::clicked, this, [this, i] { pressPreset(i); });
        grid->addWidget(preset, 1, 2 * i, 1, 2);
    }
    grid->addWidget(makeLabel(this, u"lbladd"_s, u"Add To Bet Amount"_s), 2, 0, 1, 12);
    for (int i = 0; i < int(std::size(amountSteps)); ++i) {
        QString text = plainNumber(amountSteps[i]);
        if (text.startsWith("0."_L1))
            text[0] = u' '; // ".25" with a leading blank
        ClickCell *cell = makeKey(this, memberName(u"txtamt"_s, i), text,
                                  u"Click to add this amount to the current bet"_s);
        connect(cell, &ClickCell::clicked, this, [this, cell] {
            m_amount.press(cell->text());
            showAmount();
        });
        cell->setAccessibleName(u"Add "_s + spokenDollars(double(amountSteps[i])));
        grid->addWidget(cell, 3, 3 * i, 1, 3);
    }
    ClickCell *txtclearamt = makeKey(this, u"txtclearamt"_s, clearAmountCaption(),
                                     u"Click to set the bet amount to $0"_s);
    grid->addWidget(txtclearamt, 4, 0, 1, 12);

    connect(txtplus, &ClickCell::clicked, this, &BetAmountPanel::flipSign);
    connect(txtbetamt, &ClickCell::clicked, this, [this] {
        m_amount.step(1);
        showAmount("$##.00");
    });
    connect(txtclearamt, &ClickCell::clicked, this, [this] {
        m_amount.set(0);
        showAmount();
    });
}

void BetAmountPanel::showAmount(const char *pattern)
{
    txtbetamt->setText(formatMoney(m_amount.value(), pattern));
    txtplus->setText(m_amount.sign());
    txtbetamt->setAccessibleName(u"Bet amount, "_s + spokenDollars(double(m_amount.value())));
    txtplus->setAccessibleName(m_amount.isMinus() ? u"Sign, minus"_s : u"Sign, plus"_s);
}

void BetAmountPanel::flipSign()
{
    m_amount.flipSign();
    showAmount();
}

void BetAmountPanel::pressPreset(int index)
{
    m_amount.set(float(presets[index]));
    showAmount();
}

void BetAmountPanel::setSign(bool minus)
{
    m_amount.setSign(minus);
    showAmount();
}

void BetAmountPanel::type(QChar key)
{
    m_amount.type(key);
    showAmount();
}

void BetAmountPanel::takeBack()
{
    m_amount.takeBack();
    showAmount();
}
