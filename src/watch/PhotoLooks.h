#pragma once

#include "platform/MainThread.h"
#include "watch/PhotoReading.h"
#include "watch/ReaderHealth.h"

#include <QDeadlineTimer>
#include <QThreadPool>
#include <QTimer>

#include <map>
#include <memory>
#include <stop_token>

namespace morvak {

/// How patient looking into photos is.
struct LookTimes {
    std::chrono::milliseconds limit{20'000};  ///< one look, however it is held up; then others go on
    std::chrono::milliseconds pause{30'000};  ///< between two tries while the metadata tool is away
};

/// Looks into photos on a pool of four threads, and keeps a metadata tool that does not answer, or a disk
/// that does not, from holding up the photos.
///
/// While the tool is away, new photos go on without a look; rewritten ones wait. Every half minute it is
/// tried again on one of them. When it is back, those that waited are looked into, then, one after another,
/// those that went on without. A photo that goes unanswered twice, with an answer about another in between,
/// is at fault itself and left in peace. Main thread.
class PhotoLooks {
public:
    struct Photo {
        quint64 run = 0;
        QString path;
        bool detectCode = false;
        bool isRewritten = false;  ///< a known name with other content
    };
    struct Outcomes {
        std::function<void(quint64 run, const PhotoReading&)> looked;  ///< once for each photo; it goes on
        std::function<void(quint64 run)> waits;  ///< until the tool is back; it holds up nobody
        /// After `looked` with an incomplete reading: what a later look gave. Once, or never.
        std::function<void(quint64 run, const QString& path, const PhotoReading&)> lookedLate;
        std::function<void(bool isAway)> awayChanged;
    };

    PhotoLooks(LookTimes times, PhotoEyes eyes, MainThread mainThread, Outcomes outcomes);

    /// Waits for the looks under way to end early, but not for one that the kernel holds back.
    ~PhotoLooks();
    Q_DISABLE_COPY_MOVE(PhotoLooks)

    /// Outcomes may be told before it returns.
    void look(const Photo& photo);

    /// Discards what has not started and tells what runs to end early.
    void prepareToQuit();

private:
    struct Look {
        Photo photo;
        bool holdsRun = true;                            ///< `looked` is still to come
        bool isQueued = false;                           ///< with the pool, or on one of its threads
        bool isStuck = false;                            ///< on a thread, past its limit
        QDeadlineTimer limit = QDeadlineTimer::Forever;  ///< once a thread has begun it
        quint64 lastTry = 0;                             ///< the higher, the later
        std::optional<quint64> answersWhenLate;  ///< the answers there were when it last went unanswered
    };

    void begin(Look& look);
    void notBegun(quint64 run);
    void begun(quint64 run);
    void ended(quint64 run, const PhotoReading& reading);
    void endRun(Look& look, const PhotoReading& reading);
    void endLate(const Look& look, const PhotoReading& reading, bool isDone);
    void goOn(Look& look, PhotoReading reading);
    bool unanswered(Look& look);
    void wentAway();
    void cameBack();
    void tryAgain();
    void lookLate();
    void giveUpStuck();
    void setStuck(Look& look, bool isStuck);
    void startLimitTimer();
    void startTryTimer();
    void forget(const QString& path);
    [[nodiscard]] bool isAtFault(const Look& look) const;
    template <typename Condition>
    [[nodiscard]] QList<quint64> runsWhere(Condition holds) const;

    const LookTimes m_times;
    const PhotoEyes m_eyes;
    MainThread m_mainThread;
    Outcomes m_outcomes;
    ReaderHealth m_health;
    std::map<quint64, Look> m_looks;  // by run
    quint64 m_tries = 0;
    quint64 m_answers = 0;
    QTimer m_tryTimer;
    QTimer m_limitTimer;
    std::stop_source m_stop;
    std::stop_source m_absence;  // requested when the tool goes away: what no thread has begun is left
    std::unique_ptr<QThreadPool> m_pool;
};

}  // namespace morvak
