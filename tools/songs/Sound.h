#pragma once

#include <cstddef>
#include <vector>

namespace songs {

constexpr int kSampleRate = 44100; ///< per second

/// Samples of one channel; full scale is from -1 to 1.
using Samples = std::vector<float>;

struct Stereo {
    Samples left;
    Samples right;
};

/// How many samples last that long.
constexpr std::size_t SampleCount(double seconds) {
    return static_cast<std::size_t>(seconds * kSampleRate);
}

} // namespace songs
