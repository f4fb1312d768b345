#pragma once

namespace morvak {

/// Plays the short sound that tells of a newly active set. Any thread; returns at once, and the end of the
/// program never waits for it. Where there is no sound device it is silent, and a diagnostic line says so
/// once.
void playActivationSound();

}  // namespace morvak
