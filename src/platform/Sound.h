#pragma once

namespace morvak {

/// Plays the short sound that tells of a newly active set. Main thread; returns at once.
void playActivationSound();

}  // namespace morvak
