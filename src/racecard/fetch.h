#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>

inline constexpr int fetchPost = 1; // the mode that sends request data as a form

// The bounds of a fetch, and the way out of it.
struct FetchRules
{
    std::chrono::milliseconds silence{15000}; // without any data, after which it has failed
    qint64 largest = 4 * 1024 * 1024;         // bytes of the body, above which it has failed
    // Called once the request is under way with what ends it early; the body is then empty.
    std::function<void(const std::function<void()> &cancel)> started;
};

// Fetches a web address and returns the body, empty on any failure (a status of 300 and above is
// one). \a contentType takes the answer's content type. With request data, mode 1 sends it as a
// form (POST) and any other mode behind a "?" (GET); without, the address is fetched as it is. The
// body is read in pieces of \a chunkSize bytes. Events are handled while it waits, so the caller
// keeps the operator off the screen that is waiting.
QByteArray FetchUrl(const QString &url, QString &contentType, const QString &requestData,
                    int chunkSize, int mode, const FetchRules &rules = {});
