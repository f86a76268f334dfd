#pragma once

namespace audio {

/// One stereo sample; 1.0 is full scale. Lies in memory as the decoder and the device have it.
struct Frame {
    float left = 0;
    float right = 0;
};

} // namespace audio
