#include "ui/noteline.h"

#include "ui/accessible.h"
#include "ui/colors.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

NoteLine::NoteLine(QWidget *parent)
    : WrappedLabel(parent)
{
    setObjectName(u"lblnote"_s);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | Qt::AlignLeft);
    scaleText(this, 1.1);
    setMinimumHeight(2 * fontMetrics().lineSpacing());
    setTone(this, Tone::Notice);
}

void NoteLine::setText(const QString &note, NoteKind kind)
{
    m_kind = note.isEmpty() ? NoteKind::Plain : kind;
    if (QFont letters = font(); letters.bold() != isWarning()) {
        letters.setBold(isWarning());
        setFont(letters);
    }
    makeRoom();
    WrappedLabel::setText(note);
    announce(this);
}

void NoteLine::add(const QString &note, NoteKind kind)
{
    if (!tells(note))
        setText(text().isEmpty() ? note : text() + u'\n' + note, atLeast(kind));
}

void NoteLine::addBefore(const QString &note, NoteKind kind)
{
    if (!tells(note))
        setText(text().isEmpty() ? note : note + u'\n' + text(), atLeast(kind));
}

// The sign is as large as the letters.
void NoteLine::makeRoom()
{
    setContentsMargins(signSize() == 0 ? 0 : signSize() * 5 / 4, 0, 0, 0);
}

void NoteLine::changeEvent(QEvent *event)
{
    WrappedLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        makeRoom();
}

void NoteLine::paintEvent(QPaintEvent *event)
{
    WrappedLabel::paintEvent(event);
    if (!isWarning())
        return;
    QPainter painter(this);
    style()
        ->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this)
        .paint(&painter, QRect(0, 0, signSize(), signSize()));
}

NoteLine *makeNoteLine(QWidget *parent)
{
    return new NoteLine(parent);
}

NoteLine *noteLineOf(const QWidget *screen)
{
    return screen ? screen->findChild<NoteLine *>(u"lblnote"_s) : nullptr;
}
