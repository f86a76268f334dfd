#include "audio/Voice.h"

#include "audio/PlayClock.h"
#include "tests/audio/Sound.h"

#include <chrono>
#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using audio::Frame;
using audio::PlayClock;
using audio::Voice;

constexpr int kRate = 44100;
constexpr float kNoClick = 1.01f / 176; // a fade over 4 ms has 176 steps

class VoiceAtFullScale : public testing::Test {
protected:
    void SetUp() override {
        mVoice.Load(kRate, 0);
        mVoice.Push(std::vector<Frame>(20000, Frame{1, 1}));
    }
    std::vector<Frame> Take(std::size_t count) {
        std::vector<Frame> frames(count);
        mVoice.Fill(frames);
        mHeard.insert(mHeard.end(), frames.begin(), frames.end());
        return frames;
    }
    PlayClock mClock;
    Voice mVoice{mClock};
    std::vector<Frame> mHeard;
};

TEST_F(VoiceAtFullScale, FadesWhereItStartsStopsAndGoesOn) {
    Take(100);
    mVoice.Start(1);
    EXPECT_EQ(Take(1000).back().left, 1);
    mVoice.FadeOut();
    EXPECT_FALSE(mVoice.Silent());
    EXPECT_EQ(Take(441).back().left, 0);
    EXPECT_TRUE(mVoice.Silent());
    Take(441);
    mVoice.Start(2);
    EXPECT_EQ(Take(441).back().left, 1);
    EXPECT_LE(sound::Roughness(mHeard), kNoClick);
}

TEST_F(VoiceAtFullScale, FallsSilentAlsoWhenTheQueueRunsDryInTheFade) {
    mVoice.Start(1);
    Take(20100);
    mVoice.FadeOut();
    Take(441);
    EXPECT_TRUE(mVoice.Silent());
}

class VoiceWithARamp : public testing::Test {
protected:
    /// What is heard of 10000 frames that hold their own numbers.
    std::vector<float> Take(std::size_t count) {
        std::vector<Frame> frames(count);
        mVoice.Fill(frames);
        std::vector<float> numbers;
        for (const Frame& frame : frames)
            if (frame.left > 0)
                numbers.push_back(frame.left);
        return numbers;
    }
    void Begin(double speed) {
        std::vector<Frame> ramp(10000);
        for (std::size_t i = 0; i < ramp.size(); ++i)
            ramp[i].left = static_cast<float>(i);
        mVoice.Cut();
        mVoice.Load(kRate, 0);
        mVoice.Push(ramp);
        mVoice.SetSpeed(speed);
        mVoice.Start(1);
    }
    PlayClock mClock;
    Voice mVoice{mClock};
};

TEST_F(VoiceWithARamp, GoesOnWithTheVeryNextFrameAfterARest) {
    Begin(1);
    Take(1000);
    mVoice.FadeOut();
    const std::size_t faded = Take(441).size();
    mVoice.Start(2);
    EXPECT_FLOAT_EQ(Take(500).back(), static_cast<float>(1000 + faded + 499));
}

TEST_F(VoiceWithARamp, RunsAtTheSpeedAskedForAndStopsAtTheEndWithoutAClick) {
    for (const double speed : {0.5, 1.0, 1.5, 2.0, 7.7}) {
        Begin(speed);
        EXPECT_NEAR(Take(1001).back(), 1000 * speed, 0.01);
        mVoice.Finish();
        const std::vector<float> rest = Take(30000);
        EXPECT_TRUE(mVoice.Drained());
        EXPECT_NEAR(static_cast<double>(rest.size()), 10000 / speed - 1001, 2 / speed + 1);
        EXPECT_LT(rest.back(), 10000 * 0.02);
    }
}

PlayClock::Time At(std::chrono::milliseconds time) {
    return PlayClock::Time(time);
}

TEST(PlayClock, TellsWhatIsHeardAndNotWhatWasHandedOver) {
    PlayClock clock;
    clock.Begin(1, 7);
    EXPECT_EQ(clock.Position(At(1000ms)), 7);
    clock.Note({.run = 1, .first = 7, .end = 8, .delay = 0.1, .when = At(1000ms)});
    EXPECT_EQ(clock.Position(At(1050ms)), 7);
    EXPECT_NEAR(clock.Position(At(1300ms)), 7.2, 1e-9);
    EXPECT_EQ(clock.Position(At(9000ms)), 8) << "goes past what was handed over";
}

TEST(PlayClock, RunsAtTheSpeedOfTheSound) {
    PlayClock clock;
    clock.Begin(1, 0);
    clock.Note({.run = 1, .first = 0, .end = 9, .speed = 2, .delay = 0, .when = At(0ms)});
    EXPECT_NEAR(clock.Position(At(1500ms)), 3, 1e-9);
}

TEST(PlayClock, NeverRunsBackwardsWithinARunAndForgetsTheRunBefore) {
    PlayClock clock;
    clock.Begin(1, 0);
    clock.Note({.run = 1, .first = 5, .end = 6, .delay = 0, .when = At(0ms)});
    EXPECT_NEAR(clock.Position(At(500ms)), 5.5, 1e-9);
    clock.Note({.run = 1, .first = 5.2, .end = 6, .delay = 0, .when = At(500ms)});
    EXPECT_NEAR(clock.Position(At(500ms)), 5.5, 1e-9);
    clock.Begin(2, 1);
    clock.Note({.run = 1, .first = 5.3, .end = 6, .delay = 0, .when = At(600ms)});
    EXPECT_EQ(clock.Position(At(700ms)), 1);
}

} // namespace
