#pragma once

#include "platform/ChildProcess.h"

#include <chrono>

namespace morvak {

/// Runs a command of the tool and gives what it prints on standard output. Empty when it cannot be started,
/// when it does not end its output within `limit` (it is killed then) or when `quit` comes first. The tool
/// has ended and is reaped. Blocks; any thread that may.
[[nodiscard]] QByteArray runToolOnce(const ChildCommand& command, std::chrono::milliseconds limit,
                                     const Interrupt& quit);

}  // namespace morvak
