#pragma once

#include <QByteArray>
#include <QStringList>

namespace morvak {

/// What one start of the program tells the one that runs: four bytes of length (big-endian), then "open" and
/// the files, or "activate", each ended by a NUL. File names are the bytes that the kernel knows.

inline constexpr qsizetype longestInstanceMessage = 64 * 1024;  ///< bytes, the length included

/// `files` are absolute paths; none asks for activation.
[[nodiscard]] QByteArray encodeInstanceMessage(const QStringList& files);

struct InstanceMessage {
    enum class State { Incomplete, Refused, Complete };
    State state = State::Incomplete;
    QStringList files;  ///< when complete
};

/// Reads what has come so far. Refused: no message, however much may follow.
[[nodiscard]] InstanceMessage decodeInstanceMessage(QByteArrayView bytes);

}  // namespace morvak
