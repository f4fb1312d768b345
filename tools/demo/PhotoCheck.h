#pragma once

#include "demo/ReadBack.h"
#include "model/SetData.h"

namespace morvak::demo {

/// The values of one tag; several when it is a list, none when the photo does not carry it.
[[nodiscard]] QStringList tagValues(const PhotoTags& tags, const QString& tag);

/// What a photo carries otherwise than it should when it was tagged with `set` in the shoot `shootName`: one
/// Dutch line a tag, empty when all is right.
[[nodiscard]] QStringList tagFaults(const PhotoTags& tags, const SetData& set, const QString& shootName);

/// Whether the photo as it is now still holds the picture of `original`, byte for byte.
[[nodiscard]] bool hasSamePicture(const QByteArray& original, const QByteArray& now);

}  // namespace morvak::demo
