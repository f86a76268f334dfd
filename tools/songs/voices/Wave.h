#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace songs {

/// One cycle of a periodic sound, made of sines.
class Wave {
public:
    /// `partials`: the strengths of the fundamental, its octave and so on.
    explicit Wave(std::span<const float> partials);

    /// The bowed or blown sound of that many partials, each softer than the one before by the
    /// power `slope` of its number.
    static Wave Falling(int partials, double slope);

    /// A sample of the cycle; the whole range of `phase` is one cycle.
    float At(std::uint32_t phase) const {
        const std::uint32_t index = phase >> (32 - kBits);
        const float fraction = static_cast<float>(phase & kFractionMask) * kFractionScale;
        const float* sample = mCycle.data() + index;
        return sample[0] + fraction * (sample[1] - sample[0]);
    }

private:
    static constexpr int kBits = 11;
    static constexpr std::uint32_t kFractionMask = (1U << (32 - kBits)) - 1;
    static constexpr float kFractionScale = 1.0F / static_cast<float>(1U << (32 - kBits));

    std::array<float, (1U << kBits) + 1> mCycle{}; ///< the first sample once more at the end
};

/// Where a tone is in its cycle.
class Oscillator {
public:
    void SetHertz(double hertz);

    std::uint32_t Next() { return mPhase += mStep; }

private:
    std::uint32_t mPhase = 0;
    std::uint32_t mStep = 0;
};

} // namespace songs
