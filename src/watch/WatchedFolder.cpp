#include "watch/WatchedFolder.h"

#include <algorithm>

namespace morvak {

WatchedFolder::WatchedFolder(const FolderSources& sources, std::chrono::milliseconds lookInterval,
                             Outcomes outcomes)
    : m_sources(sources), m_outcomes(std::move(outcomes))
{
    m_lookTimer.setInterval(lookInterval);
    QObject::connect(&m_lookTimer, &QTimer::timeout, [this] { m_follower->look(); });
}

void WatchedFolder::open(const QString& path)
{
    close();
    m_path = path;
    m_place = m_sources.find(path);
    m_isMissing = !m_place;
    if (m_place && !openEvents())
        return;
    m_follower = m_sources.follow(path, [this](const std::optional<FolderPlace>& now) { placeTold(now); });
    // The first look tells of what happened between finding the folder and following its path.
    m_follower->look();
    if (m_isMissing)
        m_lookTimer.start();
}

void WatchedFolder::close()
{
    m_lookTimer.stop();
    m_follower.reset();
    m_events.reset();
    m_isMissing = false;
}

void WatchedFolder::drain()
{
    if (m_events)
        m_events->drain();
}

bool WatchedFolder::openEvents()
{
    m_events = m_sources.openEvents(m_path, [this](const QList<FolderEvent>& events) { eventsCame(events); });
    return isOpen();
}

void WatchedFolder::eventsCame(const QList<FolderEvent>& events)
{
    m_outcomes.events(events);
    const bool gone = std::any_of(events.begin(), events.end(), [](const FolderEvent& event) {
        return event.kind == FolderEvent::Kind::FolderGone;
    });
    if (gone && isOpen())
        lose();
}

void WatchedFolder::placeTold(const std::optional<FolderPlace>& now)
{
    if (isOpen() && !(now && now->isSameFolderAs(*m_place)))
        lose();
    else if (m_isMissing && now && !(m_place && now->isLeftBehindBy(*m_place)))
        comeBack(*now);
}

void WatchedFolder::lose()
{
    m_events.reset();
    m_isMissing = true;
    m_lookTimer.start();
    m_follower->look();
    m_outcomes.lost();
}

void WatchedFolder::comeBack(const FolderPlace& now)
{
    if (!openEvents())
        return;
    const Return kind = m_place ? Return::Again : Return::FirstSeen;
    m_place = now;
    m_isMissing = false;
    m_lookTimer.stop();
    m_follower->look();
    m_outcomes.back(kind);
}

}  // namespace morvak
