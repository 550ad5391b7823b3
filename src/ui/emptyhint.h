#pragma once

#include <QLabel>

class QAbstractItemView;

// What stands in a list or table while it is empty: what to do, and why.
class EmptyHint : public QLabel
{
    Q_OBJECT

public:
    EmptyHint(const QString &text, QAbstractItemView *view);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void place();

    QAbstractItemView *m_view;
};
