#pragma once

#include "model/Tagging.h"

#include <QStringList>

namespace morvak {

/// The options of one tagging request, in the order in which exiftool gets them; the photo's path follows
/// them. IPTC keywords are one entry each, XMP Subject holds all of them as one entry, joined with ", ".
/// An empty value removes its tag. Values are as the set has them, but for the set text, whose lines are
/// joined with " | ".
[[nodiscard]] QStringList taggingOptions(const Tagging& tagging);

}  // namespace morvak
