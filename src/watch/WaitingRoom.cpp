#include "watch/WaitingRoom.h"

#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

namespace morvak {

using Clock = std::chrono::steady_clock;

class WaitingRoom::Worker final : public QObject {
public:
    Worker(WaitLimits limits, FileProbe probe, MainThread mainThread, Outcomes outcomes)
        : m_limits(limits),
          m_probe(std::move(probe)),
          m_mainThread(std::move(mainThread)),
          m_outcomes(std::move(outcomes)),
          m_timer(this)
    {
        m_timer.setSingleShot(true);
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, &Worker::look);
    }

    void settle(quint64 run, const QString& path)
    {
        m_settling.push_back({run, path, Clock::now() + m_limits.interval});
        startTimer();
    }

    void awaitRelease(quint64 run, const QString& path)
    {
        m_locked.push_back({run, path, Clock::now()});
        startTimer();
    }

    void close() { m_timer.stop(); }

private:
    struct Entry {
        quint64 run = 0;
        QString path;
        Clock::time_point due;
        int looks = 0;
        quint64 size = 0;
    };

    void look()
    {
        const Clock::time_point now = Clock::now();
        sendOn(m_settling, [&](Entry& entry) { return entry.due <= now && sizeIsFinal(entry); });
        lookAtLocks(now);
        startTimer();
    }

    /// Lets those go that `decide` has sent on.
    template <typename Decide>
    static void sendOn(std::vector<Entry>& entries, const Decide& decide)
    {
        std::vector<Entry> staying;
        for (Entry& entry : entries) {
            if (!decide(entry))
                staying.push_back(std::move(entry));
        }
        entries = std::move(staying);
    }

    bool sizeIsFinal(Entry& entry)
    {
        const std::optional<FileState> state = m_probe.state(entry.path);
        if (!state) {
            send(m_outcomes.gone, entry.run);
            return true;
        }
        const bool stable = state->size == entry.size && state->size != 0;
        entry.size = state->size;
        if (stable || ++entry.looks >= m_limits.sizeChecks) {
            send(m_outcomes.settled, entry.run, entry.size);
            return true;
        }
        entry.due = Clock::now() + m_limits.interval;
        return false;
    }

    /// Looks at all that are due, and at those nearly due with them: one look through the open files serves
    /// all.
    void lookAtLocks(Clock::time_point now)
    {
        const auto isDue = [limit = now + m_limits.interval / 3](const Entry& e) { return e.due <= limit; };
        if (std::none_of(m_locked.begin(), m_locked.end(), [now](const Entry& e) { return e.due <= now; }))
            return;
        QStringList paths;
        for (const Entry& entry : m_locked) {
            if (isDue(entry))
                paths.append(entry.path);
        }
        const QSet<QString> held = m_probe.held(paths);
        sendOn(m_locked, [&](Entry& entry) { return isDue(entry) && lockIsDecided(entry, held); });
    }

    bool lockIsDecided(Entry& entry, const QSet<QString>& held)
    {
        if (!held.contains(entry.path)) {
            send(m_outcomes.released, entry.run);
            return true;
        }
        entry.due = Clock::now() + m_limits.interval;
        if (++entry.looks < m_limits.lockTries)
            return false;
        send(m_outcomes.stillHeld, entry.run);
        return true;
    }

    template <typename Outcome, typename... Values>
    void send(const Outcome& outcome, Values... values)
    {
        m_mainThread.post([outcome, values...] { outcome(values...); });
    }

    void startTimer()
    {
        Clock::time_point next = Clock::time_point::max();
        for (const std::vector<Entry>* entries : {&m_settling, &m_locked}) {
            for (const Entry& entry : *entries)
                next = std::min(next, entry.due);
        }
        if (next == Clock::time_point::max())
            return;
        const auto wait = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
        m_timer.start(std::max(wait, std::chrono::milliseconds(0)));
    }

    WaitLimits m_limits;
    FileProbe m_probe;
    MainThread m_mainThread;
    Outcomes m_outcomes;
    QTimer m_timer;
    std::vector<Entry> m_settling;
    std::vector<Entry> m_locked;
};

WaitingRoom::WaitingRoom(WaitLimits limits, FileProbe probe, MainThread mainThread, Outcomes outcomes)
    : m_worker(std::make_unique<Worker>(limits, std::move(probe), std::move(mainThread), std::move(outcomes)))
{
    m_thread.setObjectName(QStringLiteral("waiting-room"));
    m_worker->moveToThread(&m_thread);
    m_thread.start();
}

WaitingRoom::~WaitingRoom()
{
    QMetaObject::invokeMethod(m_worker.get(), [this] {
        m_worker->close();  // a timer is stopped by its own thread
        m_thread.quit();
    });
    m_thread.wait();
}

void WaitingRoom::settle(quint64 run, const QString& path)
{
    QMetaObject::invokeMethod(m_worker.get(),
                              [worker = m_worker.get(), run, path] { worker->settle(run, path); });
}

void WaitingRoom::awaitRelease(quint64 run, const QString& path)
{
    QMetaObject::invokeMethod(m_worker.get(),
                              [worker = m_worker.get(), run, path] { worker->awaitRelease(run, path); });
}

}  // namespace morvak
