#include "ui/emptyhint.h"

#include <QAbstractItemView>
#include <QEvent>

EmptyHint::EmptyHint(const QString &text, QAbstractItemView *view)
    : QLabel(view->viewport())
    , m_view(view)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | Qt::AlignLeft);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const QAbstractItemModel *model = view->model();
    connect(model, &QAbstractItemModel::rowsInserted, this, &EmptyHint::place);
    connect(model, &QAbstractItemModel::rowsRemoved, this, &EmptyHint::place);
    connect(model, &QAbstractItemModel::modelReset, this, &EmptyHint::place);
    view->viewport()->installEventFilter(this);
    place();
}

void EmptyHint::place()
{
    const bool isEmpty = m_view->model()->rowCount() == 0;
    const int gap = m_view->fontMetrics().height();
    setGeometry(m_view->viewport()->rect().adjusted(gap / 2, gap / 2, -gap / 2, -gap / 2));
    setVisible(isEmpty);
    m_view->setAccessibleDescription(isEmpty ? text() : QString());
}

bool EmptyHint::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        place();
    return false;
}
