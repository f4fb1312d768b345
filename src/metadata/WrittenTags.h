#pragma once

#include "model/Tagging.h"

#include <QStringList>

#include <span>

namespace morvak {

/// One tag that is written into every photo.
struct WrittenTag {
    enum class WhenEmpty { Removed, LeftAlone };

    const char* name;                                ///< group and tag, as exiftool takes them
    QStringList (*entries)(const Tagging& tagging);  ///< its value: one text for each entry, empty for none
    WhenEmpty whenEmpty;                             ///< what becomes of the one that the photo has already
    bool isKept = true;                              ///< false where exiftool knows no such tag and drops it

    /// The tag among those that exiftool prints with -G0: its group without the part of it.
    [[nodiscard]] QString printedName() const;
};

/// All of them, in the order in which they are written. The one list: what writes tags, reads them back or
/// compares them goes through it.
[[nodiscard]] std::span<const WrittenTag> writtenTags();

}  // namespace morvak
