#pragma once

namespace audio {

/// Keeps the ALSA library, if it was loaded, from writing to the standard error stream when a
/// device cannot be opened. Elsewhere than on Linux there is nothing to do.
void SilenceAlsaMessages();

} // namespace audio
