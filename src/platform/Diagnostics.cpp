#include "platform/Diagnostics.h"

#include <cerrno>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace morvak {

namespace {

constexpr std::size_t mostWaitingLines = 20'000;

QByteArray asOneLine(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = u' ';
    }
    return text.toUtf8() + '\n';
}

void writeAll(const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size()) {
        const ssize_t n =
            ::write(STDOUT_FILENO, bytes.data() + done, static_cast<std::size_t>(bytes.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;
        done += n;
    }
}

/// The lines on their way out. Never destroyed: its thread may be stuck in a write for good.
class Outlet {
public:
    Outlet()
    {
        std::thread([this] { run(); }).detach();
    }

    void add(QByteArray line)
    {
        const std::lock_guard lock(m_mutex);
        if (m_lines.size() >= mostWaitingLines) {
            ++m_dropped;
            return;
        }
        m_lines.push_back(std::move(line));
        m_changed.notify_all();
    }

    void flush(std::chrono::milliseconds atMost)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, atMost, [this] { return m_lines.empty() && !m_writing; });
    }

private:
    [[noreturn]] void run()
    {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_changed.wait(lock, [this] { return !m_lines.empty(); });
            QByteArray batch;
            while (!m_lines.empty()) {
                batch += m_lines.front();
                m_lines.pop_front();
            }
            if (m_dropped > 0)
                batch += "⚠️ " + QByteArray::number(m_dropped) + " regels niet geschreven\n";
            m_dropped = 0;
            m_writing = true;
            lock.unlock();
            writeAll(batch);
            lock.lock();
            m_writing = false;
            m_changed.notify_all();
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<QByteArray> m_lines;
    qint64 m_dropped = 0;
    bool m_writing = false;
};

Outlet& outlet()
{
    static Outlet* const instance = new Outlet;
    return *instance;
}

}  // namespace

void diagnostic(const QString& line)
{
    outlet().add(asOneLine(line));
}

void flushDiagnostics(std::chrono::milliseconds atMost)
{
    outlet().flush(atMost);
}

}  // namespace morvak
