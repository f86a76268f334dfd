#pragma once

#include "audio/Frame.h"

#include <cstddef>
#include <vector>

namespace songs {

constexpr int kSampleRate = 44100; ///< per second

/// Samples of one channel; full scale is from -1 to 1.
using Samples = std::vector<float>;

/// Both channels.
using Stereo = std::vector<audio::Frame>;

/// How many samples last that long.
constexpr std::size_t SampleCount(double seconds) {
    return static_cast<std::size_t>(seconds * kSampleRate);
}

} // namespace songs
