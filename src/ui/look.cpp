#include "ui/look.h"

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

// Whether nothing can be typed into the field now; cells are for pressing.
bool isForReading(const QStyleOption *option, const QWidget *widget)
{
    const bool takesText =
        (option->state & QStyle::State_Enabled) && !(option->state & QStyle::State_ReadOnly);
    return !takesText && qobject_cast<const QLineEdit *>(widget)
           && !qobject_cast<const ClickCell *>(widget);
}

// The button that Space presses is seen also before the first key.
void drawFocusRing(const QStyleOption *option, QPainter *painter)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option->palette.color(QPalette::Highlight), 2));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(1.5, 1.5, -1.5, -1.5), 2, 2);
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
        palette.setColor(QPalette::Window, QColor(0xee, 0xf2, 0xee));
        palette.setColor(QPalette::WindowText, QColor(0x1a, 0x24, 0x1d));
        palette.setColor(QPalette::Base, Qt::white);
        palette.setColor(QPalette::Text, QColor(0x10, 0x18, 0x12));
        palette.setColor(QPalette::Button, QColor(0xdd, 0xe6, 0xdf));
        palette.setColor(QPalette::ButtonText, QColor(0x10, 0x18, 0x12));
        palette.setColor(QPalette::Highlight, QColor(0x1f, 0x6b, 0x3f));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        palette.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xe0));
        palette.setColor(QPalette::ToolTipText, QColor(0x20, 0x20, 0x10));
        for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
            palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x88, 0x82));
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

    // A field that cannot be typed into does not look as if it could: it has no frame, and no
    // ground but one that it was given.
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_PanelLineEdit || !isForReading(option, widget)) {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            if (element == PE_PanelButtonCommand && (option->state & State_HasFocus))
                drawFocusRing(option, painter);
            return;
        }
        if (widget->palette().isBrushSet(QPalette::Active, QPalette::Base))
            painter->fillRect(option->rect, option->palette.base());
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
        painter->setPen(QColor(0xb9, 0xc6, 0xbc));
        painter->setClipRegion(QRegion(box->rect) - title.adjusted(-3, 0, 3, 0));
        painter->drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter->restore();
        drawItemText(painter, title, Qt::AlignCenter | Qt::TextHideMnemonic, box->palette,
                     box->state & State_Enabled, box->text, QPalette::WindowText);
    }
};

} // namespace

void applyLook(QApplication &)
{
    substituteNamedFonts();
    // Letters grow with the window inside of what has a style sheet, too.
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    QApplication::setStyle(new HouseStyle);
    QApplication::setFont(houseFont());
}
