#pragma once

#include <QCoreApplication>
#include <QKeySequence>

namespace morvak {

/// What can be done on the Sets tab, but for what is done with one set.
enum class SetsAction {
    newShoot,
    deleteShoot,
    clients,
    importCsv,
    exportCsv,
    exportJson,
    qrGenerator,
    bulkExport,
    catalog,
    processExisting,
    newSet,
    openShootFile,
    saveShootFile,
};

/// What the actions depend on.
struct SetsFacts {
    bool hasShoot = false;  ///< a shoot is active
    bool hasFolder = false;
    bool folderMissing = false;
    bool isProcessing = false;  ///< existing photos are being tagged

    [[nodiscard]] bool operator==(const SetsFacts&) const = default;
};

/// How the actions are called, and when they can be done. Pure; any thread.
class SetsActionTexts {
    Q_DECLARE_TR_FUNCTIONS(morvak::SetsActionTexts)

public:
    [[nodiscard]] static QString label(SetsAction action);
    /// Empty for those that have none.
    [[nodiscard]] static QString help(SetsAction action);
    [[nodiscard]] static QKeySequence keys(SetsAction action);
    /// Why it cannot be done now; empty when it can.
    [[nodiscard]] static QString reasonAgainst(SetsAction action, const SetsFacts& facts);
    /// The reason against it, or else its help with the keys in brackets.
    [[nodiscard]] static QString toolTip(SetsAction action, const SetsFacts& facts);
};

}  // namespace morvak
