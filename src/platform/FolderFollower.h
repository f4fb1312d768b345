#pragma once

#include "platform/FolderPlace.h"

#include <functional>
#include <memory>

namespace morvak {

/// Follows to which folder a path leads, through renamings on the way to it and drives that come and go.
/// Made, used and destroyed on the main thread, where the handler is called; a quiet machine never wakes it.
class FolderFollower {
public:
    virtual ~FolderFollower() = default;

    /// Tells the handler, later, where the path leads by then. Without being asked the handler is told
    /// whenever a file system was mounted or unmounted, or a folder on the way was moved or removed.
    virtual void look() = 0;
};

using FolderPlaceHandler = std::function<void(const std::optional<FolderPlace>& now)>;

/// Looks happen on a thread of their own: a lost drive keeps whoever asks for it waiting.
[[nodiscard]] std::unique_ptr<FolderFollower> followFolder(const QString& path, FolderPlaceHandler handler);

}  // namespace morvak
