#include "audio/Meter.h"
#include "audio/Limiter.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <vector>

namespace {

using audio::Frame;
using audio::Limiter;
using audio::Meter;

constexpr int kRate = 48000;
constexpr float kCeiling = 0.5F;

/// `phase` in cycles.
std::vector<Frame> Sine(double hertz, double volume, double phase = 0) {
    std::vector<Frame> frames(3 * kRate);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        const double cycles = hertz * static_cast<double>(i) / kRate + phase;
        const auto sample = static_cast<float>(volume * std::sin(2 * std::numbers::pi * cycles));
        frames[i] = {sample, sample};
    }
    return frames;
}

double TruePeak(const std::vector<Frame>& frames) {
    Meter meter(kRate, Meter::Of::TruePeak);
    meter.Add(frames);
    return meter.TruePeak();
}

TEST(Meter, GivesASineTheLoudnessOfTheStandardAndThePeakBetweenItsSamples) {
    const std::vector<Frame> sine = Sine(997, 1);
    Meter both(kRate, Meter::Of::Both);
    both.Add(sine);
    EXPECT_NEAR(both.Loudness(), 0, 0.05);
    Meter one(kRate, Meter::Of::Loudness, 1);
    std::vector<float> mono;
    for (const Frame& frame : sine)
        mono.push_back(frame.left);
    one.Add(mono);
    EXPECT_NEAR(one.Loudness(), -3.01, 0.05);
    EXPECT_NEAR(TruePeak(Sine(kRate / 4, 1, 0.125)), 1, 0.05); // all samples are at 0.7
}

TEST(Limiter, TurnsDownBeforeThePeakAndUpAgainWithoutAJump) {
    std::vector<Frame> frames = Sine(1000, 0.45);
    for (std::size_t i = 70000; i < 70100; ++i)
        frames[i] = {frames[i].left * 5, frames[i].right * 5};
    Limiter limiter(kRate, kCeiling);
    limiter.Put(frames);
    limiter.End();
    std::vector<Frame> out(frames.size() + 1);
    std::size_t done = 0;
    while (const std::size_t got = limiter.Take(std::span(out).subspan(done)))
        done += got;
    EXPECT_TRUE(limiter.Drained());
    out.resize(done);
    EXPECT_EQ(out.size(), frames.size());
    EXPECT_LE(TruePeak(out), kCeiling * 1.03);
    double before = 1;
    double lowest = 1;
    for (std::size_t i = 12; i < out.size(); i += 24) { // the tops of the sine
        const double gain = std::abs(static_cast<double>(out[i].left / frames[i].left));
        EXPECT_NEAR(gain, before, 0.05) << i;
        before = gain;
        lowest = std::min(lowest, gain);
    }
    EXPECT_LT(lowest, 0.25);
    EXPECT_GT(before, 0.99);
}

} // namespace
