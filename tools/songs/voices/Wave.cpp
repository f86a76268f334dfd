#include "tools/songs/voices/Wave.h"

#include "tools/songs/Sound.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace songs {

Wave::Wave(std::span<const float> partials) {
    for (std::size_t i = 0; i < mCycle.size(); ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / (1U << kBits);
        double sample = 0;
        double number = 0;
        for (const float strength : partials) {
            number += 1;
            sample += static_cast<double>(strength) * std::sin(number * angle);
        }
        mCycle[i] = static_cast<float>(sample);
    }
}

Wave Wave::Falling(int partials, double slope) {
    std::vector<float> strengths;
    for (int number = 1; number <= partials; ++number)
        strengths.push_back(static_cast<float>(std::pow(number, -slope)));
    return Wave(strengths);
}

void Oscillator::SetHertz(double hertz) {
    mStep = static_cast<std::uint32_t>(hertz / kSampleRate * 4294967296.0);
}

} // namespace songs
