#pragma once

#include <QString>

#include <variant>

namespace morvak {

/// Why a file gives no text to import.
enum class TextFileFault {
    unreadable,
    empty,
    tooLarge,
    notUtf8,  ///< a spreadsheet in Windows-1252, an archive, a picture
};

/// The text of a file in UTF-8 (RFC 3629), without its byte-order mark. Text with NUL characters counts as no
/// text. Blocks while it reads.
[[nodiscard]] std::variant<QString, TextFileFault> readTextFile(const QString& path);

}  // namespace morvak
