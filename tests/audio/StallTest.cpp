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

TEST_F(StalledDisk, PausesAndEndsAtOnce) {
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    ASSERT_TRUE(PlaysPast(0.5));
    HeldReads held(Song(60));
    ASSERT_TRUE(Eventually([&held] { return held.Waiting() > 0; }));
    mPlayer.PausePlay();
    EXPECT_TRUE(DeviceCloses());
    mPlayer.StopPlay();
    mPlayer.SeekTo(2);
    EXPECT_EQ(mPlayer.OpenFile(Song(3)), 1);
    mPlayer.Play();
    EXPECT_TRUE(Ends());
    EXPECT_GT(held.Waiting(), 0);
}

TEST_F(StalledDisk, ACueNeedsNoMoreReadsOfWhatIsReadyAndEndsAtOnce) {
    const auto atFour = [](double) { return 4.0; };
    const auto gone = mFolder.Path() / "gone";
    const audio::Cue cue({gone, gone, Song(60), gone}, atFour);
    const audio::Cue dead({gone}, atFour);
    ASSERT_TRUE(Eventually([&] { return !cue.Working() && !dead.Working(); }));
    EXPECT_TRUE(cue.Ready());
    EXPECT_EQ(cue.Failed(), 2u);
    EXPECT_FALSE(dead.Ready());
    EXPECT_EQ(mPlayer.OpenFile(gone), 0);
    const auto slow = mFolder.Write("60 slow", BytesOf(Song(60)));
    const HeldReads held(Song(60)); // and the other one
    {
        const audio::Cue stalled({slow}, atFour);
        ASSERT_TRUE(Eventually([&held] { return held.Waiting() > 0; }));
        EXPECT_TRUE(stalled.Working());
    }
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    mPlayer.SeekTo(4);
    EXPECT_TRUE(PlaysPast(5.2));
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    ExpectHeard(0.1, 4.15);
    ExpectHeard(0.9, 4.95);
}

#endif

std::atomic<bool> gHangs = false;
std::atomic<int> gInside = 0;
std::atomic<bool> gUnplugged = false;
std::atomic<int> gOpened = 0;
std::atomic<int> gClosed = 0;

/// Returns once the device has stopped hanging.
void Hang() {
    ++gInside;
    EXPECT_TRUE(Eventually([] { return !gHangs; }));
    --gInside;
}

class StuckDevice : public RecordedPlayer {
protected:
    StuckDevice() {
        mSdl.OpenAudioDevice = [](const char* name, int capture, const SDL_AudioSpec* wanted,
                                  SDL_AudioSpec* got, int changes) {
            ++gOpened;
            Hang();
            return real->OpenAudioDevice(name, capture, wanted, got, changes);
        };
        mSdl.CloseAudioDevice = [](SDL_AudioDeviceID device) {
            Hang();
            real->CloseAudioDevice(device);
            ++gClosed;
        };
        mSdl.GetAudioDeviceStatus = [](SDL_AudioDeviceID device) {
            return gUnplugged ? SDL_AUDIO_STOPPED : real->GetAudioDeviceStatus(device);
        };
        audio::ReplaceSdl(&mSdl);
    }
    ~StuckDevice() override {
        gHangs = false;
        EXPECT_TRUE(Eventually([] { return gInside == 0; }));
        audio::ReplaceSdl(nullptr);
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
        ASSERT_TRUE(Eventually([] { return gInside > 0; }));
        EXPECT_TRUE(PlaysPast(0.2));
        EXPECT_EQ(audio::NoDevice(), opening);
        mPlayer.StopPlay();
        gHangs = false;
        ASSERT_TRUE(Eventually([] { return gClosed == gOpened; }));
        Rewind();
        ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
        mPlayer.Play();
        EXPECT_TRUE(Ends());
        EXPECT_FALSE(audio::NoDevice());
        mPlayer.StopPlay();
        ASSERT_TRUE(DeviceCloses());
        EXPECT_GT(Sound().size(), 2.9 * kRate);
        Rewind();
    }
}

TEST_F(StuckDevice, AnUnpluggedOneIsLookedForAgainAndOneThatHangsIsLeftBehind) {
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    ASSERT_TRUE(PlaysPast(1));
    const int opened = gOpened;
    gUnplugged = true;
    EXPECT_TRUE(Eventually([opened] { return gOpened > opened; }));
    gUnplugged = false;
    EXPECT_TRUE(Passes(mPlayer.Position() + 1));
    gHangs = true;
    auto player = std::make_unique<c_XAudio>();
    ASSERT_EQ(player->OpenFile(Song(60)), 1);
    ASSERT_TRUE(Eventually([] { return gInside > 0; }));
    player.reset();
    EXPECT_FALSE(platform::AsidesEnd(std::chrono::milliseconds(100)));
}

} // namespace
