#pragma once

#include <QString>
#include <QUrl>

#include <functional>

namespace morvak {

class Dialogs;
class FolderWatcher;
class ProductCatalog;
class RawRenameService;
class ShootManager;
class Theme;
class UpdateChecker;

/// Everything that the screens are handed by the application. All of it outlives them.
struct UiServices {
    ShootManager& shoots;
    FolderWatcher& watcher;
    ProductCatalog& catalog;
    UpdateChecker& updates;
    Theme& theme;
    Dialogs& dialogs;
    QString version;                  ///< "1.0.0"
    std::function<void()> startTool;  ///< the metadata bridge, after a stop
    std::function<void()> stopTool;
    const RawRenameService& rename;
    std::function<void(const QUrl&)> openInBrowser;
};

}  // namespace morvak
