#pragma once

#include "watch/WatcherServices.h"

namespace morvak {

class ExifToolService;

/// The real world for a watcher: inotify, this exiftool, our code reader, the user's Trash. `exifTool` must
/// outlive the watcher.
[[nodiscard]] WatcherServices watcherServices(ExifToolService& exifTool);

}  // namespace morvak
