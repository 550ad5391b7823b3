#pragma once

#include "ui/colors.h"
#include "ui/textcell.h"

// A cell that is clicked. Every press counts, the second one of a
// double click too; Space does what a click does.
class ClickCell : public TextCell
{
    Q_OBJECT

public:
    explicit ClickCell(QWidget *parent = nullptr);

    // How a cell stands out. The sign at its left and the weight tell what the colours tell.
    struct Mark
    {
        Tone tone = Tone::None;
        QString sign = {};
        bool isBold = false;
        bool isFramed = true;
        bool operator==(const Mark &) const = default;
    };
    void setMark(const Mark &mark); // an empty one for none

    // A word in small letters in the cell's corner, such as the key that presses it.
    void setHint(const QString &hint);

signals:
    void clicked();
    void doubleClicked(); // after the second press's clicked

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Mark m_mark;
    QString m_hint;
};

ClickCell *makeCell(QWidget *parent, const QString &name, const QString &toolTip = {});
