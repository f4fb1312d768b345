#pragma once

#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "ui/DesktopDialogs.h"
#include "ui/UiServices.h"
#include "ui/main/Shell.h"
#include "ui/theme/Theme.h"
#include "watch/FolderWatcher.h"

#include <QObject>

#include <memory>
#include <optional>

namespace morvak {

class ExifToolService;
class ScanInput;

/// What the application is made with.
struct CompositionParts {
    ExifToolService& exifTool;
    UpdateChecker& updates;
    QString storeFile;    ///< of the shoots
    QString catalogFile;  ///< of the products
    QString version;
    bool checksForUpdates = true;  ///< not where nobody could see what they find
};

/// The long-lived objects of the application, wired to each other, from the start to the quit.
///
/// Main thread. In order: `start`, then a window or none, then the event loop, then `quit`. The shoots are
/// read when the window is first shown, or with the first thing that needs them.
class Composition final : public QObject {
    Q_OBJECT

public:
    explicit Composition(const CompositionParts& parts);
    ~Composition() override;

    /// Launches the tools and the update check; returns at once.
    void start();

    /// Makes the windows and shows the main one. Once.
    void showWindows(Theme::Choice choice);

    /// Instead of windows: takes up the shoots and the folder right away.
    void runUnseen();

    void bringToFront();

    /// Each file becomes a shoot; one that cannot be read is told of.
    void openShootFiles(const QStringList& paths);

    /// Takes scans from a file descriptor as well.
    void readScans(int fd);

    /// Ends everything in order and saves what is not saved yet; blocks for at most about 1.5 seconds.
    void quit();

    [[nodiscard]] ShootManager& shoots() { return m_shoots; }
    [[nodiscard]] ProductCatalog& catalog() { return m_catalog; }
    [[nodiscard]] FolderWatcher& watcher() { return m_watcher; }
    [[nodiscard]] Shell* shell() { return m_shell.get(); }  ///< null without windows

Q_SIGNALS:
    void quitAsked();

private:
    void takeUpShoots();
    void followActiveShoot();
    void saveRest();

    CompositionParts m_parts;
    ShootManager m_shoots;
    ProductCatalog m_catalog;
    FolderWatcher m_watcher;
    DesktopDialogs m_dialogs;
    std::unique_ptr<Theme> m_theme;
    std::optional<UiServices> m_services;
    std::unique_ptr<Shell> m_shell;
    std::unique_ptr<ScanInput> m_scanner;
    bool m_hasShoots = false;
    std::optional<QUuid> m_followedShoot;
};

}  // namespace morvak
