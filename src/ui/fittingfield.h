#pragma once

#include <QLineEdit>

// A field that shows all of its text: what is too long is written in smaller letters, and only then
// ends in dots, so that an amount is never cut where nobody sees it. While somebody types into it
// or copies from it, it scrolls as any field.
class FittingField : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void paintEvent(QPaintEvent *event) override;
};
