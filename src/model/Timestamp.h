#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace morvak {

/// A moment, counted as the store files count it: seconds since 2001-01-01T00:00:00 UTC, leap seconds left
/// out, with fraction. The bare double, so that a date which was read is written back as the same number;
/// for the dates of this century it tells 0.2 microseconds apart.
struct Timestamp {
    double seconds = 0;

    [[nodiscard]] static Timestamp now();

    /// From nanoseconds since 1970-01-01T00:00:00 UTC, as file systems count; exact for whole seconds.
    [[nodiscard]] static Timestamp fromUnixNanoseconds(std::int64_t nanoseconds);

    /// Reads a date of RFC 3339 without fraction, `2025-03-14T10:30:00+01:00` or with `Z` for UTC. None for
    /// any other text, and for leap seconds and moments outside of the years 0 to 9999 in UTC.
    [[nodiscard]] static std::optional<Timestamp> fromIsoDate(QStringView text);

    /// `2025-03-14T09:30:00Z`, the second that has begun; none outside of the years 0 to 9999.
    [[nodiscard]] std::optional<QString> toIsoDate() const;
};

}  // namespace morvak
