#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

namespace morvak::test {

/// While it lives no file of this process grows beyond `bytes`: writes fail as on a full disk, for root as
/// well.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

}  // namespace morvak::test
