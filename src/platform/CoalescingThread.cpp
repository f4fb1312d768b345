#include "platform/CoalescingThread.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace morvak {

struct CoalescingThread::State {
    std::mutex mutex;
    std::condition_variable changed;
    bool asked = false;
    bool ended = false;
};

CoalescingThread::CoalescingThread(std::function<void()> work) : m_state(std::make_shared<State>())
{
    std::thread([state = m_state, work = std::move(work)] {
        std::unique_lock lock(state->mutex);
        while (!state->ended) {
            if (!state->asked) {
                state->changed.wait(lock);
                continue;
            }
            state->asked = false;
            lock.unlock();
            work();
            lock.lock();
        }
    }).detach();
}

CoalescingThread::~CoalescingThread()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->ended = true;
    m_state->changed.notify_all();
}

void CoalescingThread::ask()
{
    const std::lock_guard lock(m_state->mutex);
    m_state->asked = true;
    m_state->changed.notify_all();
}

}  // namespace morvak
