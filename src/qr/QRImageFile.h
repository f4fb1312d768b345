#pragma once

#include "model/SetData.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace morvak {

/// The code of one set as a PNG file (ISO/IEC 15948) of its own. Pure but for `saveQR`; any thread.

/// "SET-12-Velora.png". The values stand in it unchanged, so that it may be no usable file name.
[[nodiscard]] QString proposedQRFileName(const SetData& set);

/// The code of the set's text, 600 by 600 pixels with its quiet zone; the file holds pixels and nothing about
/// them. None when the text has no code.
[[nodiscard]] std::optional<QByteArray> qrPng(const SetData& set);

/// Writes `qrPng` to the path that the user chose, replacing a file there in one step. False when there is no
/// code or it could not be written; then nothing has changed there, and a diagnostic line tells.
bool saveQR(const SetData& set, const QString& to);

}  // namespace morvak
