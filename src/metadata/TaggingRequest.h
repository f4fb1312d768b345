#pragma once

#include "model/Tagging.h"

#include <QStringList>

namespace morvak {

/// The options of one tagging request, in the order in which exiftool gets them: those that assign the tags
/// of `writtenTags`, between two that are always there. The photo's path follows them.
[[nodiscard]] QStringList taggingOptions(const Tagging& tagging);

}  // namespace morvak
