#include "audio/Cue.h"
#include "audio/Output.h"
#include "audio/Sdl.h"
#include "platform/System.h"
#include "tests/HeldReads.h"
#include "tests/audio/RecordedPlayer.h"

#include <atomic>

namespace {

#ifdef SONGRUSH_POSIX // elsewhere reads cannot be held back

using StalledDisk = RecordedPlayer;

TEST_F(StalledDisk, IsNotNeededForWhatACueHasReadyNorWaitedForAfterwards) {
    const auto atFour = [](double) { return 4.0; };
    const auto gone = mFolder.Path() / "gone";
    const audio::Cue cue({gone, gone, Song(60), gone}, atFour);
    ASSERT_TRUE(Eventually([&] { return cue.Ready(); }));
    EXPECT_EQ(cue.Failed(), 2u);
    const auto slow = mFolder.Write("60 slow", BytesOf(Song(60)));
    const HeldReads held(Song(60)); // and the other one
    {
        const audio::Cue stalled({slow}, atFour);
        ASSERT_TRUE(Eventually([&held] { return held.Waiting() > 0; }));
        EXPECT_TRUE(stalled.Working());
    }
    EXPECT_EQ(mPlayer.OpenFile(gone), 0);
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    mPlayer.SeekTo(4);
    EXPECT_TRUE(PlaysPast(5.2));
    mPlayer.PausePlay();
    const sound::Frames heard = RecordedSound();
    ExpectHeard(heard, 0.1, 4.15);
    ExpectHeard(heard, 0.9, 4.95);
    mPlayer.SeekTo(2);
    const audio::Cue none({gone}, atFour);
    ASSERT_TRUE(Eventually([&none] { return !none.Working(); }));
    EXPECT_EQ(mPlayer.OpenFile(Song(3)), 1) << "not for this song";
    EXPECT_TRUE(PlaysToTheEnd());
    EXPECT_GT(held.Waiting(), 0);
}

#endif

std::atomic<bool> gHangs = false;
std::atomic<int> gInside = 0;

/// A call of the device, which returns once that hangs no more.
struct Call {
    Call() {
        ++gInside;
        EXPECT_TRUE(Eventually([] { return !gHangs; }));
    }
    ~Call() { --gInside; }
};

class StuckDevice : public RecordedPlayer {
protected:
    StuckDevice() {
        mSdl.OpenAudioDevice = [](auto... arguments) {
            const Call call;
            return real->OpenAudioDevice(arguments...);
        };
        mSdl.CloseAudioDevice = [](SDL_AudioDeviceID device) {
            const Call call;
            real->CloseAudioDevice(device);
        };
        audio::ReplaceSdl(&mSdl);
    }
    ~StuckDevice() override {
        EXPECT_TRUE(Recovers());
        audio::ReplaceSdl(nullptr);
    }
    static bool Hangs() {
        return Eventually([] { return gInside > 0; });
    }
    static bool Recovers() {
        gHangs = false;
        return Eventually([] { return gInside == 0; });
    }

    inline static const audio::Sdl* real = audio::LoadSdl();
    audio::Sdl mSdl = *real;
};

TEST_F(StuckDevice, LeavesTheGameGoingAndSoundComesBackWithTheNextClip) {
    for (const bool opening : {true, false}) {
        gHangs = opening;
        ASSERT_EQ(mPlayer.OpenFile(Song(6)), 1);
        if (!opening) {
            ASSERT_TRUE(PlaysPast(1));
            gHangs = true;
            mPlayer.StopPlay(); // and then it is closed
        }
        ASSERT_TRUE(Hangs());
        EXPECT_TRUE(PlaysPast(0.2));
        EXPECT_EQ(audio::NoDevice(), opening);
        mPlayer.StopPlay();
        ASSERT_TRUE(Recovers());
        Recorded();
        ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
        EXPECT_TRUE(PlaysToTheEnd());
        EXPECT_FALSE(audio::NoDevice());
        mPlayer.StopPlay();
        EXPECT_GT(RecordedSound().size(), 2.9 * kRate);
    }
}

TEST_F(StuckDevice, ThatOpensASecondAfterPlayMissesNothing) {
    gHangs = true;
    ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.Play();
    std::this_thread::sleep_for(std::chrono::seconds(1));
    ASSERT_TRUE(Recovers());
    EXPECT_TRUE(PlaysToTheEnd());
    mPlayer.StopPlay();
    EXPECT_GT(RecordedSound().size(), 2.9 * kRate);
}

TEST_F(StuckDevice, AnUnpluggedOneIsLookedForAgainAndOneThatHangsIsLeftBehind) {
    static std::atomic<bool> unplugged = false;
    mSdl.GetAudioDeviceStatus = [](SDL_AudioDeviceID device) {
        return unplugged ? SDL_AUDIO_STOPPED : real->GetAudioDeviceStatus(device);
    };
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    ASSERT_TRUE(PlaysPast(1));
    Rewind();
    unplugged = true;
    EXPECT_TRUE(DeviceOpens());
    unplugged = false;
    EXPECT_TRUE(PlaysPast(mPlayer.Position() + 1));
    gHangs = true;
    auto player = std::make_unique<c_XAudio>();
    ASSERT_EQ(player->OpenFile(Song(60)), 1);
    ASSERT_TRUE(Hangs());
    player.reset();
    EXPECT_FALSE(platform::AsidesEnd(std::chrono::milliseconds(100)));
}

} // namespace
