#include "watch/PhotoLooks.h"

#include <algorithm>
#include <limits>

namespace morvak {

namespace {

using Clock = std::chrono::steady_clock;
using Kind = ToolAnswer::Kind;

constexpr int looksAtOnce = 4;
constexpr int mostThreads = 2 * looksAtOnce;  // those that are stuck included
constexpr int quitPatienceMs = 5'000;

/// The pool takes the higher priority first: the photo scheduled first, for which the others wait.
int poolPriority(quint64 run)
{
    return -int(run % std::numeric_limits<int>::max());
}

}  // namespace

PhotoLooks::PhotoLooks(LookTimes times, PhotoEyes eyes, MainThread mainThread, Outcomes outcomes)
    : m_times(times),
      m_eyes(std::move(eyes)),
      m_mainThread(std::move(mainThread)),
      m_outcomes(std::move(outcomes)),
      m_health(times.pause),
      m_pool(std::make_unique<QThreadPool>())
{
    m_pool->setMaxThreadCount(looksAtOnce);
    m_tryTimer.setSingleShot(true);
    m_tryTimer.callOnTimeout([this] { tryAgain(); });
    m_limitTimer.setSingleShot(true);
    m_limitTimer.callOnTimeout([this] { giveUpStuck(); });
}

PhotoLooks::~PhotoLooks()
{
    prepareToQuit();
    if (!m_pool->waitForDone(quitPatienceMs))
        (void)m_pool.release();  // a thread in the kernel may never come back; its work has only copies
}

void PhotoLooks::prepareToQuit()
{
    m_tryTimer.stop();
    m_limitTimer.stop();
    m_stop.request_stop();
    m_pool->clear();
}

void PhotoLooks::look(const Photo& photo)
{
    forget(photo.path);
    Look& look = m_looks[photo.run];
    look.photo = photo;
    switch (m_health.advice(photo.isRewritten, Clock::now())) {
        case ReaderHealth::Advice::Look:
            begin(look);
            break;
        case ReaderHealth::Advice::Skip:
            goOn(look, {});
            break;
        case ReaderHealth::Advice::Wait:
            m_outcomes.waits(photo.run);
            break;
    }
    startTryTimer();
}

/// An earlier photo under this name needs no look any more.
void PhotoLooks::forget(const QString& path)
{
    std::erase_if(m_looks, [&path](const auto& entry) {
        const Look& look = entry.second;
        return look.photo.path == path && !look.holdsRun && !look.isQueued;
    });
}

void PhotoLooks::begin(Look& look)
{
    look.isQueued = true;
    look.lastTry = ++m_tries;
    const auto work = [this, photo = look.photo, eyes = m_eyes, main = m_mainThread,
                       stop = m_stop.get_token(), absence = m_absence.get_token()] {
        if (absence.stop_requested())
            return main.post([this, run = photo.run] { notBegun(run); });
        main.post([this, run = photo.run] { begun(run); });
        const PhotoReading reading = readPhoto(photo.path, photo.detectCode, eyes, stop);
        main.post([this, run = photo.run, reading] { ended(run, reading); });
    };
    m_pool->start(work, look.holdsRun ? poolPriority(look.photo.run) : std::numeric_limits<int>::min());
}

void PhotoLooks::notBegun(quint64 run)
{
    Look& look = m_looks.at(run);
    look.isQueued = false;
    if (look.holdsRun && !m_health.isAway())
        begin(look);  // the tool has come back since
    lookLate();
    startTryTimer();
}

void PhotoLooks::begun(quint64 run)
{
    m_looks.at(run).limit.setRemainingTime(m_times.limit);
    if (!m_limitTimer.isActive())
        startLimitTimer();
}

void PhotoLooks::ended(quint64 run, const PhotoReading& reading)
{
    Look& look = m_looks.at(run);
    look.isQueued = false;
    look.limit = QDeadlineTimer::Forever;
    const bool wasStuck = look.isStuck;
    if (wasStuck)
        setStuck(look, false);
    const bool isLate = reading.tool == Kind::Late;
    const bool isDone = !isLate || (!wasStuck && isAtFault(look));
    const bool goesAway = isLate && !wasStuck && unanswered(look);
    const bool comesBack = reading.tool == Kind::Printed && m_health.answered();
    m_answers += reading.tool == Kind::Printed;
    if (look.holdsRun)
        endRun(look, reading);
    else
        endLate(look, reading, isDone);
    if (goesAway)
        wentAway();
    if (comesBack)
        cameBack();
    lookLate();
    startTryTimer();
}

/// The answer that ends this photo's waiting, unless a rewritten one has to wait for the tool.
void PhotoLooks::endRun(Look& look, const PhotoReading& reading)
{
    if (reading.isIncomplete() && look.photo.isRewritten && m_health.isAway())
        m_outcomes.waits(look.photo.run);
    else
        goOn(look, reading);
}

void PhotoLooks::endLate(const Look& look, const PhotoReading& reading, bool isDone)
{
    if (!isDone && reading.isIncomplete())
        return;
    const Photo photo = look.photo;
    m_looks.erase(photo.run);
    m_outcomes.lookedLate(photo.run, photo.path, reading);
}

/// Lets the photo take its set; one on which a card may have been missed is kept for a later look.
void PhotoLooks::goOn(Look& look, PhotoReading reading)
{
    const quint64 run = look.photo.run;
    look.holdsRun = false;
    if (!look.photo.detectCode)
        reading.tool = Kind::Unasked;
    if (!reading.isIncomplete() && !look.isQueued)
        m_looks.erase(run);
    m_outcomes.looked(run, reading);
}

/// Notes that a look went unanswered; true when the tool is away from now on.
bool PhotoLooks::unanswered(Look& look)
{
    const bool counts = !isAtFault(look);
    look.answersWhenLate = m_answers;
    return counts && m_health.unanswered(Clock::now());
}

/// The tool has answered about others since this one went unanswered.
bool PhotoLooks::isAtFault(const Look& look) const
{
    return look.answersWhenLate && *look.answersWhenLate < m_answers;
}

void PhotoLooks::wentAway()
{
    m_absence.request_stop();
    m_absence = std::stop_source();
    m_outcomes.awayChanged(true);
    for (const quint64 run : runsWhere([](const Look& look) { return look.holdsRun; })) {
        Look& look = m_looks.at(run);
        if (look.photo.isRewritten)
            m_outcomes.waits(run);
        else
            goOn(look, {});
    }
}

void PhotoLooks::cameBack()
{
    m_outcomes.awayChanged(false);
    m_tryTimer.stop();
    for (const quint64 run : runsWhere([](const Look& look) { return look.holdsRun && !look.isQueued; }))
        begin(m_looks.at(run));
}

/// One look while the tool is away: into a photo that waits, else into one that went on; the one that was
/// not tried for the longest time.
void PhotoLooks::tryAgain()
{
    if (!m_health.isAway())
        return;
    m_health.tried(Clock::now());
    const QList<quint64> runs = runsWhere([](const Look& look) { return !look.isQueued; });
    const auto next = std::min_element(runs.begin(), runs.end(), [this](quint64 a, quint64 b) {
        const Look& one = m_looks.at(a);
        const Look& other = m_looks.at(b);
        return std::pair(!one.holdsRun, one.lastTry) < std::pair(!other.holdsRun, other.lastTry);
    });
    if (next != runs.end())
        begin(m_looks.at(*next));
    startTryTimer();
}

/// Looks into the first of those that went on without, unless one is looked into now.
void PhotoLooks::lookLate()
{
    if (m_health.isAway())
        return;
    const auto isLateLook = [](const auto& entry) {
        return !entry.second.holdsRun && entry.second.isQueued && !entry.second.isStuck;
    };
    const auto isDue = [this](const auto& entry) {
        return !entry.second.holdsRun && !entry.second.isQueued && entry.second.answersWhenLate != m_answers;
    };
    if (std::any_of(m_looks.begin(), m_looks.end(), isLateLook))
        return;
    const auto next = std::find_if(m_looks.begin(), m_looks.end(), isDue);
    if (next != m_looks.end())
        begin(next->second);
}

/// What the kernel holds back keeps its thread; the other photos get another one for it.
void PhotoLooks::giveUpStuck()
{
    bool goesAway = false;
    for (const quint64 run : runsWhere([](const Look& look) { return look.limit.hasExpired(); })) {
        Look& look = m_looks.at(run);
        look.limit = QDeadlineTimer::Forever;
        setStuck(look, true);
        goesAway |= unanswered(look);
        if (look.holdsRun)
            endRun(look, {});
    }
    if (goesAway)
        wentAway();
    startLimitTimer();
    startTryTimer();
}

void PhotoLooks::setStuck(Look& look, bool isStuck)
{
    look.isStuck = isStuck;
    const auto stuck = runsWhere([](const Look& each) { return each.isStuck; }).size();
    m_pool->setMaxThreadCount(std::min(looksAtOnce + int(stuck), mostThreads));
}

/// For the look that began first; those that began later have it to wait for, too.
void PhotoLooks::startLimitTimer()
{
    QDeadlineTimer first = QDeadlineTimer::Forever;
    for (const auto& [run, look] : m_looks)
        first = std::min(first, look.limit);
    if (!first.isForever())
        m_limitTimer.start(std::chrono::ceil<std::chrono::milliseconds>(first.remainingTimeAsDuration()));
}

/// Runs only while there is something to try.
void PhotoLooks::startTryTimer()
{
    if (!m_health.isAway() || m_tryTimer.isActive() ||
        runsWhere([](const Look& look) { return !look.isQueued; }).isEmpty())
        return;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_health.nextTry() - Clock::now());
    m_tryTimer.start(std::max(left, std::chrono::milliseconds(0)));
}

template <typename Condition>
QList<quint64> PhotoLooks::runsWhere(Condition holds) const
{
    QList<quint64> runs;
    for (const auto& [run, look] : m_looks) {
        if (holds(look))
            runs.append(run);
    }
    return runs;
}

}  // namespace morvak
