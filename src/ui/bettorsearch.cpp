#include "ui/bettorsearch.h"

#include "ui/controls.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

BettorSearch::BettorSearch(Typing typing, const QString &resetCaption, const QString &resetToolTip,
                           QWidget *parent)
    : QWidget(parent)
    , m_typing(typing)
{
    txtname = makeField(this, u"txtname"_s,
                        u"Enter the first few characters of the bettor name until the bettor name "
                        "appears below or click on a name below once it is visible-doubleclick to "
                        "reset list"_s);
    txtname->setAccessibleName(u"Bettor name"_s);
    lstentries = new QListWidget(this);
    lstentries->setObjectName(u"lstentries"_s);
    setTip(lstentries, u"Click to select a bettor name"_s);
    lstentries->setAccessibleName(u"Bettor names"_s);
    lstentries->setUniformItemSizes(true);
    cmdreset = makeButton(this, u"cmdreset"_s, resetCaption, resetToolTip);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(txtname);
    layout->addWidget(lstentries, 1);
    layout->addWidget(cmdreset);

    connect(txtname, &QLineEdit::textEdited, this, &BettorSearch::search);
    connect(txtname, &QLineEdit::returnPressed, this, &BettorSearch::chooseFound);
    connect(lstentries, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { choose(lstentries->row(item)); });
    connect(cmdreset, &QPushButton::clicked, this, &BettorSearch::resetRequested);
    txtname->installEventFilter(this);
    lstentries->installEventFilter(this);
}

void BettorSearch::setBettors(const BettorTable &bettors)
{
    lstentries->clear();
    m_keys.clear();
    m_numbers.clear();
    QStringList names;
    for (const Bettor &bettor : bettors.sortedBettors()) {
        names.append(bettor.name);
        m_numbers.append(bettor.number);
        m_keys.append(searchKey(bettor.name));
    }
    lstentries->addItems(names);
    reset();
}

void BettorSearch::reset()
{
    txtname->clear();
    search({});
}

void BettorSearch::focusSearch()
{
    txtname->setFocus();
    txtname->selectAll();
}

void BettorSearch::search(const QString &typed)
{
    m_wasStepped = false;
    const QString text = typed.toUpper();
    if (txtname->text() != text)
        txtname->setText(text);
    txtname->end(false);
    const QString key = searchKey(text);
    if (m_typing == Typing::NarrowsList) {
        for (int row = 0; row < lstentries->count(); ++row)
            lstentries->item(row)->setHidden(!m_keys[row].startsWith(key));
    }
    if (key.isEmpty()) {
        lstentries->setCurrentRow(-1);
        lstentries->scrollToTop();
        return;
    }
    moveTo(rowFor(key));
}

// The first name that begins with the text, else the first that sorts after it, else the last.
int BettorSearch::rowFor(const QString &key) const
{
    const auto begins =
        std::ranges::find_if(m_keys, [&](const QString &name) { return name.startsWith(key); });
    if (begins != m_keys.end())
        return int(begins - m_keys.begin());
    const auto after =
        std::ranges::find_if(m_keys, [&](const QString &name) { return name > key; });
    return after != m_keys.end() ? int(after - m_keys.begin()) : int(m_keys.size()) - 1;
}

void BettorSearch::moveTo(int row)
{
    lstentries->setCurrentRow(row);
    if (QListWidgetItem *item = lstentries->item(row))
        lstentries->scrollToItem(item, QAbstractItemView::PositionAtTop);
}

// To the next row up or down that shows; at the end of the list it stays.
void BettorSearch::step(int direction)
{
    int row = lstentries->currentRow() + direction;
    while (lstentries->item(row) && lstentries->item(row)->isHidden())
        row += direction;
    if (lstentries->item(row)) {
        m_wasStepped = true;
        moveTo(row);
    }
}

void BettorSearch::chooseFound()
{
    const int row = lstentries->currentRow();
    if (txtname->text().isEmpty() || row < 0)
        return;
    const bool isMeant = m_wasStepped || m_keys[row].startsWith(searchKey(txtname->text()));
    choose(row, isMeant ? QString() : txtname->text());
}

// A digit that can belong to no name is an amount for the one bettor who is meant.
bool BettorSearch::chooseOnly(const QKeyEvent &key)
{
    const auto isDigit = [](QChar character) { return character.isDigit(); };
    const auto holdsDigit = [&](const QString &name) { return std::ranges::any_of(name, isDigit); };
    const QString begun = searchKey(txtname->text());
    if (m_typing != Typing::MovesToName || begun.isEmpty() || key.text().size() != 1
        || !isDigit(key.text().front()) || std::ranges::any_of(m_keys, holdsDigit))
        return false;
    const auto isMeant = [&](const QString &name) { return name.startsWith(begun); };
    if (std::ranges::count_if(m_keys, isMeant) != 1)
        return false;
    choose(int(std::ranges::find_if(m_keys, isMeant) - m_keys.begin()));
    return !txtname->hasFocus();
}

void BettorSearch::choose(int row, const QString &missed)
{
    const QListWidgetItem *item = lstentries->item(row);
    if (item && !item->isHidden())
        emit selected(m_numbers[row], item->text(), missed);
}

bool BettorSearch::eventFilter(QObject *object, QEvent *event)
{
    if (object == txtname && event->type() == QEvent::MouseButtonDblClick) {
        reset();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (object == lstentries && (enter || key->key() == Qt::Key_Space)
            && key->modifiers() == Qt::NoModifier) {
            choose(lstentries->currentRow());
            return true;
        }
        if (object == txtname && chooseOnly(*key)) {
            QCoreApplication::sendEvent(QApplication::focusWidget(), event);
            return true;
        }
        const bool moves = key->key() == Qt::Key_Down || key->key() == Qt::Key_Up;
        if (object == txtname && moves) {
            step(key->key() == Qt::Key_Down ? 1 : -1);
            return true;
        }
    }
    return QWidget::eventFilter(object, event);
}
