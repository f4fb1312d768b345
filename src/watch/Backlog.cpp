#include "watch/Backlog.h"

#include "model/FindById.h"
#include "watch/PhotoTypes.h"

#include <algorithm>

namespace morvak {

QList<FoundFile> findBacklog(const QString& folder,
                             const std::function<std::optional<QString>(const QString& path)>& readHeadline,
                             const std::function<void(qsizetype done, qsizetype total)>& read,
                             const std::stop_token& stop)
{
    const QList<FoundFile> photos = filesBelow(folder, isPhotoName, stop);
    QList<FoundFile> untagged;
    for (qsizetype i = 0; i < photos.size() && !stop.stop_requested(); ++i) {
        if (!readHeadline(photos[i].path))
            untagged.append(photos[i]);
        read(i + 1, photos.size());
    }
    std::stable_sort(untagged.begin(), untagged.end(), [](const FoundFile& a, const FoundFile& b) {
        return a.state.modifiedNs < b.state.modifiedNs;
    });
    return untagged;
}

SetsByTime::SetsByTime(const Shoot& shoot) : m_sets(shoot.sets), m_log(shoot.activationLog)
{
    std::stable_sort(m_log.begin(), m_log.end(), [](const SetActivation& a, const SetActivation& b) {
        return a.activatedAt.seconds < b.activatedAt.seconds;
    });
}

std::optional<SetData> SetsByTime::activeAt(Timestamp moment) const
{
    const auto later = std::upper_bound(
        m_log.begin(), m_log.end(), moment,
        [](Timestamp a, const SetActivation& b) { return a.seconds < b.activatedAt.seconds; });
    if (later == m_log.begin())
        return std::nullopt;
    const SetData* const set = findById(m_sets, std::prev(later)->setId);
    return set ? std::optional(*set) : std::nullopt;
}

}  // namespace morvak
