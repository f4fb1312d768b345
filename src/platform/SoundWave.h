#pragma once

#include <QByteArray>

namespace morvak {

/// The sound of a newly active set: a short bright tink, like a fingernail on a glass. A WAV file (RIFF, PCM,
/// 16 bit, mono, 44,100 Hz) of a third of a second that begins and ends in silence.
[[nodiscard]] QByteArray activationSoundWave();

}  // namespace morvak
