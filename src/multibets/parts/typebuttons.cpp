#include "multibets/parts/typebuttons.h"

#include "ui/controls.h"

#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

TypeButtons::TypeButtons(const QList<Type> &types, QWidget *parent)
    : QWidget(parent)
    , m_types(types)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Type &type : types) {
        QPushButton *button = makeButton(this, type.name, type.caption, type.toolTip);
        button->setCheckable(true);
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::MinimumExpanding);
        layout->addWidget(button);
        m_buttons.append(button);
        connect(button, &QPushButton::clicked, this, [this, code = type.code] {
            setType(this->type()); // until the owner agrees
            emit clicked(code);
        });
    }
    txttype = makeDisplay(this, u"txttype"_s, u"Current bet type selection"_s);
    txttype->setAccessibleName(u"Bet type"_s);
    txttype->setAlignment(Qt::AlignCenter);
    enlarge(txttype, 1.6);
    fitCharacters(txttype, 4);
    layout->addWidget(txttype);
}

QString TypeButtons::type() const
{
    return txttype->text();
}

void TypeButtons::setType(const QString &code)
{
    txttype->setText(code);
    for (qsizetype i = 0; i < m_buttons.size(); ++i) {
        const bool current = m_types[i].code == code;
        m_buttons[i]->setChecked(current);
        QFont font = this->font();
        font.setBold(current);
        m_buttons[i]->setFont(font);
    }
}
