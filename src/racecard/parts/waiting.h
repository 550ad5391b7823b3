#pragma once

#include <QByteArray>
#include <QString>

class QWidget;

// What came of a fetch that the operator may have cancelled.
struct WaitedFetch
{
    QByteArray body; // empty when nothing came
    bool cancelled = false;
};

// Fetches a web address while the window stays alive: the screen takes no input, and after half a
// second a box with \a text and Cancel stands before it.
WaitedFetch fetchWhileWaiting(QWidget *screen, const QString &url, int chunkSize, int mode,
                              const QString &text);
