#pragma once

#include <functional>
#include <memory>

namespace morvak {

/// The way back to the main thread for work that runs elsewhere.
///
/// Made on the main thread by the object that the work is for, copied freely into the work. `close` (main
/// thread; the owner's destructor calls it) cuts it: nothing posted runs any more, so no work reaches an
/// object that is gone.
class MainThread {
public:
    MainThread();

    /// Runs `work` on the main thread later, in the order of the posts. Any thread.
    void post(std::function<void()> work) const;

    void close();
    [[nodiscard]] bool isClosed() const;

private:
    struct State;

    std::shared_ptr<State> m_state;
};

}  // namespace morvak
