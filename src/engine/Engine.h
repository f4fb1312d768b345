#pragma once

#include "catalog/ProductCatalog.h"
#include "store/ShootManager.h"
#include "watch/FolderWatcher.h"

#include <QObject>

#include <memory>
#include <optional>

namespace morvak {

class ExifToolService;
class ScanInput;

/// What the engine is made with.
struct EngineParts {
    ExifToolService& exifTool;
    QString storeFile;    ///< of the shoots
    QString catalogFile;  ///< of the products
};

/// The long-lived objects that do the work, wired to each other, from the start to the quit; enough for a run
/// without a window.
///
/// Main thread. In order: `start`, `takeUpShoots`, then the event loop, then `prepareToQuit` and `quit`.
class Engine final : public QObject {
    Q_OBJECT

public:
    explicit Engine(const EngineParts& parts);
    ~Engine() override;

    /// Launches the tools; returns at once.
    void start();

    /// Reads the shoots and watches the folder of the active one, now and whenever another becomes active.
    /// Before this a shoot that is opened would be replaced, on disk as well, by those that are read. Only
    /// the first call counts.
    void takeUpShoots();

    /// The same where nobody sees it: a diagnostic line says when there is no folder to watch.
    void runUnseen();

    /// Each file becomes a shoot. One that cannot be read leaves a diagnostic line.
    void openShootFiles(const QStringList& paths);

    /// Takes scans from a file descriptor as well.
    void readScans(int fd);

    /// Takes nothing new any more: no scan, no event, no run; saves what is not saved yet. The objects stay.
    /// Only the first call counts.
    void prepareToQuit();

    /// Ends everything in order; blocks for at most about 1.5 seconds.
    void quit();

    [[nodiscard]] ShootManager& shoots() { return m_shoots; }
    [[nodiscard]] ProductCatalog& catalog() { return m_catalog; }
    [[nodiscard]] FolderWatcher& watcher() { return m_watcher; }
    [[nodiscard]] ExifToolService& exifTool() { return m_exifTool; }

private:
    void followActiveShoot();

    ExifToolService& m_exifTool;
    ShootManager m_shoots;
    ProductCatalog m_catalog;
    FolderWatcher m_watcher;
    std::unique_ptr<ScanInput> m_scanner;
    bool m_hasShoots = false;
    bool m_quits = false;
    std::optional<QUuid> m_followedShoot;
};

}  // namespace morvak
