#pragma once

#include <cstdint>

namespace songs {

/// White noise from -1 to 1, the same at every build.
class Noise {
public:
    /// Anything but 0 as `seed`.
    explicit Noise(std::uint32_t seed) : mState(seed) {}

    float Next() {
        mState ^= mState << 13;
        mState ^= mState >> 17;
        mState ^= mState << 5;
        return static_cast<float>(mState >> 8) / 8388608.0F - 1.0F;
    }

private:
    std::uint32_t mState;
};

} // namespace songs
