#include "update/UpdateMemory.h"

#include "platform/Diagnostics.h"

#include <QSettings>

namespace morvak {

UpdateMemory::UpdateMemory(QString preferencesPath, const QString& keyPrefix)
    : m_path(std::move(preferencesPath)),
      m_versionKey(keyPrefix + QStringLiteral(".lastKnownVersion")),
      m_urlKey(keyPrefix + QStringLiteral(".lastKnownDownloadURL")),
      m_checkKey(keyPrefix + QStringLiteral(".lastCheckDate"))
{
}

std::optional<QDateTime> UpdateMemory::lastCheck() const
{
    const QDateTime date = QDateTime::fromString(storedText(m_checkKey), Qt::ISODateWithMs);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<PublishedVersion> UpdateMemory::lastKnown() const
{
    PublishedVersion known{.version = storedText(m_versionKey), .downloadUrl = storedText(m_urlKey)};
    const bool usable = !known.version.isEmpty() && webAddress(known.downloadUrl);
    return usable ? std::optional(std::move(known)) : std::nullopt;
}

void UpdateMemory::storeCheck(const QDateTime& when)
{
    change([&](QSettings& settings) { writeCheck(settings, when); });
}

void UpdateMemory::storeCheckAndResult(const QDateTime& when, const std::optional<PublishedVersion>& newer)
{
    change([&](QSettings& settings) {
        writeCheck(settings, when);
        if (newer) {
            settings.setValue(m_versionKey, newer->version);
            settings.setValue(m_urlKey, newer->downloadUrl);
        } else {
            settings.remove(m_versionKey);
            settings.remove(m_urlKey);
        }
    });
}

void UpdateMemory::change(const std::function<void(QSettings&)>& work) const
{
    QSettings settings(m_path, QSettings::IniFormat);
    work(settings);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        diagnostic(QStringLiteral("⚠️ %1 is niet bewaard").arg(m_path));
}

void UpdateMemory::writeCheck(QSettings& settings, const QDateTime& when) const
{
    settings.setValue(m_checkKey, when.toUTC().toString(Qt::ISODateWithMs));
}

/// Empty when there is no such text: a list, for one, is none.
QString UpdateMemory::storedText(const QString& key) const
{
    const QVariant value = QSettings(m_path, QSettings::IniFormat).value(key);
    return value.metaType() == QMetaType::fromType<QString>() ? value.toString() : QString();
}

}  // namespace morvak
