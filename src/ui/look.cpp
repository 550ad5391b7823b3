#include "ui/look.h"

#include "ui/slipprinter.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>

using namespace Qt::StringLiterals;

namespace {

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
};

} // namespace

void applyLook(QApplication &application)
{
    substituteNamedFonts();
    QApplication::setStyle(new HouseStyle);
    QFont font(u"Liberation Sans"_s);
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(10);
    QApplication::setFont(font);
    // The banner, and the groups of controls: quiet frames under a strong head.
    application.setStyleSheet(uR"(
QLineEdit[banner="true"] { background: #1f4d34; color: #ffffff; border: none; padding: 3px; }
QGroupBox { border: 1px solid #b9c6bc; border-radius: 4px; margin-top: 0.7em; }
QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 3px; }
QPushButton[standsOut="true"] {
    background: #1f6b3f; color: #ffffff; border: 1px solid #123f25; border-radius: 4px;
    padding: 0.35em 1.2em; }
QPushButton[standsOut="true"]:hover { background: #26804c; }
QPushButton[standsOut="true"]:pressed { background: #17512f; }
QPushButton[standsOut="true"]:focus { border: 2px solid #e8b63a; }
QLineEdit#txtsetup { background: transparent; border: none; }
QLabel#lblnote { color: #7a3b00; }
)"_s);
}
