#include "multibets/parts/postgrid.h"

#include "ui/clickcell.h"
#include "ui/controls.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int lineCount = 3;
constexpr int postCells = 21;

// Yellow, or magenta with a heavy frame and bold figures, so that the state needs no colour.
ClickCell::Mark markOfPost(bool isChosen)
{
    return {isChosen ? Tone::ChosenPost : Tone::Post, {}, isChosen, isChosen};
}

int indexOf(int line, int post)
{
    return line * postCells + post - 1;
}

} // namespace

PostGrid::PostGrid(Selection selection, QWidget *parent)
    : QWidget(parent)
    , m_selection(selection)
    , m_layout(new QGridLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setHorizontalSpacing(3);
    m_layout->setVerticalSpacing(3);
    for (int line = 0; line < lineCount; ++line) {
        txtgroup[std::size_t(line)] = makeDisplay(this, memberName(u"txtgroup"_s, line));
        fitCharacters(txtgroup[std::size_t(line)], 12);
        m_layout->addWidget(txtgroup[std::size_t(line)], line, 0);
        for (int post = 1; post <= postCells; ++post) {
            const int index = indexOf(line, post);
            ClickCell *made = makeCell(this, memberName(u"txtnum"_s, index));
            made->setText(QString::number(post));
            made->setAlignment(Qt::AlignCenter);
            made->setMinimumWidth(made->fontMetrics().horizontalAdvance(u"000"_s) + 10);
            made->setEnabled(false);
            made->installEventFilter(this);
            // Bold figures are wider: the columns share the room whatever is marked.
            made->setFixedHeight(made->fontMetrics().height() + 10);
            QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
            policy.setRetainSizeWhenHidden(true);
            made->setSizePolicy(policy);
            m_layout->addWidget(made, line, post);
            m_layout->setColumnStretch(post, 1);
            txtnum[std::size_t(index)] = made;
            setSelected(index, false);
            connect(made, &ClickCell::clicked, this, [this, line, post] { toggle(line, post); });
        }
    }
    lblpost = makeShortLabel(this, u"lblpost"_s);
    enlarge(lblpost, 1.1);
    m_layout->addWidget(lblpost, lineCount, 0, 1, postCells + 2);
    connect(this, &PostGrid::selectionChanged, this, &PostGrid::showHorse);
    showHorse();
}

void PostGrid::setLine(int line, const QString &label, const QString &labelTip,
                       const QString &cellTip)
{
    QLineEdit *group = txtgroup[std::size_t(line)];
    setTip(group, labelTip);
    setLabel(line, label);
    for (int post = 1; post <= postCells; ++post)
        setCellTip(line, post, cellTip);
}

void PostGrid::setLabel(int line, const QString &label)
{
    txtgroup[std::size_t(line)]->setText(label);
    txtgroup[std::size_t(line)]->setAccessibleName(label);
}

void PostGrid::setCellTip(int line, int post, const QString &tip)
{
    setTip(cell(line, post), tip);
}

void PostGrid::setHorse(int line, int post, const QString &text)
{
    m_horses[std::size_t(indexOf(line, post))] = text;
    nameCell(indexOf(line, post));
}

void PostGrid::nameCell(int index)
{
    const QString &horse = m_horses[std::size_t(index)];
    const QString post = "Post "_L1 + QString::number(index % postCells + 1);
    txtnum[std::size_t(index)]->setAccessibleName(
        (horse.isEmpty() ? post : horse) + ", line "_L1 + QString::number(index / postCells + 1)
        + (m_selected[std::size_t(index)] ? ", selected"_L1 : ", not selected"_L1));
}

void PostGrid::showHorse()
{
    QStringList chosen;
    QString pointed;
    for (std::size_t index = 0; index < txtnum.size(); ++index) {
        const ClickCell *cell = txtnum[index];
        if (cell->isEnabled() && (cell->underMouse() || (cell->hasFocus() && pointed.isEmpty())))
            pointed = m_horses[index];
        if (m_selected[index])
            chosen.append(m_horses[index]);
    }
    if (!pointed.isEmpty())
        return lblpost->setText(pointed);
    lblpost->setText(chosen.isEmpty() ? u"Point at a post number to see its horse"_s
                                      : chosen.join(u"; "_s));
}

void PostGrid::addAtEnd(int line, QWidget *control)
{
    m_layout->addWidget(control, line, postCells + 1);
}

void PostGrid::showPosts(const std::array<std::set<int>, 3> &shown)
{
    for (int line = 0; line < lineCount; ++line) {
        bool first = true;
        for (int post = 1; post <= postCells; ++post) {
            const bool has = shown[std::size_t(line)].contains(post);
            cell(line, post)->setEnabled(has);
            cell(line, post)->setVisible(has);
            if (!has)
                setSelected(indexOf(line, post), false);
            // Tab stops once a line; the arrow keys go on from there.
            cell(line, post)->setFocusPolicy(has && first ? Qt::StrongFocus : Qt::ClickFocus);
            first = first && !has;
        }
    }
    emit selectionChanged();
}

void PostGrid::dropRepeats()
{
    bool dropped = false;
    for (int line = lineCount - 1; line > 0; --line) {
        for (const int post : selectedPosts(line)) {
            if (!isSelectedElsewhere(line, post))
                continue;
            setSelected(indexOf(line, post), false);
            dropped = true;
        }
    }
    if (!dropped)
        return;
    emit selectionChanged();
    emit duplicateRefused();
}

void PostGrid::clearSelection()
{
    for (int index = 0; index < lineCount * postCells; ++index)
        setSelected(index, false);
    emit selectionChanged();
}

QList<int> PostGrid::selectedPosts(int line) const
{
    QList<int> selected;
    for (int post = 1; post <= postCells; ++post) {
        if (m_selected[std::size_t(indexOf(line, post))])
            selected.append(post);
    }
    return selected;
}

ClickCell *PostGrid::cell(int line, int post) const
{
    return txtnum[std::size_t(indexOf(line, post))];
}

void PostGrid::toggle(int line, int post)
{
    const int index = indexOf(line, post);
    const bool selects = !m_selected[std::size_t(index)];
    if (selects && !m_repeatsAllowed && isSelectedElsewhere(line, post)) {
        emit duplicateRefused();
        return;
    }
    if (selects && m_selection == Selection::OnePerLine) {
        for (int other = 1; other <= postCells; ++other)
            setSelected(indexOf(line, other), false);
    }
    setSelected(index, selects);
    emit selectionChanged();
}

void PostGrid::setSelected(int index, bool selected)
{
    ClickCell *changed = txtnum[std::size_t(index)];
    m_selected[std::size_t(index)] = selected;
    changed->setMark(markOfPost(selected));
    nameCell(index);
}

bool PostGrid::isSelectedElsewhere(int line, int post) const
{
    for (int other = 0; other < lineCount; ++other) {
        if (other != line && m_selected[std::size_t(indexOf(other, post))])
            return true;
    }
    return false;
}

bool PostGrid::eventFilter(QObject *object, QEvent *event)
{
    const bool pointsElsewhere = event->type() == QEvent::Enter || event->type() == QEvent::Leave
                                 || event->type() == QEvent::FocusIn
                                 || event->type() == QEvent::FocusOut;
    if (pointsElsewhere)
        QMetaObject::invokeMethod(this, &PostGrid::showHorse, Qt::QueuedConnection);
    if (event->type() == QEvent::KeyPress) {
        const auto found = std::ranges::find(txtnum, object);
        if (found != txtnum.end())
            return moveFocus(int(found - txtnum.begin()), static_cast<QKeyEvent *>(event)->key());
    }
    return QWidget::eventFilter(object, event);
}

// Moves to the next usable cell in the direction of an arrow key.
bool PostGrid::moveFocus(int index, int key)
{
    int lineStep = 0;
    int postStep = 0;
    switch (key) {
    case Qt::Key_Left:
        postStep = -1;
        break;
    case Qt::Key_Right:
        postStep = 1;
        break;
    case Qt::Key_Up:
        lineStep = -1;
        break;
    case Qt::Key_Down:
        lineStep = 1;
        break;
    default:
        return false;
    }
    int line = index / postCells + lineStep;
    int post = index % postCells + 1 + postStep;
    for (; line >= 0 && line < lineCount && post >= 1 && post <= postCells;
         line += lineStep, post += postStep) {
        if (cell(line, post)->isEnabled()) {
            cell(line, post)->setFocus(Qt::OtherFocusReason);
            break;
        }
    }
    return true;
}
