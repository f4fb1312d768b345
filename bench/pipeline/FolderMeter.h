#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QSocketNotifier>
#include <QStringList>

#include <chrono>
#include <memory>

namespace morvak::bench {

using Clock = std::chrono::steady_clock;

/// Sees each photo of a folder get tagged, whoever does it: exiftool writes beside the photo and then
/// renames, so the photo's name is moved onto. Photos are dropped under their final names, so nothing else
/// moves. Main thread.
class FolderMeter final : public QObject {
    Q_OBJECT

public:
    FolderMeter(const QString& folder, const QStringList& names);
    ~FolderMeter() override;

    [[nodiscard]] bool sawAll() const { return m_tagged.size() == m_names.size(); }

    /// When each photo was tagged, as far as seen.
    [[nodiscard]] const QHash<QString, Clock::time_point>& tagged() const { return m_tagged; }

    /// The latest of them; only once all are seen.
    [[nodiscard]] Clock::time_point lastTagged() const;

private:
    void readEvents();

    QSet<QString> m_names;
    QHash<QString, Clock::time_point> m_tagged;
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

}  // namespace morvak::bench
