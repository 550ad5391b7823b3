#pragma once

#include "ui/controls.h"

// How much a note matters.
enum class NoteKind { Plain, Warning };

// The status line at the foot of every screen, named lblnote. What it tells stays until the next
// action tells something else. It has room for two lines, so that a note that comes or goes moves
// nothing. A warning is bold and has a sign before it.
class NoteLine : public WrappedLabel
{
    Q_OBJECT

public:
    explicit NoteLine(QWidget *parent);

    // Tells the note in place of what was told before.
    void setText(const QString &note, NoteKind kind = NoteKind::Plain);
    void warn(const QString &warning) { setText(warning, NoteKind::Warning); }
    void clear() { setText({}); }

    // Tells the note below what was told before, unless it is part of that.
    void add(const QString &note, NoteKind kind = NoteKind::Plain);

    // The same, above it.
    void addBefore(const QString &note, NoteKind kind = NoteKind::Plain);

    bool isWarning() const { return m_kind == NoteKind::Warning; }

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    bool tells(const QString &note) const { return note.isEmpty() || text().contains(note); }
    NoteKind atLeast(NoteKind kind) const { return isWarning() ? m_kind : kind; }
    int signSize() const { return isWarning() ? fontMetrics().height() : 0; }
    void makeRoom();

    NoteKind m_kind = NoteKind::Plain;
};

NoteLine *makeNoteLine(QWidget *parent);

// The status line of a screen; null when it has none.
NoteLine *noteLineOf(const QWidget *screen);
