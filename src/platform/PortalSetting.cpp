#include "platform/PortalSetting.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr int portalTimeoutMs = 100;
const QLatin1StringView service("org.freedesktop.portal.Desktop");
const QLatin1StringView path("/org/freedesktop/portal/desktop");
const QLatin1StringView settings("org.freedesktop.portal.Settings");

}  // namespace

PortalSetting::PortalSetting(const QString& group, const QString& key, QObject* parent)
    : QObject(parent), m_group(group), m_key(key)
{
    if (QDBusConnection::sessionBus().isConnected())
        ask();
}

void PortalSetting::ask()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect(service, path, settings, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, settings, u"Read"_s);
    question << m_group << m_key;
    question.setAutoStartService(false);
    const QDBusMessage answer = bus.call(question, QDBus::Block, portalTimeoutMs);
    if (answer.type() == QDBusMessage::ReplyMessage) {
        take(answer.arguments().value(0));
        return;
    }
    question.setAutoStartService(true);
    auto* const pending = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        pending->deleteLater();
        if (const QDBusMessage late = pending->reply(); late.type() == QDBusMessage::ReplyMessage)
            take(late.arguments().value(0));
    });
}

void PortalSetting::settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == m_group && key == m_key)
        take(value.variant());
}

/// The portal wraps a value in a variant, and `Read` wraps that in another.
void PortalSetting::take(QVariant value)
{
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    if (std::exchange(m_value, value) != value)
        Q_EMIT valueChanged();
}

}  // namespace morvak
