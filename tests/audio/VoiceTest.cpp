#include "audio/Voice.h"

#include "audio/Reel.h"
#include "tests/audio/Sound.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;
using audio::Frame;
using sound::Frames;

constexpr std::uint64_t kDevice = 1;

class Voice : public testing::Test {
protected:
    Voice() { mVoice.Connect(kDevice, 44100); }
    static std::shared_ptr<audio::Reel> ReelOf(const Frames& frames) {
        auto reel = std::make_shared<audio::Reel>(44100, 0);
        reel->frames.Write(frames);
        return reel;
    }
    /// The next frames of a device; they are appended to `mHeard`.
    Frames Take(std::size_t count, std::uint64_t device = kDevice) {
        Frames frames(count);
        mVoice.Fill(device, frames);
        mHeard.insert(mHeard.end(), frames.begin(), frames.end());
        return frames;
    }
    const std::shared_ptr<audio::Reel> mReel = ReelOf(Frames(3000, Frame{1, 1}));
    audio::Voice mVoice;
    Frames mHeard = {Frame{}};
};

TEST_F(Voice, FadesWhereItStartsStopsAndGoesOn) {
    constexpr float kNoClick = 1.01f / 176; // a fade over 4 ms has 176 steps
    mVoice.Play(mReel, 1);
    EXPECT_EQ(Take(1000).back().left, 1);
    mVoice.Play(nullptr, 2);
    EXPECT_TRUE(mVoice.Sounding());
    EXPECT_EQ(Take(441).back().left, 0);
    EXPECT_FALSE(mVoice.Sounding());
    mVoice.Play(mReel, 3);
    EXPECT_EQ(Take(441).back().left, 1);
    mVoice.Play(ReelOf(Frames(700, Frame{-1, -1})), 4);
    Take(441);
    Take(500);
    EXPECT_EQ(std::ranges::min(mHeard, {}, &Frame::left).left, -1);
    EXPECT_LE(sound::Difference(std::span(mHeard).subspan(1), mHeard), kNoClick);
    mVoice.Play(nullptr, 5);
    Take(441);
    EXPECT_FALSE(mVoice.Sounding()) << "waits in the fade for frames that do not come";
}

TEST_F(Voice, RunsAtTheSpeedAskedForAndStopsAtTheEndWithoutAClick) {
    Frames ramp(10000);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i].left = static_cast<float>(i + 1);
    std::uint64_t run = 0;
    for (const double speed : {0.5, 1.0, 1.5, 2.0, 7.7}) {
        const auto reel = ReelOf(ramp);
        mVoice.SetSpeed(speed);
        mVoice.Play(nullptr, ++run);
        Take(441);
        mVoice.Play(reel, ++run);
        EXPECT_NEAR(Take(1001).back().left, 1 + 1000 * speed, 0.01);
        reel->complete = true;
        Frames rest = Take(30000);
        EXPECT_FALSE(mVoice.Ended(run)) << "before the device has come back for more";
        Take(1);
        EXPECT_TRUE(mVoice.Ended(run));
        EXPECT_FALSE(mVoice.Ended(run - 1));
        std::erase_if(rest, [](const Frame& frame) { return frame.left <= 0; });
        EXPECT_NEAR(static_cast<double>(rest.size()), 10000 / speed - 1001, 2 / speed + 1);
        EXPECT_LT(rest.back().left, 10000 * 0.02) << "clicks";
    }
}

TEST_F(Voice, ServesTheDeviceThatWasConnectedLast) {
    mVoice.Play(mReel, 1);
    Take(1000);
    mVoice.Connect(2, 22050);
    EXPECT_EQ(Take(100).back().left, 0) << "heard on a device that was replaced";
    EXPECT_EQ(Take(1000, 2).back().left, 0) << "heard at another rate";
    mVoice.Connect(3, 44100);
    mVoice.Disconnect(2);
    EXPECT_EQ(Take(1, 3).back().left, 0) << "clicks";
    EXPECT_EQ(Take(999, 3).back().left, 1);
    EXPECT_EQ(mReel->next, 2000);
}

TEST_F(Voice, CountsTheReelAlone) {
    mVoice.Clock().Begin(1, 0);
    mVoice.Add(std::make_shared<const Frames>(4000, Frame{0.25F, 0.25F}));
    EXPECT_TRUE(mVoice.Chiming());
    EXPECT_FALSE(mVoice.Sounding());
    const auto reel = ReelOf(Frames(1000, Frame{0.5F, 0.5F}));
    reel->complete = true;
    mVoice.Play(reel, 1);
    EXPECT_EQ(Take(500).back().left, 0.75F);
    Take(500);
    EXPECT_EQ(Take(1).back().left, 0.25F);
    EXPECT_TRUE(mVoice.Ended(1)) << "by a sound that goes on";
    EXPECT_TRUE(mVoice.Chiming());
    EXPECT_EQ(mVoice.Clock().Position(std::chrono::steady_clock::now() + 1h), 1000 / 44100.0);
}

TEST(PlayClock, TellsWhatIsHeardAtItsSpeedAndNeverRunsBackwardsWithinARun) {
    const audio::PlayClock::Time start{1s};
    audio::PlayClock clock;
    clock.Begin(1, 7);
    clock.Note({.run = 1, .first = 7, .end = 8, .speed = 2, .delay = 0.1, .when = start});
    EXPECT_EQ(clock.Position(start + 50ms), 7);
    EXPECT_NEAR(clock.Position(start + 300ms), 7.4, 1e-9);
    clock.Note({.run = 1, .first = 7.2, .end = 8, .delay = 0, .when = start + 300ms});
    EXPECT_NEAR(clock.Position(start + 300ms), 7.4, 1e-9);
    EXPECT_EQ(clock.Position(start + 8s), 8) << "goes past what was handed over";
    clock.Begin(2, 1);
    clock.Note({.run = 1, .first = 5.3, .end = 6, .delay = 0, .when = start + 8s});
    EXPECT_EQ(clock.Position(start + 9s), 1) << "of the run before";
}

} // namespace
