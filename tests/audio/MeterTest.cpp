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
std::vector<Frame> Sine(double hertz, double volume, double phase = 0, int seconds = 3) {
    std::vector<Frame> frames(static_cast<std::size_t>(seconds * kRate));
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

std::vector<Frame> Limited(const std::vector<Frame>& in, std::size_t put, std::size_t take) {
    Limiter limiter(kRate, kCeiling);
    std::vector<Frame> out;
    std::vector<Frame> taken(take);
    const auto takeAll = [&] {
        while (const std::size_t got = limiter.Take(taken))
            out.insert(out.end(), taken.begin(), taken.begin() + static_cast<std::ptrdiff_t>(got));
    };
    for (std::size_t i = 0; i < in.size(); i += put) {
        limiter.Put(std::span(in).subspan(i, std::min(put, in.size() - i)));
        takeAll();
    }
    limiter.End();
    takeAll();
    EXPECT_TRUE(limiter.Drained());
    return out;
}

TEST(Meter, GivesASineOfFullScaleTheLoudnessOfTheStandard) {
    Meter both(kRate, Meter::Of::Both);
    both.Add(Sine(997, 1));
    EXPECT_NEAR(both.Loudness(), 0, 0.05);
    Meter one(kRate, Meter::Of::Loudness, 1);
    std::vector<float> mono;
    for (const Frame& frame : Sine(997, 1))
        mono.push_back(frame.left);
    one.Add(mono);
    EXPECT_NEAR(one.Loudness(), -3.01, 0.05);
}

TEST(Meter, SeesThePeakBetweenTheSamples) {
    EXPECT_NEAR(TruePeak(Sine(kRate / 4, 1, 0.125)), 1, 0.05); // all samples are at 0.7
}

TEST(Limiter, LeavesWhatIsBelowTheCeilingAsItIs) {
    const std::vector<Frame> soft = Sine(440, 0.49);
    const std::vector<Frame> out = Limited(soft, 1152, 1000);
    ASSERT_EQ(out.size(), soft.size());
    for (std::size_t i = 0; i < out.size(); ++i)
        ASSERT_EQ(out[i].left, soft[i].left) << i;
}

TEST(Limiter, KeepsTruePeaksBelowTheCeilingAndLosesNoFrame) {
    std::vector<Frame> bursts;
    for (const double volume : {0.1, 4.0, 0.3, 0.6, 0.1, 1.0, 8.0}) {
        const std::vector<Frame> high = Sine(kRate / 4, volume, 0.125, 1);
        const std::vector<Frame> low = Sine(60, volume, 0.25, 1);
        bursts.insert(bursts.end(), high.begin(), high.begin() + 1234);
        bursts.insert(bursts.end(), low.begin(), low.begin() + 5000);
    }
    for (const std::size_t put : {1u, 63u, 1152u, 100000u}) {
        const std::vector<Frame> out = Limited(bursts, put, put % 100 + 1);
        EXPECT_EQ(out.size(), bursts.size());
        EXPECT_LE(TruePeak(out), kCeiling * 1.03) << put;
    }
}

TEST(Limiter, TurnsDownBeforeThePeakAndUpAgainWithoutAJump) {
    std::vector<Frame> frames = Sine(1000, 0.45);
    for (std::size_t i = 70000; i < 70100; ++i)
        frames[i] = {frames[i].left * 5, frames[i].right * 5};
    const std::vector<Frame> out = Limited(frames, 1152, 1152);
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
