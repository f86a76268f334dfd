#include "tools/songs/Level.h"

#include "audio/Limiter.h"
#include "audio/Meter.h"
#include "audio/SongLevel.h"

#include <cmath>

namespace songs {

namespace {

constexpr double kTolerance = 0.05; // LU
constexpr float kCeiling = 0.75F;   // -2.5 dBTP
constexpr int kTries = 6;

double Loudness(const Stereo& sound) {
    audio::Meter meter(kSampleRate, audio::Meter::Of::Loudness);
    meter.Add(sound);
    return meter.Loudness();
}

Stereo Scaled(const Stereo& sound, double decibels) {
    const auto gain = static_cast<float>(std::pow(10, decibels / 20));
    Stereo scaled = sound;
    for (audio::Frame& frame : scaled)
        frame = {frame.left * gain, frame.right * gain};
    return scaled;
}

void Limit(Stereo& sound) {
    audio::Limiter limiter(kSampleRate, kCeiling);
    limiter.Put(sound);
    limiter.End();
    limiter.Take(sound);
}

} // namespace

/// Limiting takes some loudness away, so the gain before it is found in a few tries.
void Level(Stereo& sound) {
    double decibels = audio::kPlayedLoudness - Loudness(sound);
    for (int i = 0; i < kTries; ++i) {
        Stereo levelled = Scaled(sound, decibels);
        Limit(levelled);
        const double missing = audio::kPlayedLoudness - Loudness(levelled);
        if (std::abs(missing) < kTolerance || i + 1 == kTries) {
            sound = std::move(levelled);
            return;
        }
        decibels += missing;
    }
}

} // namespace songs
