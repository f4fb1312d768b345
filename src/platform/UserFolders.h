#pragma once

#include <QString>

namespace morvak {

/// Absolute paths in the user's folders of the XDG Base Directory Specification. A variable that is unset,
/// empty or relative stands for its default below the home folder. Nothing is created. Any thread.

/// $HOME or, where that is unset, empty or relative, the home that the system's password file gives this
/// user;
/// `/` when there is none.
[[nodiscard]] QString homeFolder();

/// Where the store files live: `Morvak` below $XDG_DATA_HOME (~/.local/share).
[[nodiscard]] QString storeFolder();

/// The user's preferences: `Morvak/Morvak.conf` below $XDG_CONFIG_HOME (~/.config).
[[nodiscard]] QString preferencesFile();

}  // namespace morvak
