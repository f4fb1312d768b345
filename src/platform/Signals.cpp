#include "platform/Signals.h"

#include <QSocketNotifier>

#include <cerrno>
#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace morvak {

namespace {

int quitRequested = -1;

void noteQuitRequest(int)
{
    const int savedErrno = errno;
    const quint64 one = 1;
    [[maybe_unused]] const ssize_t n = ::write(quitRequested, &one, sizeof one);
    errno = savedErrno;
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void ignoreStraySignals()
{
    handle(SIGPIPE, SIG_IGN);
    handle(SIGIO, SIG_IGN);
    handle(SIGXFSZ, SIG_IGN);
}

void onQuitRequest(QObject* owner, std::function<void()> handler)
{
    quitRequested = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* const notifier = new QSocketNotifier(quitRequested, QSocketNotifier::Read, owner);
    QObject::connect(notifier, &QSocketNotifier::activated, owner, [handler = std::move(handler)] {
        quint64 count = 0;
        if (::read(quitRequested, &count, sizeof count) > 0)
            handler();
    });
    for (const int signal : {SIGTERM, SIGINT})
        handle(signal, noteQuitRequest);
    if (!isIgnored(SIGHUP))  // as after nohup
        handle(SIGHUP, noteQuitRequest);
}

}  // namespace morvak
