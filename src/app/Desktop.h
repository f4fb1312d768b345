#pragma once

#include "rename/RawRenameService.h"
#include "ui/base/DesktopDialogs.h"
#include "ui/base/UiServices.h"
#include "ui/main/Shell.h"

#include <QObject>

namespace morvak {

class Engine;

/// What the windows are made with. All of it outlives them.
struct DesktopParts {
    Engine& engine;
    UpdateChecker& updates;
    Theme& theme;
    QString version;
};

/// The windows of the application, over an engine that runs. Main thread; gone before the engine quits.
class Desktop final : public QObject {
    Q_OBJECT

public:
    explicit Desktop(const DesktopParts& parts);

    /// Shows the main window, in front of all others. The engine takes up its shoots when that is first
    /// shown.
    void bringToFront();

    /// Each file becomes a shoot; a dialog says when one cannot be read.
    void openShootFiles(const QStringList& paths);

    [[nodiscard]] Shell& shell() { return m_shell; }

Q_SIGNALS:
    void quitAsked();

private:
    Engine& m_engine;
    RawRenameService m_rename;
    DesktopDialogs m_dialogs;
    UiServices m_services;
    Shell m_shell;
};

}  // namespace morvak
