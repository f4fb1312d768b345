#pragma once

#include <chrono>

namespace morvak {

/// Whether looking into photos makes sense: two looks in a row that the metadata tool left unanswered mean
/// that it is away, until a try is answered. Pure; it is told the time.
class ReaderHealth {
public:
    using Time = std::chrono::steady_clock::time_point;

    enum class Advice {
        Look,
        Skip,  ///< the photo goes on without a look
        Wait,  ///< a known photo with other content: what it is only a look tells
    };

    /// `pause` lies between two tries while the tool is away.
    explicit ReaderHealth(std::chrono::milliseconds pause) : m_pause(pause) {}

    [[nodiscard]] bool isAway() const { return m_isAway; }

    /// What to do with the next photo; while the tool is away, one that comes when a try is due is the try.
    [[nodiscard]] Advice advice(bool isRewritten, Time now);

    /// Only while it is away.
    [[nodiscard]] Time nextTry() const { return m_nextTry; }
    void tried(Time now) { m_nextTry = now + m_pause; }

    /// A look was answered; true when that ends an absence.
    bool answered();

    /// A look was not; true when an absence begins with it.
    bool unanswered(Time now);

private:
    std::chrono::milliseconds m_pause;
    int m_unansweredInARow = 0;
    bool m_isAway = false;
    Time m_nextTry{};
};

}  // namespace morvak
