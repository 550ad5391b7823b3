#include "racecard/parts/waiting.h"

#include "racecard/fetch.h"

#include <QLabel>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

WaitedFetch fetchWhileWaiting(QWidget *screen, const QString &url, int chunkSize, int mode,
                              const QString &text)
{
    QProgressDialog dialog(screen->window());
    dialog.setWindowTitle(u"TRELAWN"_s);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setLabelText(text);
    dialog.setRange(0, 0);
    dialog.setAutoClose(false);
    QTimer::singleShot(500, &dialog, &QWidget::show);

    // Until the box is there, a second click must not start a second fetch or leave the screen.
    const QPointer<QWidget> focused = screen->focusWidget();
    screen->setEnabled(false);
    FetchRules rules;
    rules.started = [&dialog](const std::function<void()> &cancel) {
        QObject::connect(&dialog, &QProgressDialog::canceled, &dialog, cancel);
    };
    QString contentType;
    WaitedFetch fetched;
    fetched.body = FetchUrl(url, contentType, {}, chunkSize, mode, rules);
    fetched.cancelled = dialog.wasCanceled();
    screen->setEnabled(true);
    if (focused)
        focused->setFocus();
    return fetched;
}
