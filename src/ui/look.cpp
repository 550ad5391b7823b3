#include "ui/look.h"

#include "ui/accessible.h"
#include "ui/colors.h"
#include "ui/controls.h"
#include "ui/scaling.h"
#include "ui/slipprinter.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOptionGroupBox>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The metrics that go with the size of letters. Gaps and margins of layouts are not among them:
// they are scaled with those that screens give themselves.
bool goesWithLetters(QStyle::PixelMetric metric)
{
    switch (metric) {
    case QStyle::PM_ButtonMargin:
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight:
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_RadioButtonLabelSpacing:
    case QStyle::PM_ScrollBarExtent:
    case QStyle::PM_ScrollBarSliderMin:
    case QStyle::PM_HeaderMargin:
    case QStyle::PM_HeaderMarkSize:
    case QStyle::PM_FocusFrameHMargin:
    case QStyle::PM_FocusFrameVMargin:
    case QStyle::PM_ToolTipLabelFrameWidth:
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_TreeViewIndentation:
    case QStyle::PM_MessageBoxIconSize:
        return true;
    default:
        return false;
    }
}

// Whether nothing can be typed into the field now.
bool isForReading(const QStyleOption *option, const QWidget *widget)
{
    const bool takesText =
        (option->state & QStyle::State_Enabled) && !(option->state & QStyle::State_ReadOnly);
    return !takesText && qobject_cast<const QLineEdit *>(widget);
}

// The button that Space presses is seen also before the first key.
void drawFocusRing(const QStyleOption *option, QPainter *painter)
{
    const QPalette &palette = option->palette;
    const QColor ground = palette.color(QPalette::Button);
    const QColor usual = palette.color(QPalette::Highlight);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(
        QPen(contrast(usual, ground) < 3 ? palette.color(QPalette::ButtonText) : usual, 2));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
    painter->restore();
}

// A frame as the style draws it has the window's colour, darkened so much.
constexpr int frameDarkness = 140;

// The option with frames that can be seen.
QStyleOptionButton clearlyFramed(const QStyleOptionButton &option)
{
    QStyleOptionButton framed = option;
    framed.palette.setColor(QPalette::Window, frameColor(option.palette).lighter(frameDarkness));
    return framed;
}

void drawFrame(const QStyleOption &option, QPainter *painter, bool showsFocus)
{
    const bool hasFocus = showsFocus && (option.state & QStyle::State_HasFocus);
    const int width = hasFocus ? 2 : 1;
    const double half = width / 2.0;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(
        hasFocus ? option.palette.color(QPalette::Highlight) : frameColor(option.palette), width));
    painter->drawRoundedRect(QRectF(option.rect).adjusted(half, half, -half, -half), 2, 2);
    painter->restore();
}

// The palette comes from the style, not from the application: one that is set explicitly counts as
// each widget's own, and the style then keeps pixmaps for every single widget ever shown.
class HouseStyle : public QProxyStyle
{
public:
    HouseStyle()
        : QProxyStyle(u"Fusion"_s)
    {
    }

    void polish(QPalette &palette) override
    {
        palette = housePalette(palette);
        palette.setResolveMask(0);
    }

    using QProxyStyle::polish;

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override
    {
        const int drawn = QProxyStyle::pixelMetric(metric, option, widget);
        return goesWithLetters(metric) && drawn > 0 ? qRound(drawn * letterFactor(widget)) : drawn;
    }

    // What the style adds to letters in points, and its least sizes, go with letters too.
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override
    {
        QSize drawn = QProxyStyle::sizeFromContents(type, option, size, widget);
        const double factor = letterFactor(widget);
        if (factor == 1 || !option)
            return drawn;
        const int letters = option->fontMetrics.height();
        if (type == CT_LineEdit) {
            constexpr int leastLetters = 14; // of a field's usual height
            const int added = drawn.height() - std::max(size.height(), leastLetters);
            const int inside =
                size.height() - (letters < leastLetters ? leastLetters - letters : 0);
            drawn.setHeight(std::max(letters + 4, inside + qRound(added * factor)));
        } else if (type == CT_PushButton) {
            constexpr int leastWidth = 80;
            if (drawn.width() == leastWidth)
                drawn.setWidth(std::max(size.width() + 8, qRound(leastWidth * factor)));
        }
        return drawn;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const bool isPressed = element == PE_PanelButtonCommand || element == PE_IndicatorCheckBox
                               || element == PE_IndicatorRadioButton;
        if (isPressed && button) {
            const QStyleOptionButton framed = clearlyFramed(*button);
            QProxyStyle::drawPrimitive(element, &framed, painter, widget);
            if (element == PE_PanelButtonCommand && (option->state & State_HasFocus))
                drawFocusRing(option, painter);
        } else if (element == PE_PanelLineEdit && isForReading(option, widget)) {
            // A field that cannot be typed into does not look as if it could: it has no frame, and
            // no ground but one that it was given.
            if (widget->palette().isBrushSet(QPalette::Active, QPalette::Base))
                painter->fillRect(option->rect, option->palette.base());
        } else if (element == PE_FrameLineEdit || element == PE_Frame) {
            drawFrame(*option, painter, element == PE_FrameLineEdit);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
    }

    // A group of controls has a quiet frame, with its title in the frame's upper edge.
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override
    {
        const auto *box = qstyleoption_cast<const QStyleOptionGroupBox *>(option);
        if (control != CC_GroupBox || !box || box->text.isEmpty())
            return QProxyStyle::subControlRect(control, option, part, widget);
        const int height = box->fontMetrics.height();
        switch (part) {
        case SC_GroupBoxFrame:
            return box->rect.adjusted(0, height / 2, 0, 0);
        case SC_GroupBoxContents:
            return box->rect.adjusted(1, height, -1, -1);
        case SC_GroupBoxLabel:
            return {height / 2, 0, box->fontMetrics.horizontalAdvance(box->text), height};
        default:
            return {};
        }
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override
    {
        const auto *box = qstyleoption_cast<const QStyleOptionGroupBox *>(option);
        if (control != CC_GroupBox || !box || box->text.isEmpty())
            return QProxyStyle::drawComplexControl(control, option, painter, widget);
        const QRect title = subControlRect(control, box, SC_GroupBoxLabel, widget);
        const QRect frame = subControlRect(control, box, SC_GroupBoxFrame, widget);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(frameColor(box->palette));
        painter->setClipRegion(QRegion(box->rect) - title.adjusted(-3, 0, 3, 0));
        painter->drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter->restore();
        drawItemText(painter, title, Qt::AlignCenter | Qt::TextHideMnemonic, box->palette,
                     box->state & State_Enabled, box->text, QPalette::WindowText);
    }
};

} // namespace

void applyLook(QApplication &application)
{
    substituteNamedFonts();
    followPalette(application);
    installAccessibility();
    // Letters grow with the window inside of what has a style sheet, too.
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    QApplication::setStyle(new HouseStyle);
    QApplication::setFont(houseFont());
}
