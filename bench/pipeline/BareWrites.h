#pragma once

#include "BenchShoot.h"

#include <chrono>

namespace morvak::bench {

/// The limit: photos that lie there already, tagged one after another by one stay-open exiftool with the very
/// requests of the program, and nothing else done. The tool's own start does not count.
[[nodiscard]] std::chrono::duration<double> timeBareWrites(const QDir& folder, const QStringList& names);

}  // namespace morvak::bench
