#pragma once

#include "platform/PhotoFile.h"

#include <functional>
#include <stop_token>

namespace morvak {

struct FoundFile {
    QString path;
    FileState state;
};

/// The regular files below a folder at any depth whose names `accept` takes, in no order. Hidden files and
/// folders are left out (the trash of a memory card is one), symbolic links are not followed, and a subfolder
/// that cannot be listed is passed over. Ends early, with what it has, when `stop` is requested. Blocks; any
/// thread that may.
[[nodiscard]] QList<FoundFile> filesBelow(const QString& folder,
                                          const std::function<bool(const QString& name)>& accept,
                                          const std::stop_token& stop);

}  // namespace morvak
