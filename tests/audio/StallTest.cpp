#include "audio/Cue.h"
#include "audio/Output.h"
#include "audio/Sdl.h"
#include "platform/System.h"
#include "tests/HeldReads.h"
#include "tests/audio/RecordedPlayer.h"

#include <atomic>

namespace {

namespace fs = std::filesystem;

#ifdef SONGRUSH_POSIX // elsewhere reads cannot be held back

double AtFour(double) { return 4; }

class StalledDisk : public RecordedPlayer {
protected:
    /// Waits for the cue's end.
    static bool Comes(const audio::Cue& cue) {
        return Eventually([&cue] { return !cue.Working(); });
    }
};

TEST_F(StalledDisk, PausesAndEndsAtOnce) {
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    mPlayer.Play();
    ASSERT_TRUE(Passes(0.5));
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

TEST_F(StalledDisk, WhatIsReadyNeedsNoMoreReads) {
    const fs::path gone = mFolder.Path() / "gone";
    const audio::Cue cue({gone, gone, Song(60), gone}, AtFour);
    ASSERT_TRUE(Comes(cue));
    EXPECT_TRUE(cue.Ready());
    EXPECT_EQ(cue.Failed(), 2u);
    const HeldReads held(Song(60));
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    mPlayer.SeekTo(4);
    mPlayer.Play();
    EXPECT_TRUE(Passes(5.2));
    mPlayer.StopPlay();
    ASSERT_TRUE(DeviceCloses());
    EXPECT_NEAR(PitchAt(0.1), tonefile::Pitch(4.15), 20);
    EXPECT_NEAR(PitchAt(0.9), tonefile::Pitch(4.95), 20);
}

TEST_F(StalledDisk, ACueGoesAtOnceAndTellsOfSongsThatFail) {
    const HeldReads held(Song(60));
    {
        const audio::Cue cue({Song(60)}, AtFour);
        ASSERT_TRUE(Eventually([&held] { return held.Waiting() > 0; }));
        EXPECT_TRUE(cue.Working());
    }
    const audio::Cue cue({mFolder.Path() / "gone"}, AtFour);
    ASSERT_TRUE(Comes(cue));
    EXPECT_FALSE(cue.Ready());
    EXPECT_EQ(mPlayer.OpenFile(mFolder.Path() / "gone"), 0);
}

#endif

std::atomic<bool> gHangs = false;
std::atomic<int> gInside = 0;
std::atomic<bool> gUnplugged = false;
std::atomic<int> gOpened = 0;
std::atomic<int> gClosed = 0;

/// Returns once the device hangs no more.
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
            mPlayer.Play();
            ASSERT_TRUE(Passes(1));
            gHangs = true;
            mPlayer.StopPlay(); // and then it is closed
        }
        ASSERT_TRUE(Eventually([] { return gInside > 0; }));
        mPlayer.Play();
        EXPECT_TRUE(Passes(0.2));
        EXPECT_EQ(audio::NoDevice(), opening);
        mPlayer.StopPlay();
        gHangs = false;
        ASSERT_TRUE(Eventually([] { return gClosed == gOpened; }));
        Rewind();
        ASSERT_EQ(mPlayer.OpenFile(Song(3)), 1);
        mPlayer.Play();
        EXPECT_TRUE(Ends());
        EXPECT_FALSE(audio::NoDevice());
        ASSERT_TRUE(DeviceCloses());
        EXPECT_GT(Sound().size(), 2.9 * kRate);
        Rewind();
    }
}

TEST_F(StuckDevice, AnUnpluggedOneIsLookedForAgain) {
    ASSERT_EQ(mPlayer.OpenFile(Song(60)), 1);
    mPlayer.Play();
    ASSERT_TRUE(Passes(1));
    const int opened = gOpened;
    gUnplugged = true;
    EXPECT_TRUE(Eventually([opened] { return gOpened > opened; }));
    gUnplugged = false;
    EXPECT_TRUE(Passes(mPlayer.Position() + 1));
}

TEST_F(StuckDevice, IsLeftBehind) {
    gHangs = true;
    auto player = std::make_unique<c_XAudio>();
    ASSERT_EQ(player->OpenFile(Song(3)), 1);
    player->Play();
    ASSERT_TRUE(Eventually([] { return gInside > 0; }));
    player.reset();
    EXPECT_FALSE(platform::AsidesEnd(std::chrono::milliseconds(100)));
}

} // namespace
