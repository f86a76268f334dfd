#include "tools/songs/Level.h"

#include "audio/Meter.h"
#include "tools/songs/voices/Voice.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>

using namespace songs;

namespace {

Samples Sine(double hertz, double strength) {
    Samples samples(SampleCount(3));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double angle = 2 * std::numbers::pi * hertz * static_cast<double>(i) / kSampleRate;
        samples[i] = static_cast<float>(strength * std::sin(angle));
    }
    return samples;
}

double Peak(const Samples& samples) {
    const auto [low, high] = std::ranges::minmax_element(samples);
    return static_cast<double>(std::max(-*low, *high));
}

double StrengthAt(double hertz, const Samples& samples) {
    std::complex<double> sum;
    const auto length = static_cast<double>(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double turn = 2 * std::numbers::pi * static_cast<double>(i);
        const double window = 1 - std::cos(turn / length);
        sum += std::polar(static_cast<double>(samples[i]) * window, -turn * hertz / kSampleRate);
    }
    return std::abs(sum);
}

TEST(LevelTest, QuietAndPeakySoundsComeOutEquallyLoudBelowFullScale) {
    Samples peaky = Sine(440, 0.1);
    for (std::size_t i = 0; i < peaky.size(); i += 20000)
        peaky[i] = 0.8F;
    for (const Samples& samples : {Sine(440, 0.01), peaky}) {
        Stereo sound;
        for (const float sample : samples)
            sound.push_back({sample, sample});
        Level(sound);
        audio::Meter meter(kSampleRate, audio::Meter::Of::Both);
        meter.Add(sound);
        EXPECT_NEAR(meter.Loudness(), -16, 0.1);
        EXPECT_LE(meter.TruePeak(), 0.76);
    }
}

TEST(VoiceTest, EveryVoiceIsInTuneStartsWithoutAClickAndEnds) {
    for (const char* name : {"accordion", "bells", "brass", "clarinet", "flute", "harpsichord",
                             "marimba", "musicbox", "organ", "piano", "pluck", "strings"}) {
        const Voice voice = FindVoice(name);
        ASSERT_NE(voice, nullptr) << name;
        for (const double hertz : {82.41, 440.0, 1318.51}) {
            Samples samples(SampleCount(4));
            voice({.hertz = hertz, .seconds = 0.8}, samples);
            EXPECT_LT(std::abs(samples.front()), 0.02 * Peak(samples)) << name;
            EXPECT_LT(std::abs(samples.back()), 0.001 * Peak(samples)) << name << hertz;

            samples.resize(SampleCount(0.8));
            const double inTune = StrengthAt(hertz, samples);
            EXPECT_GT(inTune, StrengthAt(hertz * 1.012, samples)) << name << hertz;
            EXPECT_GT(inTune, StrengthAt(hertz / 1.012, samples)) << name << hertz;
        }
    }
}

} // namespace
