#pragma once

#include <QString>

#include <chrono>
#include <functional>

namespace morvak {

/// No answer about a photo has more bytes than this; what goes on is cut off.
constexpr qsizetype mostAnswerBytes = 64 * 1024 * 1024;

/// While more tools than this cannot be ended, those that read are not started.
constexpr int mostAbandonedTools = 4;

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

/// How the photos of a folder are read.
struct FolderLimits {
    std::chrono::milliseconds answer{30'000};  ///< one run of the tool
    qsizetype names = 256;                     ///< photos for one run
    qsizetype nameBytes = 64 * 1024;           ///< what their names may take of its command line
};

/// All that the metadata bridge depends on.
struct ExifToolConfig {
    QString resourceDirectory;          ///< where the application may carry its own tool; empty: it has none
    std::function<QString()> findTool;  ///< replaces the usual lookup; any thread

    ToolLimits writer;
    ToolLimits reader{.answer = std::chrono::seconds(5),
                      .dropPatience = std::chrono::milliseconds(0),
                      .quitGrace = std::chrono::milliseconds(0)};
    FolderLimits folder;
};

}  // namespace morvak
