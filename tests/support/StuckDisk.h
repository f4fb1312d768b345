#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>
#include <thread>
#include <type_traits>

#include <fcntl.h>
#include <linux/fuse.h>
#include <sys/mount.h>
#include <unistd.h>

namespace morvak::test {

/// A mounted disk with one file, stuck.jpg, that can be seen and not opened: who tries is held back by the
/// kernel, so that even SIGKILL does not end it, until this disk goes. Only for who may mount.
class StuckDisk {
public:
    StuckDisk() : m_device(::open("/dev/fuse", O_RDWR | O_CLOEXEC))
    {
        const QByteArray options =
            "fd=" + QByteArray::number(m_device) + ",rootmode=40000,user_id=0,group_id=0";
        m_mounted = m_device >= 0 && ::mount("stuck", place().constData(), "fuse", MS_NOSUID | MS_NODEV,
                                             options.constData()) == 0;
        if (m_mounted)
            m_server = std::thread([this] { serve(); });
    }
    ~StuckDisk()
    {
        if (m_mounted) {
            ::umount2(place().constData(), MNT_FORCE);  // ends what waits, and so the server
            ::umount2(place().constData(), MNT_DETACH);
            m_server.join();
        }
        ::close(m_device);
    }
    StuckDisk(const StuckDisk&) = delete;
    StuckDisk& operator=(const StuckDisk&) = delete;

    [[nodiscard]] bool isMounted() const { return m_mounted; }
    [[nodiscard]] QString photo() const { return m_folder.filePath(QStringLiteral("stuck.jpg")); }

private:
    [[nodiscard]] QByteArray place() const { return m_folder.path().toUtf8(); }

    void serve() const
    {
        QByteArray request(64 * 1024, Qt::Uninitialized);
        for (;;) {
            const ssize_t n = ::read(m_device, request.data(), std::size_t(request.size()));
            if (n < 0 && errno != EINTR && errno != ENOENT && errno != EAGAIN)
                return;  // unmounted
            if (n >= ssize_t(sizeof(fuse_in_header)))
                answer(*reinterpret_cast<const fuse_in_header*>(request.constData()));
        }
    }

    void answer(const fuse_in_header& request) const
    {
        switch (request.opcode) {
            case FUSE_INIT: {
                fuse_init_out out = {};
                out.major = FUSE_KERNEL_VERSION;
                out.minor = FUSE_KERNEL_MINOR_VERSION;
                out.max_write = 4096;
                return reply(request, out);
            }
            case FUSE_GETATTR: {
                fuse_attr_out out = {};
                out.attr = attributes(request.nodeid);
                return reply(request, out);
            }
            case FUSE_LOOKUP: {
                fuse_entry_out out = {};
                out.nodeid = photoNode;
                out.attr = attributes(photoNode);
                return reply(request, out);
            }
            case FUSE_OPEN:  // never answered
            case FUSE_FORGET:
            case FUSE_BATCH_FORGET:
            case FUSE_INTERRUPT:
                return;
            default:
                return send({sizeof(fuse_out_header), -ENOSYS, request.unique}, {});
        }
    }

    static fuse_attr attributes(quint64 node)
    {
        fuse_attr result = {};
        result.ino = node;
        result.mode = node == FUSE_ROOT_ID ? S_IFDIR | 0755 : S_IFREG | 0644;
        result.nlink = 1;
        result.size = 1000;
        return result;
    }

    template <typename Out>
    void reply(const fuse_in_header& request, const Out& out) const
    {
        static_assert(std::is_trivially_copyable_v<Out>);
        send({quint32(sizeof(fuse_out_header) + sizeof out), 0, request.unique},
             {reinterpret_cast<const char*>(&out), sizeof out});
    }

    void send(const fuse_out_header& header, const QByteArray& body) const
    {
        const QByteArray bytes = QByteArray(reinterpret_cast<const char*>(&header), sizeof header) + body;
        [[maybe_unused]] const ssize_t n = ::write(m_device, bytes.constData(), std::size_t(bytes.size()));
    }

    static constexpr quint64 photoNode = 2;

    QTemporaryDir m_folder;
    int m_device;
    bool m_mounted = false;
    std::thread m_server;
};

}  // namespace morvak::test
