#pragma once

#include "model/Shoot.h"
#include "platform/FolderWalk.h"

#include <functional>
#include <optional>
#include <stop_token>

namespace morvak {

/// What processing the photos that were there already came to.
struct BacklogScanSummary {
    qsizetype totalCandidates = 0;  ///< photos found without a headline
    qsizetype tagged = 0;
    qsizetype unresolved = 0;  ///< tried, but no set was active at their time, or the writing failed
};

/// How far such a run is.
struct BacklogProgress {
    enum class Phase { Reading, Tagging };
    Phase phase = Phase::Reading;
    qsizetype done = 0;
    qsizetype total = 0;
};

/// Photos without a headline below a folder, by their modification time, oldest first. `readHeadline` is
/// asked for one photo after another; `read` is told the number of photos asked for and of all. Ends early,
/// with what was found, when `stop` is requested. Blocks; any thread that may.
[[nodiscard]] QList<FoundFile> findBacklog(
    const QString& folder, const std::function<std::optional<QString>(const QString& path)>& readHeadline,
    const std::function<void(qsizetype done, qsizetype total)>& read, const std::stop_token& stop);

/// The sets of a shoot by the time at which they were active, as its activation log tells. Pure.
class SetsByTime {
public:
    explicit SetsByTime(const Shoot& shoot);

    /// The set that was active at `moment`, the moment of its activation included; none before the first
    /// activation, or when the shoot does not hold that set any more.
    [[nodiscard]] std::optional<SetData> activeAt(Timestamp moment) const;

private:
    QList<SetData> m_sets;
    QList<SetActivation> m_log;  // oldest first
};

}  // namespace morvak
