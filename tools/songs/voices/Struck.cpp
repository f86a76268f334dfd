#include "tools/songs/voices/Struck.h"

#include "tools/songs/Sound.h"

#include <algorithm>
#include <cmath>

namespace songs {

namespace {

constexpr double kStroke = 0.002;      // seconds that the stroke takes
constexpr double kHighestRatio = 0.45; // of the sample rate
constexpr float kSilence = 0.0005F;

/// The factor per sample that makes a sound softer by 60 dB in that time.
float Decay(double seconds) {
    return static_cast<float>(std::pow(10.0, -3 / (seconds * kSampleRate)));
}

void PlayRing(const Ring& ring, double letGo, const Tone& tone, std::span<float> out) {
    Oscillator oscillator;
    oscillator.SetHertz(tone.hertz * ring.ratio);
    const float held = Decay(ring.seconds);
    const float released = Decay(std::min(ring.seconds, letGo));
    const std::size_t release = SampleCount(tone.seconds);
    const float stroke = static_cast<float>(1 / (kStroke * kSampleRate));
    float struck = 0;
    float level = tone.loudness * ring.strength;
    for (std::size_t i = 0; i < out.size() && level > kSilence; ++i) {
        struck = std::min(struck + stroke, 1.0F);
        out[i] += level * struck * ring.wave.At(oscillator.Next());
        level *= i < release ? held : released;
    }
}

} // namespace

void PlayStruck(std::span<const Ring> rings, double letGo, const Tone& tone, std::span<float> out) {
    for (const Ring& ring : rings) {
        if (tone.hertz * ring.ratio < kHighestRatio * kSampleRate)
            PlayRing(ring, letGo, tone, out);
    }
}

} // namespace songs
