#pragma once

#include "model/Tagging.h"
#include "watch/PhotoLooks.h"
#include "watch/WaitingRoom.h"
#include "watch/WatchedFolder.h"

#include <chrono>
#include <functional>
#include <optional>

namespace morvak {

/// The time limits of the watcher that are not those of the waiting room.
struct WatcherTimes {
    std::chrono::milliseconds eventLatency{500};
    std::chrono::milliseconds bannerTime{1800};
    std::chrono::milliseconds lookInterval{1000};  ///< between two looks for a missing folder
    LookTimes looks;
};

/// Everything the watcher reaches outside itself, handed to it by the application; tests hand in their own.
struct WatcherServices {
    FolderSources folder;
    PhotoEyes eyes;
    std::function<std::optional<QString>(const QString& path)> readHeadline;  ///< blocks; background threads
    std::function<void(const QString& to, const Tagging& tagging, std::function<void(bool)> completion)>
        writeMetadata;
    /// Removes from a folder what a killed metadata tool has left there; returns at once.
    std::function<void(const QString& folder)> clearUp = [](const QString&) {};
    std::function<bool(const QString& path)> moveToTrash;
    std::function<void()> playSound;
    FileProbe files;
    WaitLimits waitLimits;
    WatcherTimes times;
};

}  // namespace morvak
