#pragma once

#include <QWidget>

// A line of text in a grid of many. It is no text field: hundreds are made and painted in no time,
// and a new text moves nothing. One that is too long ends in dots; then the tip shows it whole.
class TextCell : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    explicit TextCell(QWidget *parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString &text);
    void setAlignment(Qt::Alignment alignment);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    // Where the text goes.
    QRect inside() const;
    void drawText(QPainter &painter) const;

private:
    QString shortened() const;

    QString m_text;
    Qt::Alignment m_alignment = Qt::AlignLeft;
};

TextCell *makeTextCell(QWidget *parent, const QString &name, const QString &toolTip = {});
