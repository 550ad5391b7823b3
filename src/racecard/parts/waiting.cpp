#include "racecard/parts/waiting.h"

#include "racecard/fetch.h"
#include "ui/progressbox.h"

WaitedFetch fetchWhileWaiting(QWidget *screen, const QString &url, int chunkSize, int mode,
                              const QString &text)
{
    ProgressBox box(screen, text);
    FetchRules rules;
    rules.started = [&box](const std::function<void()> &cancel) {
        QObject::connect(&box, &ProgressBox::canceled, &box, cancel);
    };
    QString contentType;
    WaitedFetch fetched;
    fetched.body = FetchUrl(url, contentType, {}, chunkSize, mode, rules);
    fetched.cancelled = box.wasCanceled();
    return fetched;
}
