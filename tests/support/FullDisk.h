#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

namespace morvak::test {

/// While it lives no file of a process (0: this one) grows beyond `bytes`: writes fail as on a full disk, for
/// root as well. What that process has started before is not affected.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes, pid_t process = 0)
        : m_process(process), m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::prlimit(m_process, RLIMIT_FSIZE, nullptr, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::prlimit(m_process, RLIMIT_FSIZE, &limit, nullptr);
    }
    ~FullDisk()
    {
        ::prlimit(m_process, RLIMIT_FSIZE, &m_before, nullptr);
        std::signal(SIGXFSZ, m_handler);
    }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    pid_t m_process;
    rlimit m_before{};
    void (*m_handler)(int);
};

}  // namespace morvak::test
