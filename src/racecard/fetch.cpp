#include "racecard/fetch.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestPart = 255;  // of scheme, host, user name and password
constexpr int longestPath = 1024; // of path and query

// True for an address that HTTP can serve and whose parts are not absurdly long.
bool isServable(const QUrl &url)
{
    const QString scheme = url.scheme();
    if (!url.isValid() || url.host().isEmpty() || (scheme != "http"_L1 && scheme != "https"_L1))
        return false;
    for (const QString &part : {scheme, url.host(), url.userName(), url.password()}) {
        if (part.size() > longestPart)
            return false;
    }
    return url.path().size() <= longestPath && url.query().size() <= longestPath;
}

QNetworkRequest requestFor(const QUrl &url)
{
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Mozilla/4.0 (compatible; MSIE 5.5; Windows NT 5.0)"_s);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    return request;
}

bool succeeded(const QNetworkReply &reply)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return reply.error() == QNetworkReply::NoError && status >= 200 && status < 300;
}

} // namespace

QByteArray FetchUrl(const QString &address, QString &contentType, const QString &requestData,
                    int chunkSize, int mode, const FetchRules &rules)
{
    contentType.clear();
    QUrl url(address.trimmed());
    const bool hasData = !requestData.trimmed().isEmpty();
    if (hasData && mode != fetchPost)
        url.setQuery(requestData);
    if (!isServable(url))
        return {};

    QNetworkAccessManager manager;
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    QNetworkRequest request = requestFor(url);
    request.setTransferTimeout(int(rules.silence.count()));
    std::unique_ptr<QNetworkReply> reply;
    if (hasData && mode == fetchPost) {
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          u"application/x-www-form-urlencoded"_s);
        reply.reset(manager.post(request, requestData.toUtf8()));
    } else {
        reply.reset(manager.get(request));
    }
    reply->setReadBufferSize(64 * 1024);

    QByteArray body;
    bool failed = false;
    const auto giveUp = [&] {
        failed = true;
        reply->abort();
    };
    const auto readPieces = [&] {
        while (!failed && reply->bytesAvailable() > 0) {
            const QByteArray piece = reply->read(chunkSize);
            if (piece.isEmpty())
                break;
            body += piece;
            if (body.size() > rules.largest)
                giveUp();
        }
    };
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, readPieces);
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (rules.started)
        rules.started(giveUp);
    if (!reply->isFinished())
        loop.exec();
    readPieces();

    if (failed || !succeeded(*reply))
        return {};
    contentType = reply->header(QNetworkRequest::ContentTypeHeader).toString();
    return body;
}
