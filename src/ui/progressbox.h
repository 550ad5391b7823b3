#pragma once

#include "common/files/progress.h"
#include "ui/undisturbed.h"

#include <QElapsedTimer>
#include <QProgressDialog>

// The box of work that may take longer than half a second: what is done, how far it is, and Cancel
// unless the work cannot be ended halfway. Nothing else of the program acts meanwhile. Work that is
// done sooner never shows it.
class ProgressBox : public QProgressDialog
{
    Q_OBJECT

public:
    enum class Ending { Cancel, OnlyWhenDone };

    // Stands before the window of \a screen; \a text is plain text.
    ProgressBox(QWidget *screen, const QString &text, Ending ending = Ending::Cancel);

    // Called between the steps of the work: shows that \a done steps of \a total are done, a total
    // of 0 meaning that nobody knows how many there are. Returns false once Cancel was pressed.
    bool step(int done, int total);

    // The same for work that cannot be ended halfway.
    Progress progress();

private:
    Undisturbed m_undisturbed;
    QElapsedTimer m_begun;
    QElapsedTimer m_drawn;
};
