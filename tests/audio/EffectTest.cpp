#include "audio/Effect.h"

#include "audio/SongLevel.h"
#include "audio/VolumeRamp.h"
#include "platform/Volume.h"
#include "tests/audio/RecordedPlayer.h"

namespace {

using namespace std::chrono_literals;
using audio::Effect;
using audio::Frame;
using audio::kJingleRate;
using sound::Frames;

TEST(Effects, AreAsLoudAsTheSongsAndBeginAndEndInSilence) {
    for (const auto& [effect, seconds] :
         {std::pair(Effect::Right, 0.75), {Effect::Wrong, 0.6}, {Effect::Fanfare, 1.75}}) {
        const Frames& frames = *audio::JingleOf(effect);
        EXPECT_NEAR(static_cast<double>(frames.size()) / kJingleRate, seconds, 0.2 * seconds);
        EXPECT_NEAR(LoudestMoment(frames, kJingleRate), audio::kPlayedLoudness, 0.5);
        EXPECT_LT(sound::Measured(frames, kJingleRate).TruePeak(), 0.89);
        for (const Frame& end : {frames.front(), frames.back()})
            EXPECT_LT(std::abs(end.left) + std::abs(end.right), 0.001F);
    }
}

class Overlay : public testing::Test {
protected:
    /// Has a jingle of one level heard.
    void Add(std::size_t frames, float level, std::chrono::milliseconds after = 0ms) {
        mOverlay.Add(std::make_shared<const Frames>(frames, Frame{level, level}), kStart + after);
    }
    /// The next frames over a song of that level, `after` the first ones were asked for.
    Frames Mix(std::size_t count, float level, std::chrono::milliseconds after,
               int rate = kJingleRate) {
        Frames frames(count, Frame{level, level});
        mOverlay.Mix(frames, rate, kStart + after);
        return frames;
    }
    static constexpr audio::Overlay::Time kStart{1h};
    audio::Overlay mOverlay;
};

TEST_F(Overlay, AddsSoundsThatOverlapAtTheirPaceAndStaysBelowFullScale) {
    Add(4410, 0.25F);
    const Frames slower = Mix(9600, 0, 0ms, 48000);
    EXPECT_EQ(slower[4790].left, 0.25F) << "ends early on a device of another rate";
    EXPECT_EQ(slower[4801].left, 0);
    Add(1000, 0.25F);
    Add(500, 0.25F, 5ms);
    const Frames frames = Mix(1200, 0.125F, 10ms);
    EXPECT_EQ(frames[499].left, 0.625F);
    EXPECT_EQ(frames[998].left, 0.375F);
    EXPECT_EQ(frames[1000].left, 0.125F);
    for (int i = 0; i < 6; ++i)
        Add(500, -0.8F);
    const float loudest = Mix(100, -0.8F, 10ms).back().right;
    EXPECT_TRUE(loudest < -0.8F && loudest >= -1) << loudest;
}

TEST_F(Overlay, DropsASoundThatWouldBeLateAndFadesBeforeADeviceIsClosed) {
    Add(44100, 0.25F);
    EXPECT_TRUE(mOverlay.Sounding(kStart + 250ms));
    EXPECT_FALSE(mOverlay.Sounding(kStart + 350ms)) << "keeps a device open";
    EXPECT_EQ(Mix(10, 0, 350ms).back().left, 0);
    Add(44100, 0.5F);
    Mix(10, 0, 100ms);
    EXPECT_TRUE(mOverlay.Sounding(kStart + 900ms));
    EXPECT_FALSE(mOverlay.Sounding(kStart + 1400ms)) << "of a device that asks no more";
    mOverlay.Hush();
    Add(44100, 0.5F);
    const Frames fading = Mix(441, 0, 110ms);
    EXPECT_LT(sound::Difference(std::span(fading).subspan(1), fading), 0.5F / 170);
    EXPECT_EQ(fading.back().left, 0);
    mOverlay.Cut();
    EXPECT_EQ(Mix(10, 0, 120ms).back().left, 0.5F) << "what had not begun is heard by the next one";
}

TEST(VolumeRamp, BeginsAtTheVolumeAndReachesAnotherWithoutAClick) {
    platform::Volume& volume = platform::Volume::Get();
    volume.SetPercent(50);
    audio::VolumeRamp ramp;
    ramp.Begin();
    Frame last{0.25F, -0.25F};
    for (const auto& [percent, gain] : {std::pair(50, 0.25), {0, 0}, {10, 0.01}, {100, 1}}) {
        volume.SetPercent(percent);
        Frames frames(442, Frame{1, -1}); // 10 ms
        ramp.Apply(frames, 44100);
        frames.insert(frames.begin(), last);
        EXPECT_LT(sound::Difference(std::span(frames).subspan(1), frames), 1.01F / 441);
        last = frames.back();
        EXPECT_NEAR(last.left, gain, 1e-6);
        EXPECT_EQ(last.right, -last.left);
    }
}

TEST_F(RecordedPlayer, HasADeviceOpenedForASoundAndClosedAfterItOrForASong) {
    audio::Play(Effect::Wrong);
    ASSERT_TRUE(DeviceOpens());
    const Frames heard = RecordedSound();
    const Frames wrong = WithoutSilence(*audio::JingleOf(Effect::Wrong));
    ASSERT_EQ(heard.size(), wrong.size());
    EXPECT_EQ(sound::Difference(wrong, heard), 0);
    audio::Play(Effect::Fanfare);
    ASSERT_TRUE(DeviceOpens());
    setenv("SDL_DISKAUDIOFILE", (mFolder.Path() / "device of another rate").c_str(), 1);
    ASSERT_EQ(Audio().OpenFile(mFolder.Write("song", tonefile::Encode(3, {.rate = 22050}))), 1);
    Audio().Play();
    RecordedSound(); // is not cut off
    gAudio.reset();
}

} // namespace
