#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <stop_token>

namespace morvak {

/// Lets one thread through at a time; whoever waits can be called off.
class Turnstile {
public:
    class Turn {
    public:
        explicit Turn(Turnstile& owner) : m_owner(owner) {}
        Turn(const Turn&) = delete;
        Turn& operator=(const Turn&) = delete;
        ~Turn() { m_owner.leave(); }

    private:
        Turnstile& m_owner;
    };

    /// Waits until nobody holds a turn. Null when `stop` was requested; the turn ends with the returned
    /// object.
    [[nodiscard]] std::unique_ptr<Turn> enter(const std::stop_token& stop);

private:
    void leave();

    std::mutex m_mutex;
    std::condition_variable_any m_free;
    bool m_taken = false;
};

}  // namespace morvak
