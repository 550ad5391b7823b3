#pragma once

#include <QLineEdit>

// A field that shows and takes no text. What is too long for it is written in smaller letters, and
// then ends in dots: an amount is never cut where nobody sees it. While it has the focus, so that
// its text can be copied, it scrolls as any field.
class DisplayField : public QLineEdit
{
    Q_OBJECT

public:
    explicit DisplayField(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
