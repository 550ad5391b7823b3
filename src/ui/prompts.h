#pragma once

#include "common/event/labelled.h"

#include <QString>

class QWidget;

// The boxes that screens ask and tell with. All text is plain text; Escape is No or Cancel. A box
// without a title shows the program's.

void showMessage(QWidget *parent, const QString &text, const QString &title = {});

// Yes/No; true for Yes.
bool askYesNo(QWidget *parent, const QString &text, const QString &title = {});

// Yes/No/Cancel.
enum class Choice { Yes, No, Cancel };
Choice askYesNoCancel(QWidget *parent, const QString &text, const QString &title = {});

// OK/Cancel; true for OK.
bool askOkCancel(QWidget *parent, const QString &text, const QString &title = {});

// A single value; Cancel gives an empty text.
QString askText(QWidget *parent, const QString &text, const QString &title,
                const QString &defaultText = {});

// The box of a failure, in the screen's style and with the error's own label as the title.
void showFileError(QWidget *screen, const FileError &error, ErrorStyle style);

// The one error trap: runs a handler's file work and shows a failure. Returns whether the work came
// to its end.
template<typename Work>
bool trapErrors(QWidget *screen, ErrorStyle style, Work &&work)
{
    try {
        work();
        return true;
    } catch (const FileError &error) {
        showFileError(screen, error, style);
        return false;
    }
}

// The same for work that is the operation \a label, such as printing.
template<typename Work>
bool trapErrors(QWidget *screen, Session &session, ErrorStyle style, const QString &label,
                Work &&work)
{
    return trapErrors(screen, style, [&] { labelled(session, label, work); });
}
