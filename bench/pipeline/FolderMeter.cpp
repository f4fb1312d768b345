#include "FolderMeter.h"

#include <QFile>
#include <QSet>

#include <algorithm>
#include <array>

#include <sys/inotify.h>
#include <unistd.h>

namespace morvak::bench {

FolderMeter::FolderMeter(const QString& folder, const QStringList& names)
    : m_names(names.cbegin(), names.cend()), m_descriptor(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK))
{
    if (::inotify_add_watch(m_descriptor, QFile::encodeName(folder).constData(), IN_MOVED_TO) < 0)
        qFatal("cannot watch %s", qPrintable(folder));
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &FolderMeter::readEvents);
}

FolderMeter::~FolderMeter()
{
    m_notifier.reset();
    ::close(m_descriptor);
}

Clock::time_point FolderMeter::lastTagged() const
{
    return std::ranges::max(m_tagged);
}

void FolderMeter::readEvents()
{
    alignas(inotify_event) std::array<char, 1 << 16> buffer;
    const auto now = Clock::now();
    const ssize_t size = ::read(m_descriptor, buffer.data(), buffer.size());
    for (ssize_t at = 0; at < size;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        const QString name = event->len > 0 ? QFile::decodeName(event->name) : QString();
        if (m_names.contains(name))
            m_tagged.insert(name, now);
    }
}

}  // namespace morvak::bench
