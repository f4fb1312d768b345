#pragma once

#include "update/UpdateMemory.h"
#include "update/UpdateRequest.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

namespace morvak {

/// Everything the update check depends on.
struct UpdateConfig {
    QUrl endpoint;
    QString keyPrefix;  ///< of the keys in the preferences
    QString currentVersion;
    QString preferencesPath;
    UpdateLimits limits;
    std::chrono::milliseconds minCheckInterval = std::chrono::hours(6);
    std::function<QDateTime()> clock = &QDateTime::currentDateTimeUtc;
};

/// Finds out whether a newer version has been published and where it can be downloaded; the user decides
/// what to do with that. Nothing is installed.
///
/// Lives on the main thread, and waits for nothing there. What has been found stays until a check finds
/// something else, also over a restart. A check that fails changes nothing but the time of the next one, and
/// leaves a diagnostic line.
class UpdateChecker final : public QObject {
    Q_OBJECT

public:
    /// The one of this process, for the application to start and hand on. Made after the application object.
    static UpdateChecker& shared();

    /// Restores what the last run has found. No network access.
    explicit UpdateChecker(UpdateConfig config, QObject* parent = nullptr);

    /// The newer version, as the publisher writes it, and its download page; both or neither.
    [[nodiscard]] const std::optional<QString>& availableVersion() const { return m_availableVersion; }
    [[nodiscard]] const std::optional<QUrl>& downloadURL() const { return m_downloadURL; }

    /// Checks now, and again at every interval until the application quits.
    void start();

    /// Asks the publisher, unless that happened less than an interval ago (or in the future, as a clock that
    /// was wrong once may have it) or is going on. The answer comes later.
    void checkForUpdate();

    /// Compares dotted numbers place by place. A missing place is 0; a piece that is no 64-bit number is left
    /// out, so that 2.0-beta is 2.
    [[nodiscard]] static bool isVersion(QStringView version, QStringView newerThan);

Q_SIGNALS:
    void availableVersionChanged();
    void downloadURLChanged();

private:
    [[nodiscard]] bool isTooSoon() const;
    void takeAnswer(const std::optional<QByteArray>& body, const QString& problem);
    void publish(const std::optional<PublishedVersion>& newer);
    void stop();

    UpdateConfig m_config;
    UpdateMemory m_memory;
    std::optional<QString> m_availableVersion;
    std::optional<QUrl> m_downloadURL;
    std::unique_ptr<UpdateRequest> m_request;  // while one is going on
    QTimer m_timer;
};

}  // namespace morvak
