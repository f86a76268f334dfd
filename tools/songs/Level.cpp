#include "tools/songs/Level.h"

#include "tools/songs/Limiter.h"
#include "tools/songs/Loudness.h"

#include <cmath>

namespace songs {

namespace {

constexpr double kLoudness = -16; // LUFS
constexpr double kTolerance = 0.05;
constexpr float kCeiling = 0.75F; // -2.5 dBFS
constexpr int kTries = 6;

Samples Scaled(const Samples& channel, double decibels) {
    const auto gain = static_cast<float>(std::pow(10, decibels / 20));
    Samples scaled = channel;
    for (float& sample : scaled)
        sample *= gain;
    return scaled;
}

} // namespace

/// Limiting takes some loudness away, so the gain before it is found in a few tries.
void Level(Stereo& sound) {
    double decibels = kLoudness - Loudness({&sound.left, &sound.right});
    for (int i = 0; i < kTries; ++i) {
        Stereo levelled{Scaled(sound.left, decibels), Scaled(sound.right, decibels)};
        Limit(levelled, kCeiling);
        const double missing = kLoudness - Loudness({&levelled.left, &levelled.right});
        if (std::abs(missing) < kTolerance || i + 1 == kTries) {
            sound = std::move(levelled);
            return;
        }
        decibels += missing;
    }
}

} // namespace songs
