#pragma once

#include "platform/FolderEvents.h"

#include <QHash>
#include <QStringList>

#include <chrono>
#include <optional>

namespace morvak {

/// Thins out the many events of one file: the first is handed on at once, those that follow for the same name
/// within the latency come as one when it has passed. A pure reducer that is told the time.
class EventBatcher {
public:
    using Time = std::chrono::steady_clock::time_point;

    explicit EventBatcher(std::chrono::milliseconds latency) : m_latency(latency) {}

    /// True when this event of `name` is to be handed on now.
    [[nodiscard]] bool accept(const QString& name, Time now);

    /// The names whose latency has passed with events in between; each begins a new latency.
    [[nodiscard]] QStringList takeDue(Time now);

    /// When `takeDue` next has something; none when nothing waits.
    [[nodiscard]] std::optional<Time> nextDue() const;

    void clear() { m_names.clear(); }

private:
    struct Window {
        Time end;
        bool more = false;
    };

    void forgetPast(Time now);

    std::chrono::milliseconds m_latency;
    QHash<QString, Window> m_names;
    Time m_nextForgetting{};
};

/// Tells exiftool's own renaming of its finished temporary file from everybody else's events.
class OwnRenames {
public:
    /// Fed every event in order; true when this one is exiftool putting its result in place of a photo.
    [[nodiscard]] bool isOwn(const FolderEvent& event);

private:
    QHash<quint32, QString> m_photoOfRename;
};

}  // namespace morvak
