#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace morvak {

/// How long a stay-open tool may take for what.
struct ToolLimits {
    using ms = std::chrono::milliseconds;

    ms answer{20'000};          ///< one answer, from the moment the request was written
    ms dropPatience{2'000};     ///< a tool cut off from its pipes, to end by itself
    ms interruptPatience{300};  ///< SIGINT, which lets the tool remove its temporary file, before SIGKILL
    ms stopPatience{2'000};     ///< the stop command
    ms quitStopPatience{200};   ///< the stop command while the application quits
    ms quitGrace{1'000};        ///< a running request when the application quits
};

/// All that the metadata bridge depends on.
struct ExifToolConfig {
    QString resourceDirectory;          ///< where the application may carry its own tool; empty: it has none
    std::function<QString()> findTool;  ///< replaces the usual lookup; any thread

    ToolLimits writer;
    ToolLimits reader{.answer = std::chrono::seconds(5),
                      .dropPatience = std::chrono::milliseconds(0),
                      .quitGrace = std::chrono::milliseconds(0)};
    std::chrono::milliseconds folderAnswer{30'000};  ///< one run over a whole folder
};

}  // namespace morvak
