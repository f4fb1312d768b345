#pragma once

#include <QString>

class QKeyEvent;

namespace morvak {

/// What one press of a key means while it is not known yet whether a scanner or a person presses it.
struct ScanKey {
    enum class Kind {
        text,          ///< types something
        lineBreak,     ///< Return, Enter, Tab: scanners end their lines with any of them
        controlBreak,  ///< Ctrl+J, Ctrl+M, Ctrl+I: a line break right after another key, a shortcut otherwise
        deadKey,       ///< an accent for the text that follows
        silent,        ///< a function key, which some scanners send before or after their text
        modifier,      ///< Shift, Caps Lock and the like, which scanners press as keys of their own
        shortcut,      ///< with Ctrl, Alt or Meta held
        other,         ///< moves, deletes, cancels
    };

    Kind kind = Kind::other;
    int key = 0;
    QString text;  ///< what it types; of a dead key its combining character
};

/// Pure.
[[nodiscard]] ScanKey scanKeyOf(const QKeyEvent& event);

/// Text that is typed after a dead key: "é" for an acute accent and "e", the accent itself for a blank. Pure.
[[nodiscard]] QString withAccent(QChar combining, const QString& text);

}  // namespace morvak
