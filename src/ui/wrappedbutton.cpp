#include "ui/wrappedbutton.h"

#include "ui/controls.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int captionFlags =
    Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;

} // namespace

WrappedButton::WrappedButton(QWidget *parent)
    : QPushButton(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize WrappedButton::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 20, fontMetrics().height() + margin()};
}

int WrappedButton::heightForWidth(int width) const
{
    const QRect room(0, 0, width - 2 * margin(), QWIDGETSIZE_MAX);
    return fontMetrics().boundingRect(room, captionFlags, text()).height() + margin();
}

void WrappedButton::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    painter.drawControl(QStyle::CE_PushButton, option);
    painter.drawItemText(rect().adjusted(margin(), 0, -margin(), 0), captionFlags, palette(),
                         isEnabled(), text(), QPalette::ButtonText);
}

WrappedButton *makeWrappedButton(QWidget *parent, const QString &name, const QString &caption)
{
    auto *button = new WrappedButton(parent);
    button->setObjectName(name);
    button->setAutoDefault(false);
    setCaption(button, caption);
    return button;
}
