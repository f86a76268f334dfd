#include "tools/songs/voices/Sustained.h"

#include "tools/songs/voices/Envelope.h"
#include "tools/songs/voices/Noise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace songs {

namespace {

constexpr std::size_t kStep = 64; // samples between changes of pitch
constexpr double kVibratoHertz = 5.2;
constexpr double kVibratoDelay = 0.5; // seconds until it is full

double Vibrato(double depth, double seconds) {
    const double grown = std::min(seconds / kVibratoDelay, 1.0);
    return 1 + depth * grown * std::sin(2 * std::numbers::pi * kVibratoHertz * seconds);
}

} // namespace

void PlaySustained(const Sustained& instrument, const Tone& tone, std::span<float> out) {
    Envelope envelope(instrument.rise, tone.seconds - 0.02, instrument.fall);
    Noise noise(static_cast<std::uint32_t>(tone.hertz) + 1);
    Oscillator first;
    Oscillator second;
    float breath = 0;
    out = out.first(std::min(out.size(), envelope.Length()));
    for (std::size_t start = 0; start < out.size(); start += kStep) {
        const double hertz =
            tone.hertz * Vibrato(instrument.vibrato, static_cast<double>(start) / kSampleRate);
        first.SetHertz(hertz * (1 + instrument.detune / 2));
        second.SetHertz(hertz * (1 - instrument.detune / 2));
        for (float& sample : out.subspan(start, std::min(kStep, out.size() - start))) {
            const float strength = envelope.Next();
            const std::uint32_t a = first.Next();
            const std::uint32_t b = second.Next();
            const float soft = instrument.soft.At(a) + instrument.soft.At(b);
            const float strong = instrument.strong.At(a) + instrument.strong.At(b);
            breath += 0.2F * (noise.Next() - breath);
            sample += tone.loudness * strength *
                      (soft + strength * (strong - soft) + instrument.breath * breath);
        }
    }
}

} // namespace songs
