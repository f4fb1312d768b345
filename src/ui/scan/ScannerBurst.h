#pragma once

#include "ui/scan/ScanKey.h"

#include <chrono>

namespace morvak {

/// Tells the keys of a scanner from those of a person by the distances at which they are pressed.
///
/// A scanner presses its keys within 50 ms of each other. Its first keys cannot be known to be a scanner's,
/// so that keys are held back for at most 50 ms, until the next one comes or none. Once there are enough of
/// them the burst is *caught*: no widget sees its keys any more, and 150 ms after the last one it ends. Keys
/// that were given to their widget shortly before a burst was caught, for the scanner had stuttered, are part
/// of its text all the same.
///
/// A pure state machine without a clock: times are those of the presses, from whatever beginning. For every
/// press `before`, then `press`; `silence` when no key has come for `patience`.
class ScannerBurst {
public:
    using Time = std::chrono::milliseconds;

    /// Where a key goes that is not held back.
    enum class Place {
        scanField,
        textField,  ///< another one, without text
        elsewhere,
    };

    enum class Verdict {
        nothing,
        typed,  ///< the keys held back were typed by a person: their widget gets them now
        ended,  ///< a burst is complete: `takeText`
    };

    enum class Fate {
        pass,    ///< the widget gets it
        hold,    ///< held back with those held before
        caught,  ///< part of a burst, with all those held: no widget gets any of them
    };

    /// What the time that went by until this press tells about the keys before it.
    [[nodiscard]] Verdict before(const ScanKey& key, Time time);

    /// What becomes of this key.
    [[nodiscard]] Fate press(const ScanKey& key, Time time, Place place);

    /// What it tells that no further key has come.
    [[nodiscard]] Verdict silence();

    /// How long to wait for the next key; zero while nothing is waited for.
    [[nodiscard]] Time patience() const;

    /// No press belongs to the next one.
    [[nodiscard]] bool isIdle() const { return m_keys == 0; }

    /// A burst is on.
    [[nodiscard]] bool isCaught() const { return m_isCaught; }

    /// Typed so far, line breaks as LF.
    [[nodiscard]] const QString& text() const { return m_text; }

    /// The text so far, which ends the burst.
    QString takeText();

private:
    [[nodiscard]] bool belongs(const ScanKey& key) const;
    void count(const ScanKey& key);
    void append(const ScanKey& key);
    [[nodiscard]] Verdict release();
    [[nodiscard]] Fate passOrHold(const ScanKey& key, Place place);

    QString m_text;
    QChar m_accent;       // of a dead key, for the text to come
    Time m_last{};        // the press before, modifiers included
    int m_lastKey = 0;    // the one before that is no modifier
    int m_keys = 0;       // modifiers not counted
    Time m_step{};        // the longest between two presses since that key
    int m_fastSteps = 0;  // from a key to another one
    int m_doubts = 0;     // what slower steps weigh against them
    bool m_holds = false;
    bool m_isCaught = false;
};

}  // namespace morvak
