#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QVariant>

namespace morvak {

/// One setting of the user's desktop, as the freedesktop settings portal tells it.
///
/// Lives on the main thread. Waits at most a tenth of a second for a portal that is running, and not at all
/// without one. One that has to be started first answers later.
class PortalSetting final : public QObject {
    Q_OBJECT

public:
    PortalSetting(const QString& group, const QString& key, QObject* parent = nullptr);

    /// Invalid while nobody has told it.
    [[nodiscard]] const QVariant& value() const { return m_value; }

Q_SIGNALS:
    void valueChanged();

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();
    void take(QVariant value);

    QString m_group;
    QString m_key;
    QVariant m_value;
};

}  // namespace morvak
