#pragma once

#include <QPushButton>

// A button whose caption goes on in the next line where it is narrow.
class WrappedButton : public QPushButton
{
    Q_OBJECT

public:
    explicit WrappedButton(QWidget *parent);
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int margin() const { return fontMetrics().height() / 2; }
};

// A button as makeButton makes it.
WrappedButton *makeWrappedButton(QWidget *parent, const QString &name, const QString &caption);
