#include "metadata/SerialQueue.h"

#include <utility>

namespace morvak {

SerialQueue::SerialQueue(const QString& name)
{
    m_thread.setObjectName(name);
    m_context.moveToThread(&m_thread);
    m_thread.start();
}

SerialQueue::~SerialQueue()
{
    close();
    wait();
}

bool SerialQueue::post(std::function<void()> entry)
{
    const std::lock_guard lock(m_gate);
    if (!m_closed)
        QMetaObject::invokeMethod(&m_context, std::move(entry), Qt::QueuedConnection);
    return !m_closed;
}

void SerialQueue::close(std::function<void()> last)
{
    const std::lock_guard lock(m_gate);
    if (std::exchange(m_closed, true))
        return;
    const auto end = [this, last = std::move(last)] {
        if (last)
            last();
        m_thread.quit();
    };
    QMetaObject::invokeMethod(&m_context, end, Qt::QueuedConnection);
}

void SerialQueue::wait()
{
    m_thread.wait();
}

}  // namespace morvak
