#include "platform/FolderEvents.h"

#include "platform/FileName.h"

#include <QObject>
#include <QSocketNotifier>

#include <optional>

#include <sys/inotify.h>
#include <unistd.h>

namespace morvak {

namespace {

// A writer's progress is of no interest: a change is told when the file is closed, and a file that nobody
// closes is held and must not be touched. Leaving IN_MODIFY out keeps the kernel's queue short.
constexpr quint32 watchedEvents =
    IN_CREATE | IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

std::optional<FolderEvent::Kind> kindOf(quint32 mask)
{
    using Kind = FolderEvent::Kind;
    if (mask & IN_Q_OVERFLOW)
        return Kind::Overflow;
    if (mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED))
        return Kind::FolderGone;
    if (mask & IN_ISDIR)
        return std::nullopt;
    if (mask & IN_CREATE)
        return Kind::Created;
    if (mask & IN_CLOSE_WRITE)
        return Kind::Written;
    if (mask & IN_MOVED_TO)
        return Kind::MovedHere;
    if (mask & IN_MOVED_FROM)
        return Kind::MovedAway;
    return std::nullopt;
}

QList<FolderEvent> parseEvents(const char* at, const char* end)
{
    QList<FolderEvent> events;
    while (at < end) {
        const auto* record = reinterpret_cast<const inotify_event*>(at);
        at += sizeof(inotify_event) + record->len;
        if (const auto kind = kindOf(record->mask)) {
            const char* const name = record->len > 0 ? &record->name[0] : "";
            events.append({*kind, decodeFileName(QByteArrayView(name)), record->cookie});
        }
    }
    return events;
}

class InotifySource final : public FolderEventSource {
public:
    InotifySource(int fd, FolderEventHandler handler)
        : m_fd(fd), m_handler(std::move(handler)), m_notifier(fd, QSocketNotifier::Read)
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, [this] { drain(); });
    }
    ~InotifySource() override { ::close(m_fd); }
    Q_DISABLE_COPY_MOVE(InotifySource)

    void drain() override
    {
        alignas(inotify_event) char buffer[65536];
        QList<FolderEvent> events;
        for (ssize_t n = 0; (n = ::read(m_fd, buffer, sizeof buffer)) > 0;)
            events += parseEvents(buffer, buffer + n);
        if (events.isEmpty())
            return;
        // The handler may destroy this source.
        const FolderEventHandler handler = m_handler;
        handler(events);
    }

private:
    int m_fd;
    FolderEventHandler m_handler;
    QSocketNotifier m_notifier;
};

}  // namespace

std::unique_ptr<FolderEventSource> watchFolder(const QString& folder, FolderEventHandler handler)
{
    const int fd = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (fd < 0)
        return nullptr;
    if (::inotify_add_watch(fd, encodeFileName(folder).constData(), watchedEvents) < 0) {
        ::close(fd);
        return nullptr;
    }
    return std::make_unique<InotifySource>(fd, std::move(handler));
}

}  // namespace morvak
