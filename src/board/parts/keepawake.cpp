#include "board/parts/keepawake.h"

#include "common/files/hostsystem.h"

#ifdef QT_DBUS_LIB
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#endif

using namespace Qt::StringLiterals;

KeepAwake::KeepAwake()
{
    keepDisplayOn(true);
    askDesktop();
}

KeepAwake::~KeepAwake()
{
    releaseDesktop();
    keepDisplayOn(false);
}

#ifdef QT_DBUS_LIB
namespace {

QDBusMessage callOf(const QString &method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(u"org.freedesktop.ScreenSaver"_s,
                                                       u"/org/freedesktop/ScreenSaver"_s,
                                                       u"org.freedesktop.ScreenSaver"_s, method);
    call.setArguments(arguments);
    return call;
}

// A bus that is there; none is started for it.
bool hasSessionBus()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS")
           && QDBusConnection::sessionBus().isConnected();
}

} // namespace

void KeepAwake::askDesktop()
{
    if (!hasSessionBus())
        return;
    const auto reply = QDBusConnection::sessionBus().asyncCall(
        callOf(u"Inhibit"_s, {u"TRELAWN"_s, u"The odds board is shown"_s}));
    auto *watcher = new QDBusPendingCallWatcher(reply, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<uint> granted = *watcher;
        if (granted.isValid())
            m_cookie = granted.value();
        watcher->deleteLater();
    });
}

void KeepAwake::releaseDesktop()
{
    if (m_cookie)
        QDBusConnection::sessionBus().send(callOf(u"UnInhibit"_s, {*m_cookie}));
}
#else
void KeepAwake::askDesktop() {}
void KeepAwake::releaseDesktop() {}
#endif
