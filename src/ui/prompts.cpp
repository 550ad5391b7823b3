#include "ui/prompts.h"

#include "ui/undisturbed.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

// A box belongs to the window, which outlives every screen.
QWidget *windowOf(QWidget *parent)
{
    return parent ? parent->window() : nullptr;
}

// Runs the box; until it is answered nothing else acts.
int runUndisturbed(QDialog &box)
{
    const Undisturbed undisturbed(&box);
    return box.exec();
}

// The width that shows all of a box's title: a short text must not cut it.
int titleWidth(const QDialog &dialog)
{
    return dialog.fontMetrics().horizontalAdvance(dialog.windowTitle() + QString(16, u'n'));
}

QMessageBox::StandardButton runBox(QWidget *parent, QMessageBox::Icon icon, const QString &text,
                                   const QString &title, QMessageBox::StandardButtons buttons,
                                   QMessageBox::StandardButton escape,
                                   QMessageBox::StandardButton usual = QMessageBox::NoButton)
{
    QMessageBox box(icon, title.isEmpty() ? u"TRELAWN"_s : title, text, buttons, windowOf(parent));
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(escape);
    box.setDefaultButton(usual);
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addItem(new QSpacerItem(titleWidth(box), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    return QMessageBox::StandardButton(runUndisturbed(box));
}

} // namespace

void showMessage(QWidget *parent, const QString &text, const QString &title)
{
    runBox(parent, QMessageBox::Information, text, title, QMessageBox::Ok, QMessageBox::Ok);
}

bool askYesNo(QWidget *parent, const QString &text, const QString &title)
{
    return runBox(parent, QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No,
                  QMessageBox::No)
           == QMessageBox::Yes;
}

bool askYesNoCarefully(QWidget *parent, const QString &text, const QString &title)
{
    return runBox(parent, QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No,
                  QMessageBox::No, QMessageBox::No)
           == QMessageBox::Yes;
}

bool mayBeLate(QWidget *parent, const QString &settled, const QString &title)
{
    return settled.isEmpty()
           || askYesNoCarefully(parent, settled + u". Place these bets all the same?"_s, title);
}

Choice askYesNoCancel(QWidget *parent, const QString &text, const QString &title)
{
    const auto button =
        runBox(parent, QMessageBox::Question, text, title,
               QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel);
    return button == QMessageBox::Yes  ? Choice::Yes
           : button == QMessageBox::No ? Choice::No
                                       : Choice::Cancel;
}

bool askOkCancel(QWidget *parent, const QString &text, const QString &title)
{
    return runBox(parent, QMessageBox::Warning, text, title, QMessageBox::Ok | QMessageBox::Cancel,
                  QMessageBox::Cancel, QMessageBox::Cancel)
           == QMessageBox::Ok;
}

QString askText(QWidget *parent, const QString &text, const QString &title,
                const QString &defaultText)
{
    QInputDialog dialog(windowOf(parent));
    dialog.setWindowTitle(title.isEmpty() ? u"TRELAWN"_s : title);
    dialog.setLabelText(text);
    dialog.setTextValue(defaultText);
    const auto labels = dialog.findChildren<QLabel *>();
    for (QLabel *label : labels) {
        label->setTextFormat(Qt::PlainText);
        label->setMinimumWidth(titleWidth(dialog));
    }
    return runUndisturbed(dialog) == QDialog::Accepted ? dialog.textValue() : QString();
}

QString askSaveFile(QWidget *parent, const QString &title, const QString &name,
                    const QString &suffix, const QString &filter)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QFileDialog dialog(windowOf(parent), title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(name + u'.' + suffix);
    return runUndisturbed(dialog) == QDialog::Accepted ? dialog.selectedFiles().value(0)
                                                       : QString();
}

void showFileError(QWidget *screen, const FileError &error, ErrorStyle style)
{
    showMessage(screen, errorText(error, style), error.label());
}
