#pragma once

namespace audio {

/// Keeps the ALSA library, where there is one, from writing to the standard error stream when a
/// device cannot be opened.
void SilenceAlsaMessages();

} // namespace audio
