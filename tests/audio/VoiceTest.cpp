#include "audio/Voice.h"

#include "audio/PlayClock.h"
#include "tests/audio/Sound.h"

#include <chrono>
#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace std::chrono_literals;
using audio::Frame;
using audio::PlayClock;

constexpr float kNoClick = 1.01f / 176; // a fade over 4 ms has 176 steps

class Voice : public testing::Test {
protected:
    void Begin(const std::vector<Frame>& frames, double speed = 1) {
        mVoice.Cut();
        mVoice.Load(44100, 0);
        mVoice.Push(frames);
        mVoice.SetSpeed(speed);
        mVoice.Start(1);
    }
    /// The next frames; they are appended to `mHeard`.
    std::vector<Frame> Take(std::size_t count) {
        std::vector<Frame> frames(count);
        mVoice.Fill(frames);
        mHeard.insert(mHeard.end(), frames.begin(), frames.end());
        return frames;
    }
    PlayClock mClock;
    audio::Voice mVoice{mClock};
    std::vector<Frame> mHeard = {Frame{}};
};

TEST_F(Voice, FadesWhereItStartsStopsAndGoesOn) {
    Begin(std::vector<Frame>(3000, Frame{1, 1}));
    EXPECT_EQ(Take(1000).back().left, 1);
    mVoice.FadeOut();
    EXPECT_FALSE(mVoice.Silent());
    EXPECT_EQ(Take(882).back().left, 0);
    EXPECT_TRUE(mVoice.Silent());
    mVoice.Start(2);
    EXPECT_EQ(Take(441).back().left, 1);
    EXPECT_LE(sound::Difference(std::span(mHeard).subspan(1), mHeard), kNoClick);
    Take(3000);
    mVoice.FadeOut();
    Take(441);
    EXPECT_TRUE(mVoice.Silent()) << "waits in the fade for frames that do not come";
}

TEST_F(Voice, RunsAtTheSpeedAskedForAndStopsAtTheEndWithoutAClick) {
    std::vector<Frame> ramp(10000);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i].left = static_cast<float>(i + 1);
    for (const double speed : {0.5, 1.0, 1.5, 2.0, 7.7}) {
        Begin(ramp, speed);
        EXPECT_NEAR(Take(1001).back().left, 1 + 1000 * speed, 0.01);
        mVoice.Finish();
        std::vector<Frame> rest = Take(30000);
        EXPECT_TRUE(mVoice.Drained());
        std::erase_if(rest, [](const Frame& frame) { return frame.left <= 0; });
        EXPECT_NEAR(static_cast<double>(rest.size()), 10000 / speed - 1001, 2 / speed + 1);
        EXPECT_LT(rest.back().left, 10000 * 0.02);
    }
}

PlayClock::Time At(std::chrono::milliseconds time) { return PlayClock::Time(time); }

TEST(PlayClock, TellsWhatIsHeardAtItsSpeedAndNeverRunsBackwardsWithinARun) {
    PlayClock clock;
    clock.Begin(1, 7);
    clock.Note({.run = 1, .first = 7, .end = 8, .speed = 2, .delay = 0.1, .when = At(1000ms)});
    EXPECT_EQ(clock.Position(At(1050ms)), 7);
    EXPECT_NEAR(clock.Position(At(1300ms)), 7.4, 1e-9);
    clock.Note({.run = 1, .first = 7.2, .end = 8, .delay = 0, .when = At(1300ms)});
    EXPECT_NEAR(clock.Position(At(1300ms)), 7.4, 1e-9);
    EXPECT_EQ(clock.Position(At(9000ms)), 8) << "goes past what was handed over";
    clock.Begin(2, 1);
    clock.Note({.run = 1, .first = 5.3, .end = 6, .delay = 0, .when = At(9000ms)});
    EXPECT_EQ(clock.Position(At(9100ms)), 1) << "of the run before";
}

} // namespace
