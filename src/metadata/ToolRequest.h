#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace morvak {

/// The number of a request as the tool gets and repeats it: decimal, padded to at least six digits.
[[nodiscard]] QByteArray requestNumberText(qint64 number);

/// What the tool prints when request `number` is done: {readyNNNNNN}.
[[nodiscard]] QByteArray readyMarker(qint64 number);

/// Whether the tool may be given this path: it is absolute and holds neither a line break nor NUL.
[[nodiscard]] bool isSendablePath(const QString& path);

/// The bytes of one request to a stay-open exiftool. Everything that is sent to one is built here.
///
/// The tool takes each line as one argument, so nothing in an option may end its line: each CR LF, CR or LF
/// becomes one space and NUL is dropped. A lone surrogate, which UTF-8 cannot carry, becomes U+FFFD. The
/// path goes last, in the file system's own bytes. None when the path is not a sendable one.
[[nodiscard]] std::optional<QByteArray> requestBytes(const QStringList& options, const QString& filePath,
                                                     qint64 number);

}  // namespace morvak
