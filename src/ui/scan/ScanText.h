#pragma once

#include <QString>

namespace morvak {

/// What a burst of keys says. Pure, any thread.

/// Whether it is a scan rather than words: it has a line break or a line of the form KEY:value.
[[nodiscard]] bool isScan(const QString& text);

/// Whether it has a line with a key of set text, in whatever case.
[[nodiscard]] bool isSetText(const QString& text);

/// The text as it would read without Caps Lock. Scanners press Shift for capitals, which Caps Lock turns
/// round; our cards print their keys in capitals, so that a text whose set-text keys are all in lower case
/// was typed with Caps Lock on, and each of its letters is swapped. Any other text is returned as it is.
[[nodiscard]] QString withoutCapsLock(const QString& text);

}  // namespace morvak
