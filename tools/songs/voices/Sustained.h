#pragma once

#include "tools/songs/voices/Voice.h"
#include "tools/songs/voices/Wave.h"

namespace songs {

/// How a blown or bowed instrument sounds.
struct Sustained {
    const Wave& soft;   ///< its sound at low strength,
    const Wave& strong; ///< and at full strength
    double rise = 0.02; ///< seconds
    double fall = 0.1;  ///< seconds
    double vibrato = 0; ///< as a part of the frequency; it comes in slowly
    double detune = 0;  ///< of a second player against the first, as a part of the frequency
    float breath = 0;   ///< how much noise of breath
};

/// Adds a tone of that instrument; see `Voice`.
void PlaySustained(const Sustained& instrument, const Tone& tone, std::span<float> out);

} // namespace songs
