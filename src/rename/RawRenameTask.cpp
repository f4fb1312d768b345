#include "rename/RawRenameTask.h"

#include <QCoreApplication>
#include <QThreadPool>

namespace morvak {

RawRenameTask::RawRenameTask(RawRenameService service, QObject* parent)
    : QObject(parent), m_service(std::move(service))
{
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &RawRenameTask::giveUp);
}

RawRenameTask::~RawRenameTask()
{
    giveUp();
    m_mainThread.close();
}

bool RawRenameTask::start(const QString& sourceFolder, const QString& destinationFolder)
{
    if (m_isRunning)
        return false;
    m_isRunning = true;
    m_stop = std::stop_source();
    Q_EMIT isRunningChanged();
    QThreadPool::globalInstance()->start([this, sourceFolder, destinationFolder, service = m_service,
                                          main = m_mainThread, giveUp = m_stop.get_token()] {
        // The task may be gone by now; only what is posted to it may touch it.
        const auto report = [this, &main](qsizetype done, qsizetype total) {
            main.post([this, done, total] { Q_EMIT progressChanged(done, total); });
        };
        const RawRenameSummary summary = service.run(sourceFolder, destinationFolder, report, giveUp);
        main.post([this, summary] { end(summary); });
    });
    return true;
}

void RawRenameTask::giveUp()
{
    m_stop.request_stop();
}

void RawRenameTask::end(const RawRenameSummary& summary)
{
    m_isRunning = false;
    Q_EMIT isRunningChanged();
    Q_EMIT finished(summary);
}

}  // namespace morvak
