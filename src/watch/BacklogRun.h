#pragma once

#include "model/Tagging.h"
#include "platform/MainThread.h"
#include "watch/Backlog.h"
#include "watch/LogEntry.h"

#include <QObject>

#include <memory>

namespace morvak {

/// What a run needs of the watcher that it runs for.
struct BacklogHands {
    /// On a background thread.
    std::function<std::optional<QString>(const QString& path)> readHeadline;

    /// Has a photo tagged and tells whether that worked; false, and nothing is told, when the photo is
    /// under way as a new one.
    std::function<bool(const QString& path, const Tagging& tagging,
                       std::function<void(bool tagged)> completion)>
        write;
    std::function<void(const QString& name, const SetData& set)> tagged;
    std::function<void(const QString& name)> failed;
    std::function<void(const QString& message, LogType type)> log;
};

/// One run over the photos that were there already: each without a headline gets the set that was active when
/// the photo was made.
///
/// Lives on the main thread. It has at most one photo with the reading tool and one with the writing tool, so
/// that a new photo waits for at most one of them.
class BacklogRun final : public QObject, public std::enable_shared_from_this<BacklogRun> {
    Q_OBJECT

public:
    using Completion = std::function<void(const BacklogScanSummary&)>;

    /// The port is that of the watcher: once it is closed nothing happens any more, the completion included.
    BacklogRun(const Shoot& shoot, BacklogHands hands, MainThread mainThread);
    ~BacklogRun() override;

    /// To be called once; `completion` is called once, later.
    void start(const QString& folder, Completion completion);

    [[nodiscard]] const BacklogProgress& progress() const { return m_progress; }

    /// Begins with no further photo; the completion comes with what was done.
    void giveUp() { m_stop.request_stop(); }

Q_SIGNALS:
    void progressChanged();

private:
    [[nodiscard]] std::function<void(const std::function<void(BacklogRun&)>&)> wayBack();
    void setProgress(const BacklogProgress& progress);
    void found(const QList<FoundFile>& candidates);
    void next();
    void skip(const FoundFile& photo);
    void lookAgain(const FoundFile& photo, const SetData& set);
    void leaveOut();
    void write(const FoundFile& photo, const SetData& set);
    void written(const QString& name, const SetData& set, bool ok);
    void dealtWith();

    const Shoot m_shoot;
    const SetsByTime m_sets;
    const BacklogHands m_hands;
    const MainThread m_mainThread;
    Completion m_completion;
    std::stop_source m_stop;
    QList<FoundFile> m_candidates;
    BacklogProgress m_progress;
    BacklogScanSummary m_summary;
};

}  // namespace morvak
