#pragma once

#include "driver/ReadBack.h"
#include "model/Tagging.h"

namespace morvak::driver {

/// The values of one tag; several when it is a list, none when the photo does not carry it.
[[nodiscard]] QStringList tagValues(const PhotoTags& tags, const QString& tag);

/// What a photo carries otherwise than it should after this tagging: one Dutch line per tag, empty when all
/// is right. It looks at every tag that we write and exiftool keeps.
[[nodiscard]] QStringList tagFaults(const PhotoTags& tags, const Tagging& tagging);

/// Whether the photo as it is now still holds the picture of `original`, byte for byte.
[[nodiscard]] bool hasSamePicture(const QByteArray& original, const QByteArray& now);

}  // namespace morvak::driver
