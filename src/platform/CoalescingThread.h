#pragma once

#include <functional>
#include <memory>

namespace morvak {

/// Does one piece of work whenever it is asked to, on a thread of its own. Asks that come while it is being
/// done become one more time. Destroying it waits for nothing: work that never ends is left behind.
class CoalescingThread {
public:
    explicit CoalescingThread(std::function<void()> work);
    ~CoalescingThread();
    CoalescingThread(const CoalescingThread&) = delete;
    CoalescingThread& operator=(const CoalescingThread&) = delete;

    /// Returns at once; any thread.
    void ask();

private:
    struct State;

    std::shared_ptr<State> m_state;
};

}  // namespace morvak
