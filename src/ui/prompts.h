#pragma once

#include "common/event/labelled.h"

#include <QString>

class QWidget;

// The boxes that screens ask and tell with. All text is plain text; Escape is No or Cancel. A box
// without a title shows the program's. While a box is open nothing else of the program acts.

void showMessage(QWidget *parent, const QString &text, const QString &title = {});

// Yes/No; true for Yes.
bool askYesNo(QWidget *parent, const QString &text, const QString &title = {});

// The same for what is done on second thought alone: No is the default, so that a hasty Enter does
// no harm.
bool askYesNoCarefully(QWidget *parent, const QString &text, const QString &title = {});

// Whether bets may be placed on a race: at once while \a settled, which says when it was settled,
// is empty; else they come too late, unless the operator knows better.
bool mayBeLate(QWidget *parent, const QString &settled, const QString &title);

// Yes/No/Cancel.
enum class Choice { Yes, No, Cancel };
Choice askYesNoCancel(QWidget *parent, const QString &text, const QString &title = {});

// OK/Cancel before something that cannot be taken back; true for OK. Enter is Cancel.
bool askOkCancel(QWidget *parent, const QString &text, const QString &title = {});

// A single value; Cancel gives an empty text.
QString askText(QWidget *parent, const QString &text, const QString &title,
                const QString &defaultText = {});

// A file to save to, as a path of this computer; empty when the operator cancels. \a name is the
// proposed file name without its \a suffix.
QString askSaveFile(QWidget *parent, const QString &title, const QString &name,
                    const QString &suffix, const QString &filter);

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
