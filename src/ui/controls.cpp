#include "ui/controls.h"

#include "ui/colors.h"
#include "ui/fittingfield.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QMap>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr char altLetterProperty[] = "altLetter";
constexpr char captionProperty[] = "caption";
constexpr char dangerProperty[] = "isDangerous";
constexpr char charactersProperty[] = "charactersWide";

// The caption with its Alt letter marked, and ampersands of its own doubled.
QString markedCaption(const QString &caption, QChar altLetter)
{
    qsizetype at = altLetter.isNull() ? -1 : caption.indexOf(altLetter, 0, Qt::CaseInsensitive);
    QString marked;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (i == at)
            marked += u'&';
        if (caption[i] == u'&')
            marked += u'&';
        marked += caption[i];
    }
    return marked;
}

void applyCaption(QAbstractButton *button)
{
    const QString letter = button->property(altLetterProperty).toString();
    button->setText(markedCaption(captionOf(button), letter.isEmpty() ? QChar() : letter.front()));
}

// Gives the button the first free letter of its caption; when all are taken, a button that has one
// of them moves to another of its own. Returns false when that cannot be.
bool takeAltLetter(QAbstractButton *button, QMap<QChar, QAbstractButton *> &owners,
                   QSet<QChar> &tried)
{
    const QString letters = captionOf(button).toUpper();
    for (const QChar letter : letters) {
        if (letter.isLetterOrNumber() && !owners.contains(letter)) {
            owners.insert(letter, button);
            return true;
        }
    }
    for (const QChar letter : letters) {
        if (!letter.isLetterOrNumber() || tried.contains(letter))
            continue;
        tried.insert(letter);
        if (takeAltLetter(owners.value(letter), owners, tried)) {
            owners.insert(letter, button);
            return true;
        }
    }
    return false;
}

// Lets words that are wider than \a width be broken: a blank of no width after each character.
QString breakable(const QString &text, const QFontMetrics &metrics, int width)
{
    const int widest = metrics.maxWidth();
    QString result;
    qsizetype from = 0;
    while (from < text.size()) {
        qsizetype to = from;
        while (to < text.size() && !text[to].isSpace())
            ++to;
        const QString word = text.mid(from, to - from);
        // Measuring takes time, and hardly any word is so long.
        if (word.size() * widest > width && metrics.horizontalAdvance(word) > width) {
            for (const QChar character : word)
                result += QString(character) + QChar(0x200b);
        } else {
            result += word;
        }
        if (to < text.size())
            result += text[to];
        from = to + 1;
    }
    return result;
}

} // namespace

QString memberName(const QString &array, int index)
{
    return array + u'_' + QString::number(index);
}

QString tipText(const QString &toolTip)
{
    // Rich text only to wrap long tips; the tip's own characters stay what they are.
    return toolTip.isEmpty() ? QString()
                             : QString("<span style='white-space: pre-wrap'>"_L1
                                       + toolTip.toHtmlEscaped() + "</span>"_L1);
}

void setTip(QWidget *widget, const QString &toolTip)
{
    widget->setToolTip(tipText(toolTip));
    widget->setAccessibleDescription(toolTip);
}

QPushButton *makeButton(QWidget *parent, const QString &name, const QString &caption,
                        const QString &toolTip)
{
    auto *button = named(new QPushButton(parent), name, toolTip);
    setCaption(button, caption);
    button->setAutoDefault(false);
    return button;
}

void standOut(QPushButton *button)
{
    enlarge(button, 1.3);
    makeHurried(button);
    setTone(button, Tone::NextStep);
}

void warnOf(QPushButton *button)
{
    button->setProperty(dangerProperty, true);
    setTone(button, Tone::Danger);
}

void setCaption(QAbstractButton *button, const QString &caption)
{
    button->setProperty(captionProperty, caption);
    applyCaption(button);
}

QString captionOf(const QAbstractButton *button)
{
    return button->property(captionProperty).toString();
}

void assignAltLetters(QWidget *screen)
{
    QMap<QChar, QAbstractButton *> owners;
    for (QWidget *widget = screen->nextInFocusChain(); widget && widget != screen;
         widget = widget->nextInFocusChain()) {
        auto *button = qobject_cast<QAbstractButton *>(widget);
        QSet<QChar> tried;
        if (button && screen->isAncestorOf(button) && !button->property(dangerProperty).toBool())
            takeAltLetter(button, owners, tried);
    }
    for (auto owner = owners.cbegin(); owner != owners.cend(); ++owner) {
        owner.value()->setProperty(altLetterProperty, QString(owner.key()));
        applyCaption(owner.value());
    }
}

QCheckBox *makeCheck(QWidget *parent, const QString &name, const QString &caption,
                     const QString &toolTip)
{
    auto *check = named(new QCheckBox(parent), name, toolTip);
    setCaption(check, caption);
    return check;
}

QLabel *makeLabel(QWidget *parent, const QString &name, const QString &text, const QString &toolTip,
                  bool wraps)
{
    auto *label = named(wraps ? new WrappedLabel(parent) : new QLabel(parent), name, toolTip);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(wraps);
    return label;
}

QSize WrappedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height()};
}

int WrappedLabel::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    return fitted(width - margins.left() - margins.right()).height + margins.top()
           + margins.bottom();
}

// Layouts ask for the height again and again, mostly for the width of the last time.
const WrappedLabel::Fitted &WrappedLabel::fitted(int width) const
{
    for (const Fitted &known : m_fitted) {
        if (known.width == width && known.text == text() && known.font == font())
            return known;
    }
    std::rotate(m_fitted.begin(), m_fitted.end() - 1, m_fitted.end());
    const QString shown = breakable(text(), fontMetrics(), width);
    const QRect bounds =
        fontMetrics().boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX), Qt::TextWordWrap, shown);
    m_fitted.front() = {width, text(), font(), shown, bounds.height()};
    return m_fitted.front();
}

void WrappedLabel::paintEvent(QPaintEvent *event)
{
    const QString shown = fitted(contentsRect().width()).shown;
    if (shown == text())
        return QLabel::paintEvent(event);
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), int(alignment()) | Qt::TextWordWrap, palette(),
                          isEnabled(), shown, foregroundRole());
}

ShortLabel::ShortLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QString ShortLabel::shortened() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ShortLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool cut = shortened() != text();
        setTip(this, cut ? text() : QString());
    }
    return QLabel::event(event);
}

void ShortLabel::paintEvent(QPaintEvent *event)
{
    const QString shown = shortened();
    if (shown == text())
        return QLabel::paintEvent(event);
    QPainter painter(this);
    style()->drawItemText(&painter, contentsRect(), int(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

ShortLabel *makeShortLabel(QWidget *parent, const QString &name)
{
    return named(new ShortLabel(parent), name, {});
}

void scaleText(QWidget *widget, double factor)
{
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * factor);
    widget->setFont(font);
}

void enlarge(QWidget *widget, double factor)
{
    scaleText(widget, factor);
    QFont font = widget->font();
    font.setBold(true);
    widget->setFont(font);
}

QLineEdit *makeTotal(QWidget *parent, const QString &name, const QString &accessibleName,
                     const QString &toolTip, double factor)
{
    QLineEdit *field = makeDisplay(parent, name, toolTip);
    field->setAccessibleName(accessibleName);
    field->setAlignment(Qt::AlignRight);
    enlarge(field, factor);
    return field;
}

QLabel *makeHeading(QWidget *parent, const QString &name, const QString &text,
                    const QString &toolTip)
{
    QLabel *label = makeLabel(parent, name, text, toolTip);
    enlarge(label, 1);
    return label;
}

QLineEdit *makeField(QWidget *parent, const QString &name, const QString &toolTip)
{
    return named(new FittingField(parent), name, toolTip);
}

QLineEdit *makeDisplay(QWidget *parent, const QString &name, const QString &toolTip)
{
    QLineEdit *field = makeField(parent, name, toolTip);
    field->setReadOnly(true);
    field->setFocusPolicy(Qt::ClickFocus);
    return field;
}

QLineEdit *makeBanner(QWidget *parent, const QString &name, const QString &text,
                      const QString &toolTip)
{
    QLineEdit *field = makeDisplay(parent, name, toolTip);
    enlarge(field, 1.4);
    field->setFrame(false);
    setTone(field, Tone::Banner);
    field->setAlignment(Qt::AlignCenter);
    field->setText(text);
    field->setAccessibleName(u"Event and race"_s);
    return field;
}

RaceOptions makeRaceOptions(QWidget *parent, const QString &toolTip, int columns,
                            const QString &captionPrefix)
{
    auto *frame = named(new QGroupBox(u"Race"_s, parent), u"fraround"_s, {});
    auto *group = new QButtonGroup(frame);
    auto *grid = new QGridLayout(frame);
    grid->setContentsMargins(6, 2, 6, 2);
    for (int race = 1; race <= 12; ++race) {
        auto *option = named(new QRadioButton(frame), memberName(u"optrace"_s, race), toolTip);
        option->setText(captionPrefix + QString::number(race));
        option->setAccessibleName("Race "_L1 + QString::number(race));
        group->addButton(option, race);
        grid->addWidget(option, (race - 1) / columns, (race - 1) % columns);
    }
    return {frame, group};
}

void fitCharacters(QWidget *field, int characters)
{
    field->setProperty(charactersProperty, characters);
    const int textWidth = characters * field->fontMetrics().horizontalAdvance(u'0');
    field->setFixedWidth(textWidth + field->fontMetrics().averageCharWidth() + 8);
}

void refitCharacters(QWidget *field)
{
    if (const QVariant characters = field->property(charactersProperty); characters.isValid())
        fitCharacters(field, characters.toInt());
}

void makeHurried(QWidget *target)
{
    target->setMinimumHeight(36);
}
