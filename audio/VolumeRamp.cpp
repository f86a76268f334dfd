#include "audio/VolumeRamp.h"

#include "platform/Volume.h"

#include <algorithm>

namespace audio {

namespace {

/// Half of full volume is -12 dB, which sounds about half as loud.
float WantedGain() {
    const float part = static_cast<float>(platform::HeardVolume()) / 100;
    return part * part;
}

} // namespace

void VolumeRamp::Begin() { mGain = WantedGain(); }

void VolumeRamp::Apply(std::span<Frame> frames, int rate) noexcept {
    constexpr float kSeconds = 0.01F; // from silence to full volume
    const float wanted = WantedGain();
    if (mGain == 1 && wanted == 1)
        return;
    const float step = 1 / (kSeconds * static_cast<float>(rate));
    for (Frame& frame : frames) {
        mGain = std::clamp(wanted, mGain - step, mGain + step);
        frame = {frame.left * mGain, frame.right * mGain};
    }
}

} // namespace audio
