#pragma once

namespace audio {

/// One stereo sample; 1.0 is full scale. The decoder and the device use the same layout in memory.
struct Frame {
    float left = 0;
    float right = 0;
};

} // namespace audio
