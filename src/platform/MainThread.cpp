#include "platform/MainThread.h"

#include <QCoreApplication>

#include <atomic>

namespace morvak {

struct MainThread::State {
    std::atomic<bool> closed = false;
};

MainThread::MainThread() : m_state(std::make_shared<State>()) {}

void MainThread::post(std::function<void()> work) const
{
    QCoreApplication* const application = QCoreApplication::instance();
    if (!application || isClosed())
        return;
    const auto run = [state = m_state, work = std::move(work)] {
        if (!state->closed)
            work();
    };
    QMetaObject::invokeMethod(application, run, Qt::QueuedConnection);
}

void MainThread::close()
{
    m_state->closed = true;
}

bool MainThread::isClosed() const
{
    return m_state->closed;
}

}  // namespace morvak
