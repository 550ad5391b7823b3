#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QString>

#include <array>

class QAbstractButton;
class QBoxLayout;
class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QPushButton;

// The controls that forms are made of. Captions and texts are plain text: an ampersand is shown as
// it is, double blanks survive. Every maker sets the object name.

// Name of a member of a control array: "optrace_3".
QString memberName(const QString &array, int index);

// Plain text as a tool tip takes it: its blanks and line breaks stay, long lines wrap.
QString tipText(const QString &toolTip);

// The tool tip and what a screen reader says.
void setTip(QWidget *widget, const QString &toolTip);

// Gives a control its name and, unless it is empty, its tip.
template<typename Widget>
Widget *named(Widget *widget, const QString &name, const QString &toolTip)
{
    widget->setObjectName(name);
    if (!toolTip.isEmpty())
        setTip(widget, toolTip);
    return widget;
}

QPushButton *makeButton(QWidget *parent, const QString &name, const QString &caption,
                        const QString &toolTip = {});

QCheckBox *makeCheck(QWidget *parent, const QString &name, const QString &caption,
                     const QString &toolTip = {});

// Makes the button the one that stands out on its screen: the usual next step.
void standOut(QPushButton *button);

// Makes the button one that clears, deletes, refunds or restores: it looks like it, and no Alt
// letter presses it by mistake.
void warnOf(QPushButton *button);

// Changes a button's caption and keeps its Alt letter if the new caption has it.
void setCaption(QAbstractButton *button, const QString &caption);

// The caption as the operator reads it, without the mark of the Alt letter.
QString captionOf(const QAbstractButton *button);

// The gap in points between what is warned of and what is pressed all night.
inline constexpr int dangerGap = 16;

// Gives every button and option of the screen an Alt letter of its own, in tab order, except those
// that are warned of.
void assignAltLetters(QWidget *screen);

// A label whose text never widens the screen: it goes on in the next line, inside a word where the
// word is wider than the label.
class WrappedLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // The text as it is shown in a width, and its height then.
    struct Fitted
    {
        int width = -1;
        QString text;
        QFont font;
        QString shown;
        int height = 0;
    };
    const Fitted &fitted(int width) const;

    mutable std::array<Fitted, 3> m_fitted; // the last ones that were asked for
};

// A label of one line whose text never widens the screen: what does not fit is cut with dots, and
// the tool tip shows the whole.
class ShortLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ShortLabel(QWidget *parent);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shortened() const;
};

// A label for a text that is not the program's own, such as a name.
ShortLabel *makeShortLabel(QWidget *parent, const QString &name);

// Plain text; wraps when asked to.
QLabel *makeLabel(QWidget *parent, const QString &name, const QString &text,
                  const QString &toolTip = {}, bool wraps = false);

// The heading of a group of controls.
QLabel *makeHeading(QWidget *parent, const QString &name, const QString &text,
                    const QString &toolTip = {});

QLineEdit *makeField(QWidget *parent, const QString &name, const QString &toolTip = {});

// A field that only shows; it takes no part in the tab order.
QLineEdit *makeDisplay(QWidget *parent, const QString &name, const QString &toolTip = {});

// The banner at the top of a screen: a display field that stands out.
QLineEdit *makeBanner(QWidget *parent, const QString &name, const QString &text,
                      const QString &toolTip = {});

// The 12 race options optrace_1 to optrace_12 in a frame named fraround; the button's id is the
// race. \a captionPrefix stands before the race number.
struct RaceOptions
{
    QGroupBox *frame;
    QButtonGroup *group;
};
RaceOptions makeRaceOptions(QWidget *parent, const QString &toolTip, int columns = 12,
                            const QString &captionPrefix = {});

// Makes the widget's text \a factor times as large.
void scaleText(QWidget *widget, double factor);

// Makes the widget's text bold and \a factor times as large.
void enlarge(QWidget *widget, double factor);

// A display field for a sum, bold and \a factor times as large.
QLineEdit *makeTotal(QWidget *parent, const QString &name, const QString &accessibleName,
                     const QString &toolTip = {}, double factor = 1.2);

// Sets the width of a field to hold \a characters, whatever the font becomes.
void fitCharacters(QWidget *field, int characters);

// Fits a field that was fitted so once more, to the font it has now.
void refitCharacters(QWidget *field);

// Makes the control high enough to be hit in a hurry.
void makeHurried(QWidget *target);
