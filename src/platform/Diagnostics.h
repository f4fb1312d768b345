#pragma once

#include <QString>

#include <chrono>

namespace morvak {

/// Writes one line to standard output, from any thread and without ever waiting for whoever reads it: lines
/// are handed to a thread of their own. Line breaks and other control characters inside `line` come out as
/// spaces. When the reader has not kept up for 20,000 lines, further ones are dropped and their number told.
void diagnostic(const QString& line);

/// Gives the lines handed over so far the time to be written; returns early when they are.
void flushDiagnostics(std::chrono::milliseconds atMost);

}  // namespace morvak
