#pragma once

#include "tools/songs/voices/Voice.h"
#include "tools/songs/voices/Wave.h"

namespace songs {

/// One of the sounds that a struck string or bell is made of.
struct Ring {
    const Wave& wave;
    double ratio = 1;   ///< its frequency against the tone's
    float strength = 1; ///< at the stroke
    double seconds = 1; ///< until it is softer by 60 dB
};

/// Adds a tone of rings that die away; see `Voice`. Let go, they last `letGo` seconds at most.
void PlayStruck(std::span<const Ring> rings, double letGo, const Tone& tone, std::span<float> out);

} // namespace songs
