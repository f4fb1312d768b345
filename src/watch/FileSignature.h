#pragma once

#include "platform/PhotoFile.h"

namespace morvak {

/// The state in which a photo was last seen tagged, or was already there when watching started.
struct FileSignature {
    quint64 size = 0;     ///< bytes
    qint64 modified = 0;  ///< nanoseconds since 1970-01-01T00:00:00 UTC

    explicit FileSignature(const FileState& state) : size(state.size), modified(state.modifiedNs) {}
    bool operator==(const FileSignature&) const = default;
};

}  // namespace morvak
