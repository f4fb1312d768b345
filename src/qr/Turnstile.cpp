#include "qr/Turnstile.h"

namespace morvak {

std::unique_ptr<Turnstile::Turn> Turnstile::enter(const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    if (!m_free.wait(lock, stop, [this] { return !m_taken; }))
        return nullptr;
    m_taken = true;
    return std::make_unique<Turn>(*this);
}

void Turnstile::leave()
{
    {
        const std::lock_guard lock(m_mutex);
        m_taken = false;
    }
    m_free.notify_one();
}

}  // namespace morvak
