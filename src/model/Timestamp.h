#pragma once

namespace morvak {

/// A moment, counted as the store files count it: seconds since 2001-01-01T00:00:00 UTC, leap seconds left
/// out, with fraction. The bare double, so that a date which was read is written back as the same number;
/// for the dates of this century it tells 0.2 microseconds apart.
struct Timestamp {
    double seconds = 0;

    [[nodiscard]] static Timestamp now();
};

}  // namespace morvak
