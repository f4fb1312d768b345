#pragma once

#include <QString>

namespace morvak::bench {

/// What to measure and with what.
struct BenchOptions {
    QString program;              ///< the real morvak
    qsizetype photos = 100;       ///< of the burst
    qsizetype size = 25'000'000;  ///< of each photo of the burst and the latency, in bytes
    qsizetype small = 1000;       ///< photos of the big drop
    qsizetype shots = 40;         ///< photos of the latency
    bool shellLoop = true;        ///< measure the shell loop too; it takes its time
};

/// Each measures one thing, prints its figures on standard output, and tells whether every photo was tagged
/// right.

/// Photos dropped at once: the program against bare writes and against a shell loop.
[[nodiscard]] bool measureBurst(const BenchOptions& options);
[[nodiscard]] bool measureNefBurst(const BenchOptions& options);

/// Two photos a second: from last byte to tagged.
[[nodiscard]] bool measureLatency(const BenchOptions& options);

/// A great many small photos at once: all tagged, and the memory it took.
[[nodiscard]] bool measureManyPhotos(const BenchOptions& options);

/// Nothing happens: processor time and wake-ups.
[[nodiscard]] bool measureIdle(const BenchOptions& options);

/// From start to watching.
[[nodiscard]] bool measureStart(const BenchOptions& options);

}  // namespace morvak::bench
