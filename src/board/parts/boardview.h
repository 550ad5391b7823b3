#pragma once

#include "board/boardpicture.h"

#include <QWidget>

// The odds board itself: one painted widget that fills whatever size it has. What it shows is its
// description for screen readers too.
class BoardView : public QWidget
{
    Q_OBJECT

public:
    explicit BoardView(QWidget *parent);

    // Nothing is painted anew for the picture that is shown already.
    void setPicture(const BoardPicture &picture);
    const BoardPicture &picture() const { return m_picture; }

    QSize minimumSizeHint() const override { return {320, 200}; }
    QSize sizeHint() const override { return {960, 600}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintHeader(QPainter &painter, const QRectF &room) const;
    void paintFooter(QPainter &painter, const QRectF &room) const;

    BoardPicture m_picture;
};
