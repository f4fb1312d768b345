#include "watch/PhotoRuns.h"

namespace morvak {

PhotoRun* PhotoRuns::add(const QString& path)
{
    if (m_scheduledPaths.contains(path))
        return nullptr;
    PhotoRun& run = m_runs[++m_lastNumber];
    run.number = m_lastNumber;
    run.path = path;
    m_scheduledPaths.insert(path, run.number);
    return &run;
}

PhotoRun* PhotoRuns::find(quint64 number)
{
    const auto entry = m_runs.find(number);
    return entry == m_runs.end() ? nullptr : &entry->second;
}

void PhotoRuns::remove(quint64 number)
{
    if (const PhotoRun* run = find(number)) {
        m_scheduledPaths.remove(run->path);
        m_runs.erase(number);
    }
}

void PhotoRuns::noteEvent(const QString& path, FolderEvent::Kind kind, bool own)
{
    PhotoRun* const run = find(m_scheduledPaths.value(path));
    if (!run)
        return;
    if (own) {
        run->tagInPlace = true;
        return;
    }
    const bool finished = kind == FolderEvent::Kind::Written || kind == FolderEvent::Kind::MovedHere;
    const bool waits = run->stage == PhotoRun::Stage::Locked || run->stage == PhotoRun::Stage::Writing;
    run->closedSinceLocked |= finished && waits;
    run->changedAfterTagging |= run->tagInPlace;
}

PhotoRun* PhotoRuns::nextToTakeSet()
{
    for (auto& [number, run] : m_runs) {
        if (run.stage == PhotoRun::Stage::Reading)
            return nullptr;
        if (run.stage == PhotoRun::Stage::Ready)
            return &run;
    }
    return nullptr;
}

}  // namespace morvak
