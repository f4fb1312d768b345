#include "platform/TrayPresence.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int askingTime = 2000;  // ms

const QString& watcherService()
{
    static const QString name = u"org.kde.StatusNotifierWatcher"_s;
    return name;
}

}  // namespace

TrayPresence::TrayPresence(Platform platform, QObject* parent)
    : QObject(parent), m_platform(std::move(platform))
{
    m_timer.setInterval(m_platform.secondLook);
    m_timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TrayPresence::lookAgain);
    observeBus();
    m_wasThere = isThere();
}

bool TrayPresence::isThere() const
{
    // Qt goes on believing in a D-Bus tray that has left.
    return !m_hostGone && m_platform.hasTray();
}

void TrayPresence::setWatchful(bool watchful)
{
    m_wasThere = isThere();
    if (!watchful)
        m_timer.stop();
    else if (!m_timer.isActive() && !m_hostSeen)
        m_timer.start();
}

void TrayPresence::observeBus()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    auto* const owner =
        new QDBusServiceWatcher(watcherService(), bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayPresence::askForHost);
    for (const QString& signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        bus.connect(watcherService(), u"/StatusNotifierWatcher"_s, watcherService(), signal, this,
                    SLOT(askForHost()));
    askForHost();
}

void TrayPresence::askForHost()
{
    QDBusMessage call = QDBusMessage::createMethodCall(watcherService(), u"/StatusNotifierWatcher"_s,
                                                       u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << watcherService() << u"IsStatusNotifierHostRegistered"_s;
    call.setAutoStartService(false);
    auto* const pending =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call, askingTime), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        const QDBusPendingReply<QVariant> reply = *pending;
        takeHost(reply.isValid() && reply.value().toBool());
        pending->deleteLater();
    });
}

void TrayPresence::takeHost(bool registered)
{
    m_hostSeen |= registered;
    m_hostGone = m_hostSeen && !registered;
    lookAgain();
}

void TrayPresence::lookAgain()
{
    const bool now = isThere();
    if (m_wasThere == now)
        return;
    m_wasThere = now;
    Q_EMIT changed();
}

}  // namespace morvak
