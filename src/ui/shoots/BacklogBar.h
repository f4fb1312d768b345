#pragma once

#include "watch/Backlog.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace morvak {

class BacklogRun;
class TaskProgress;
struct UiServices;

/// Tags the photos that the active shoot's folder holds already, shows how far that is, and tells what has
/// come of it: at once, or when the sheet has closed that stands over the window by then.
class BacklogBar final : public QWidget {
    Q_OBJECT

public:
    explicit BacklogBar(UiServices& services, QWidget* parent = nullptr);
    ~BacklogBar() override;

    [[nodiscard]] bool isRunning() const { return m_run != nullptr; }

    /// False, and nothing happens, when there is no shoot, no folder, or the folder cannot be opened.
    bool start();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void isRunningChanged();
    /// The user has read what has come of it.
    void told();

private:
    void finish(const BacklogScanSummary& summary);
    void tell();

    UiServices& m_services;
    TaskProgress* m_progress;
    std::shared_ptr<BacklogRun> m_run;
    std::optional<QString> m_result;  // not told yet
};

}  // namespace morvak
