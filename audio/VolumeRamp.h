#pragma once

#include "audio/Frame.h"

#include <span>

namespace audio {

/// Applies the volume that the player wants; a change takes up to 10 ms, so that there is no click.
/// Used by one thread at a time.
class VolumeRamp {
public:
    /// Starts at the present volume.
    void Begin();

    /// Turns the next frames down; at full volume they stay as they are.
    void Apply(std::span<Frame> frames, int rate) noexcept;

private:
    float mGain = 1;
};

} // namespace audio
