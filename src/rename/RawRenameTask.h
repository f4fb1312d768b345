#pragma once

#include "platform/MainThread.h"
#include "rename/RawRenameService.h"

#include <QObject>

#include <stop_token>

namespace morvak {

/// One RAW rename after another for a screen to start, observe and give up. The run itself goes on the global
/// thread pool; everything here is for the main thread.
///
/// When it is destroyed, or the application quits, a run ends after the file that it is at and nothing more
/// is announced.
class RawRenameTask final : public QObject {
    Q_OBJECT

public:
    explicit RawRenameTask(RawRenameService service, QObject* parent = nullptr);
    ~RawRenameTask() override;

    [[nodiscard]] bool isRunning() const { return m_isRunning; }

    /// False, and nothing happens, while a run is under way.
    bool start(const QString& sourceFolder, const QString& destinationFolder);

    /// The run ends after the file that it is at; `finished` tells what was done.
    void giveUp();

Q_SIGNALS:
    void isRunningChanged();
    /// First of reading the metadata of all files, then of copying those whose metadata was read.
    void progressChanged(qsizetype done, qsizetype total);
    /// Once for each start.
    void finished(const morvak::RawRenameSummary& summary);

private:
    void end(const RawRenameSummary& summary);

    const RawRenameService m_service;
    MainThread m_mainThread;
    std::stop_source m_stop;
    bool m_isRunning = false;
};

}  // namespace morvak
