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

TEST(Effects, AreAsLoudAsTheSongs) {
    for (const auto& [effect, seconds] :
         {std::pair(Effect::Right, 0.75), {Effect::Wrong, 0.6}, {Effect::Fanfare, 1.75}}) {
        const Frames& frames = *audio::JingleOf(effect);
        EXPECT_NEAR(static_cast<double>(frames.size()) / kJingleRate, seconds, 0.2 * seconds);
        EXPECT_NEAR(LoudestMoment(frames, kJingleRate), audio::kPlayedLoudness, 0.5);
    }
}

TEST(Overlay, MixesSoundsAtTheirPaceBelowFullScaleAndFadesOrDropsThemForADevice) {
    constexpr audio::Overlay::Time start{1h};
    audio::Overlay overlay;
    const auto add = [&](std::size_t frames, float level) {
        overlay.Add(std::make_shared<const Frames>(frames, Frame{level, level}), start);
    };
    const auto mix = [&](std::size_t count, std::chrono::milliseconds after, int rate) {
        Frames frames(count, Frame{0.125F, 0.125F});
        overlay.Mix(frames, rate, start + after);
        return frames;
    };
    add(4410, 0.25F);
    const Frames slower = mix(9600, 0ms, 48000);
    EXPECT_EQ(slower[4790].left, 0.375F) << "ends early on a device of another rate";
    EXPECT_EQ(slower[4801].left, 0.125F);
    for (int i = 0; i < 6; ++i)
        add(441, 0.8F);
    const float loudest = mix(441, 0ms, kJingleRate).front().right;
    EXPECT_TRUE(loudest > 0.8F && loudest <= 1) << loudest;
    add(44100, 0.25F);
    EXPECT_TRUE(overlay.Sounding(start + 250ms));
    EXPECT_FALSE(overlay.Sounding(start + 350ms)) << "keeps a device open";
    EXPECT_EQ(mix(10, 350ms, kJingleRate).back().left, 0.125F) << "though it is late";
    add(44100, 0.5F);
    mix(10, 100ms, kJingleRate);
    overlay.Hush();
    add(44100, 0.5F);
    const Frames fading = mix(441, 110ms, kJingleRate);
    EXPECT_LT(sound::Difference(std::span(fading).subspan(1), fading), 0.5F / 170);
    EXPECT_EQ(fading.back().left, 0.125F);
    overlay.Cut();
    EXPECT_EQ(mix(10, 120ms, kJingleRate).back().left, 0.625F) << "what had not begun";
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
