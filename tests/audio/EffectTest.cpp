#include "audio/Effect.h"

#include "audio/Meter.h"
#include "audio/Overlay.h"
#include "audio/SongLevel.h"
#include "audio/VolumeRamp.h"
#include "platform/Volume.h"
#include "tests/audio/RecordedPlayer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <tuple>
#include <vector>

namespace {

using namespace std::chrono_literals;
using audio::Effect;
using audio::Frame;

TEST(Effects, AreAsLoudAsTheSongsAndBeginAndEndInSilence) {
    const std::tuple<Effect, double, double> cases[] = {
        {Effect::Right, 0.6, 0.9}, {Effect::Wrong, 0.5, 0.7}, {Effect::Fanfare, 1.5, 2}};
    for (const auto& [effect, shortest, longest] : cases) {
        ASSERT_TRUE(audio::JingleOf(effect));
        const std::vector<Frame>& frames = *audio::JingleOf(effect);
        const double seconds = static_cast<double>(frames.size()) / audio::kJingleRate;
        EXPECT_GE(seconds, shortest);
        EXPECT_LE(seconds, longest);
        EXPECT_NEAR(audio::LoudestMoment(frames, audio::kJingleRate), audio::kPlayedLoudness, 0.5);
        audio::Meter meter(audio::kJingleRate, audio::Meter::Of::TruePeak);
        meter.Add(std::span(frames));
        EXPECT_LT(20 * std::log10(meter.TruePeak()), -1);
        for (const Frame& end : {frames.front(), frames.back()})
            EXPECT_LT(std::abs(end.left) + std::abs(end.right), 0.001F);
    }
}

/// A jingle of one level, for looking at what is made of it.
audio::Jingle Flat(std::size_t frames, float level) {
    return std::make_shared<const std::vector<Frame>>(frames, Frame{level, level});
}

class Overlay : public testing::Test {
protected:
    /// The next frames over a song of that level, `after` the first ones were asked for.
    std::vector<Frame> Mix(std::size_t count, float level, std::chrono::milliseconds after,
                           int rate = audio::kJingleRate) {
        std::vector<Frame> frames(count, Frame{level, level});
        mOverlay.Mix(frames, rate, kStart + after);
        return frames;
    }
    static constexpr audio::Overlay::Time kStart{1h};
    audio::Overlay mOverlay;
};

TEST_F(Overlay, AddsSoundsThatOverlapAtTheirPaceAndStaysBelowFullScale) {
    mOverlay.Add(Flat(4410, 0.25F), kStart);
    const std::vector<Frame> slower = Mix(9600, 0, 0ms, 48000);
    EXPECT_EQ(slower[4790].left, 0.25F) << "ends early on a device of another rate";
    EXPECT_EQ(slower[4801].left, 0);
    mOverlay.Add(Flat(1000, 0.25F), kStart);
    mOverlay.Add(Flat(500, 0.25F), kStart + 5ms);
    const std::vector<Frame> frames = Mix(1200, 0.125F, 10ms);
    EXPECT_EQ(frames[499].left, 0.625F);
    EXPECT_EQ(frames[998].left, 0.375F);
    EXPECT_EQ(frames[1000].left, 0.125F);
    for (int i = 0; i < 6; ++i)
        mOverlay.Add(Flat(500, -0.8F), kStart);
    const float loudest = Mix(100, -0.8F, 10ms).back().right;
    EXPECT_LT(loudest, -0.8F);
    EXPECT_GE(loudest, -1.0F);
}

TEST_F(Overlay, DropsASoundThatWouldBeLate) {
    mOverlay.Add(Flat(44100, 0.25F), kStart);
    EXPECT_TRUE(mOverlay.Sounding(kStart + 250ms));
    EXPECT_FALSE(mOverlay.Sounding(kStart + 350ms)) << "keeps a device open";
    EXPECT_EQ(Mix(10, 0, 350ms).back().left, 0);
    mOverlay.Add(Flat(44100, 0.25F), kStart);
    Mix(10, 0, 100ms);
    EXPECT_TRUE(mOverlay.Sounding(kStart + 900ms));
    EXPECT_FALSE(mOverlay.Sounding(kStart + 1400ms)) << "of a device that asks no more";
}

TEST_F(Overlay, FadesBeforeADeviceIsClosed) {
    mOverlay.Add(Flat(44100, 0.5F), kStart);
    Mix(10, 0, 0ms);
    mOverlay.Hush();
    mOverlay.Add(Flat(44100, 0.5F), kStart);
    EXPECT_TRUE(mOverlay.Fading());
    std::vector<Frame> fading = Mix(441, 0, 10ms);
    EXPECT_FALSE(mOverlay.Fading());
    EXPECT_LT(sound::Difference(std::span(fading).subspan(1), fading), 0.5F / 170);
    EXPECT_EQ(fading.back().left, 0);
    mOverlay.Cut();
    EXPECT_EQ(Mix(10, 0, 20ms).back().left, 0.5F) << "what had not begun is heard by the next one";
}

TEST(VolumeRamp, ReachesAnotherVolumeWithoutAClick) {
    platform::Volume& volume = platform::Volume::Get();
    audio::VolumeRamp ramp;
    ramp.Begin();
    const auto next = [&ramp] {
        std::vector<Frame> frames(442, Frame{1, -1}); // 10 ms
        ramp.Apply(frames, 44100);
        return frames;
    };
    EXPECT_EQ(next().back().right, -1);
    volume.SetPercent(50);
    Frame last{1, -1};
    const auto expect = [&](float least, float most) {
        for (const Frame& frame : next()) {
            EXPECT_LE(std::abs(frame.left - last.left), 1.01F / 441);
            last = frame;
        }
        EXPECT_GE(last.left, least);
        EXPECT_LE(last.left, most);
        EXPECT_EQ(last.right, -last.left);
    };
    expect(0.2F, 0.3F);
    volume.ToggleMuted();
    expect(0, 0);
    volume.SetPercent(10);
    expect(0.005F, 0.02F);
    volume.SetPercent(100);
    expect(1, 1);
}

TEST_F(RecordedPlayer, HasADeviceOpenedForASoundAndClosedAfterIt) {
    audio::Play(Effect::Wrong);
    ASSERT_TRUE(Eventually([this] { return DeviceWasOpened(); }));
    ASSERT_TRUE(DeviceCloses());
    const std::vector<Frame> heard = Recording();
    const std::vector<Frame>& wrong = *audio::JingleOf(Effect::Wrong);
    ASSERT_GE(heard.size(), wrong.size());
    EXPECT_EQ(sound::Difference(wrong, heard), 0);
    gAudio.reset();
}

} // namespace
