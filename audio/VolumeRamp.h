#pragma once

#include "audio/Frame.h"

#include <span>

namespace audio {

/// Brings sound to the volume that the player wants; another one is reached within 10 ms, without a
/// click. Used by one thread at a time.
class VolumeRamp {
public:
    /// Begins at that volume.
    void Begin();

    /// Turns the next frames down; at full volume they stay as they are.
    void Apply(std::span<Frame> frames, int rate) noexcept;

private:
    float mGain = 1;
};

} // namespace audio
