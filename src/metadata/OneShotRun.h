#pragma once

#include "metadata/ToolAnswer.h"
#include "platform/ChildProcess.h"

#include <chrono>

namespace morvak {

/// Runs a command of the tool and gives what it prints on standard output, all of it or nothing. Late when it
/// does not end its output within `limit` or within `mostAnswerBytes`; it is killed then. Unasked when it
/// cannot be started and when `quit` comes first. The tool has ended and is reaped, unless the kernel holds
/// it back. Blocks; any thread that may.
[[nodiscard]] ToolAnswer runToolOnce(const ChildCommand& command, std::chrono::milliseconds limit,
                                     const Interrupt& quit);

}  // namespace morvak
