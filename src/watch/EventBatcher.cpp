#include "watch/EventBatcher.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace morvak {

namespace {

constexpr QStringView temporarySuffix = u"_exiftool_tmp";  // what exiftool appends to the photo's name

}  // namespace

bool EventBatcher::accept(const QString& name, Time now)
{
    const auto window = m_names.find(name);
    if (window != m_names.end() && now < window->end) {
        window->more = true;
        return false;
    }
    forgetPast(now);
    m_names.insert(name, {now + m_latency});
    return true;
}

/// Once a latency, so that a burst of new names costs each of them the same.
void EventBatcher::forgetPast(Time now)
{
    if (now < m_nextForgetting)
        return;
    m_nextForgetting = now + m_latency;
    using Entry = QHash<QString, Window>::iterator;
    erase_if(m_names, [now](Entry entry) { return entry->end <= now && !entry->more; });
}

QStringList EventBatcher::takeDue(Time now)
{
    std::vector<std::pair<Time, QString>> due;
    for (auto window = m_names.begin(); window != m_names.end(); ++window) {
        if (window->end > now || !window->more)
            continue;
        due.emplace_back(window->end, window.key());
        *window = {now + m_latency};
    }
    std::sort(due.begin(), due.end());
    QStringList names;
    for (const auto& [end, name] : due)
        names.append(name);
    return names;
}

std::optional<EventBatcher::Time> EventBatcher::nextDue() const
{
    std::optional<Time> next;
    for (const Window& window : m_names) {
        if (window.more)
            next = next ? std::min(*next, window.end) : window.end;
    }
    return next;
}

bool OwnRenames::isOwn(const FolderEvent& event)
{
    if (event.kind == FolderEvent::Kind::MovedAway && event.name.endsWith(temporarySuffix)) {
        m_photoOfRename.insert(event.renameId, event.name.chopped(temporarySuffix.size()));
        return false;
    }
    return event.kind == FolderEvent::Kind::MovedHere && m_photoOfRename.contains(event.renameId) &&
           m_photoOfRename.take(event.renameId) == event.name;
}

}  // namespace morvak
