#include "platform/FolderFollower.h"

#include "platform/FileName.h"
#include "platform/MainThread.h"

#include <QObject>
#include <QSocketNotifier>

#include <thread>

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace morvak {

namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor()
    {
        if (m_number >= 0)
            ::close(m_number);
    }
    Q_DISABLE_COPY_MOVE(Descriptor)
    [[nodiscard]] int number() const { return m_number; }

private:
    int m_number;
};

/// What one look gives: the place, and an inotify instance that becomes readable when a folder or a symbolic
/// link on the way to it is moved or removed.
struct Look {
    std::optional<FolderPlace> place;
    std::shared_ptr<Descriptor> wayEvents;
};

void watchWay(int inotify, const QByteArray& path)
{
    for (qsizetype end = path.indexOf('/', 1); end > 0; end = path.indexOf('/', end + 1))
        ::inotify_add_watch(inotify, path.first(end).constData(),
                            IN_MOVE_SELF | IN_DELETE_SELF | IN_DONT_FOLLOW);
    ::inotify_add_watch(inotify, path.constData(), IN_MOVE_SELF | IN_DELETE_SELF | IN_DONT_FOLLOW);
}

/// The way is watched before it is gone, so that no change of it is missed.
Look lookAlong(const QString& path)
{
    Look look;
    look.wayEvents = std::make_shared<Descriptor>(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    const QByteArray asGiven = encodeFileName(path);
    watchWay(look.wayEvents->number(), asGiven);
    look.place = findFolder(path);
    if (!look.place || look.place->path == asGiven)
        return look;
    watchWay(look.wayEvents->number(), look.place->path);
    look.place = findFolder(path);
    return look;
}

class KernelFollower final : public FolderFollower {
public:
    KernelFollower(QString path, FolderPlaceHandler handler)
        : m_path(std::move(path)),
          m_handler(std::move(handler)),
          m_mountTable(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)),
          m_mountChange(m_mountTable.number(), QSocketNotifier::Exception)
    {
        QObject::connect(&m_mountChange, &QSocketNotifier::activated, [this] { look(); });
    }
    ~KernelFollower() override { m_mainThread.close(); }
    Q_DISABLE_COPY_MOVE(KernelFollower)

    void look() override
    {
        m_lookAgain = m_looking;
        if (m_looking)
            return;
        m_looking = true;
        // Detached, because a look that is stuck must not hold up the end of the program.
        std::thread([this, path = m_path, mainThread = m_mainThread] {
            const Look result = lookAlong(path);
            mainThread.post([this, result] { take(result); });
        }).detach();
    }

private:
    void take(const Look& result)
    {
        m_looking = false;
        m_wayChange.reset();
        m_wayEvents = result.wayEvents;
        if (m_wayEvents->number() >= 0) {
            m_wayChange = std::make_unique<QSocketNotifier>(m_wayEvents->number(), QSocketNotifier::Read);
            QObject::connect(m_wayChange.get(), &QSocketNotifier::activated, [this] {
                m_wayChange->setEnabled(false);
                look();
            });
        }
        if (m_lookAgain)
            look();
        // The handler may destroy this follower.
        const FolderPlaceHandler handler = m_handler;
        handler(result.place);
    }

    QString m_path;
    FolderPlaceHandler m_handler;
    bool m_looking = false;
    bool m_lookAgain = false;
    Descriptor m_mountTable;
    QSocketNotifier m_mountChange;
    std::shared_ptr<Descriptor> m_wayEvents;
    std::unique_ptr<QSocketNotifier> m_wayChange;
    MainThread m_mainThread;
};

}  // namespace

std::unique_ptr<FolderFollower> followFolder(const QString& path, FolderPlaceHandler handler)
{
    return std::make_unique<KernelFollower>(path, std::move(handler));
}

}  // namespace morvak
