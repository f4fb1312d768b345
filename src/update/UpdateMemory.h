#pragma once

#include "update/UpdateAnswer.h"

#include <QDateTime>

#include <functional>
#include <optional>

class QSettings;

namespace morvak {

/// What the update check knows from one run of the program to the next, in the user's preferences: a file of
/// `QSettings::IniFormat` with the keys PREFIX.lastKnownVersion, PREFIX.lastKnownDownloadURL and
/// PREFIX.lastCheckDate (ISO 8601, UTC).
///
/// What is stored has reached the file when the operation returns; a failure leaves a diagnostic line. One
/// thread at a time.
class UpdateMemory {
public:
    UpdateMemory(QString preferencesPath, const QString& keyPrefix);

    /// None as well when something else than a date stands there.
    [[nodiscard]] std::optional<QDateTime> lastCheck() const;

    /// None unless both texts are there and the address may be opened.
    [[nodiscard]] std::optional<PublishedVersion> lastKnown() const;

    /// A check that found out nothing: what is known stays.
    void storeCheck(const QDateTime& when);

    /// None forgets what is known.
    void storeCheckAndResult(const QDateTime& when, const std::optional<PublishedVersion>& newer);

private:
    void change(const std::function<void(QSettings&)>& work) const;
    void writeCheck(QSettings& settings, const QDateTime& when) const;
    [[nodiscard]] QString storedText(const QString& key) const;

    QString m_path;
    QString m_versionKey;
    QString m_urlKey;
    QString m_checkKey;
};

}  // namespace morvak
