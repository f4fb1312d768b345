#include "watch/BacklogRun.h"

#include "platform/FileName.h"

#include <QThreadPool>

namespace morvak {

namespace {

bool hasChanged(const FoundFile& photo)
{
    const std::optional<FileState> now = regularFileState(photo.path);
    return now && !isUnchanged(photo.state, *now);
}

}  // namespace

BacklogRun::BacklogRun(const Shoot& shoot, BacklogHands hands, MainThread mainThread)
    : m_shoot(shoot), m_sets(shoot), m_hands(std::move(hands)), m_mainThread(std::move(mainThread))
{
}

BacklogRun::~BacklogRun()
{
    giveUp();
}

void BacklogRun::start(const QString& folder, Completion completion)
{
    m_completion = std::move(completion);
    QThreadPool::globalInstance()->start([folder, back = wayBack(), readHeadline = m_hands.readHeadline,
                                          stop = m_stop.get_token()] {
        const auto read = [&back](qsizetype done, qsizetype total) {
            back([=](BacklogRun& run) { run.setProgress({BacklogProgress::Phase::Reading, done, total}); });
        };
        const QList<FoundFile> candidates = findBacklog(folder, readHeadline, read, stop);
        back([candidates](BacklogRun& run) { run.found(candidates); });
    });
}

/// How background work reaches the run on the main thread, as long as there is one.
std::function<void(const std::function<void(BacklogRun&)>&)> BacklogRun::wayBack()
{
    return [port = m_mainThread, weak = weak_from_this()](const std::function<void(BacklogRun&)>& work) {
        port.post([weak, work] {
            if (const auto run = weak.lock())
                work(*run);
        });
    };
}

void BacklogRun::setProgress(const BacklogProgress& progress)
{
    m_progress = progress;
    Q_EMIT progressChanged();
}

void BacklogRun::found(const QList<FoundFile>& candidates)
{
    m_candidates = candidates;
    m_summary.totalCandidates = candidates.size();
    setProgress({BacklogProgress::Phase::Tagging, 0, candidates.size()});
    next();
}

void BacklogRun::next()
{
    if (m_stop.stop_requested() || m_progress.done == m_candidates.size()) {
        m_completion(m_summary);
        return;
    }
    const FoundFile& photo = m_candidates[m_progress.done];
    const std::optional<SetData> set =
        m_sets.activeAt(Timestamp::fromUnixNanoseconds(photo.state.modifiedNs));
    if (!set)
        skip(photo);
    else if (hasChanged(photo))
        lookAgain(photo, *set);
    else
        write(photo, *set);
}

void BacklogRun::skip(const FoundFile& photo)
{
    ++m_summary.unresolved;
    m_hands.log(QStringLiteral("⚠️ Geen actieve set gevonden voor het tijdstip van %1 — overgeslagen")
                    .arg(lastPathComponent(photo.path)),
                LogType::warning);
    dealtWith();
}

/// Somebody wrote the photo since its headline was read; that may have been its tag.
void BacklogRun::lookAgain(const FoundFile& photo, const SetData& set)
{
    QThreadPool::globalInstance()->start([photo, set, back = wayBack(), readHeadline = m_hands.readHeadline] {
        const bool tagged = readHeadline(photo.path).has_value();
        back([=](BacklogRun& run) { tagged ? run.leaveOut() : run.write(photo, set); });
    });
}

void BacklogRun::leaveOut()
{
    --m_summary.totalCandidates;
    dealtWith();
}

void BacklogRun::write(const FoundFile& photo, const SetData& set)
{
    const bool accepted = m_hands.write(photo.path, {set, m_shoot}, [=, run = shared_from_this()](bool ok) {
        run->written(lastPathComponent(photo.path), set, ok);
    });
    if (!accepted)
        leaveOut();
}

void BacklogRun::written(const QString& name, const SetData& set, bool ok)
{
    if (ok) {
        ++m_summary.tagged;
        m_hands.tagged(name, set);
    } else {
        ++m_summary.unresolved;
        m_hands.failed(name);
    }
    dealtWith();
}

void BacklogRun::dealtWith()
{
    setProgress({BacklogProgress::Phase::Tagging, m_progress.done + 1, m_progress.total});
    m_mainThread.post([run = shared_from_this()] { run->next(); });
}

}  // namespace morvak
